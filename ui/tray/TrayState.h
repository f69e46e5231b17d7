// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// What the tray's icon shows.
enum class TrayState {
    normal,
    /// Screen alerts are paused.
    paused,
    /// The user has to look after something.
    attention,
};

} // namespace quorvane
