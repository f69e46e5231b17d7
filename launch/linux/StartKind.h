// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Who started this process.
enum class StartKind {
    person,
    /// The desktop, by its autostart folder.
    login,
    /// The service manager, as the unit that it looks after.
    agent,
};

/// What the variable QUORVANE_START says, which the autostart entries and the unit set: `login`, `agent`, or
/// nothing known for a person. Not by what the service manager itself says to those it starts: desktops start
/// by it what a person clicks on, too. The first call takes the variable out of the environment, so that
/// nothing that is started from here inherits it; `main` calls it before there is a thread, another program
/// or a copy of the environment.
[[nodiscard]] StartKind startKind();

} // namespace quorvane
