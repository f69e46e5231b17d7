// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Where the user's files are (XDG Base Directory Specification 0.8).
namespace quorvane::UserFolders {

/// $XDG_CONFIG_HOME/Quorvane/settings.ini
[[nodiscard]] QString settingsFile();
/// $XDG_DATA_HOME/Quorvane/acknowledgments.json
[[nodiscard]] QString ledgerFile();
/// $XDG_DATA_HOME/Quorvane/calendars
[[nodiscard]] QString calendarFolder();

/// Where a running copy is found: $XDG_RUNTIME_DIR, or $XDG_DATA_HOME/Quorvane, which is made if need be,
/// where that cannot be used.
[[nodiscard]] QString runtimeFolder();

} // namespace quorvane::UserFolders
