// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Where the calendar cache beside the system's store is.
namespace quorvane::FantasticalCache {

/// Name of the cache file in its folder.
extern const QString fileName;

/// The folder in which the cache is looked for when none was chosen, below the user's home folder `home`.
[[nodiscard]] QString defaultDirectory(const QString &home);

} // namespace quorvane::FantasticalCache
