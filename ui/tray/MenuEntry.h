// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <vector>

namespace quorvane {

/// What can be asked for in the tray's menu.
enum class MenuCommand { open, previewAlert, checkForUpdates, refresh, pause, resume, quit };

/// One line of the tray's menu.
struct MenuEntry
{
    enum class Kind {
        /// Tells something and cannot be chosen.
        text,
        separator,
        command,
    };

    Kind kind = Kind::separator;
    /// One line, as it is to be read: no character in it means anything else.
    QString text;
    /// Of a command only.
    MenuCommand command = MenuCommand::open;

    bool operator==(const MenuEntry &) const = default;
};

using MenuEntries = std::vector<MenuEntry>;

} // namespace quorvane
