// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

namespace quorvane {

/// Whether the service manager's copy of the program runs and has taken over what this one was started for:
/// this process must then end with status 0. `argc` and `argv` are those of `main`; there must not be an
/// application object yet.
[[nodiscard]] bool handOverToAgent(int argc, char **argv, const QStringList &arguments);

} // namespace quorvane
