// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// The two kinds of places for icons that Linux desktops have.
enum class TrayKind {
    /// The panel draws icon and menu from what is told over the session bus.
    notifierItem,
    /// A panel on an X server takes in a small window of ours.
    embedded,
};

} // namespace quorvane
