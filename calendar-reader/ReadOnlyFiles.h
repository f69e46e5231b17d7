// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

enum class FileLocks {
    /// Writers are held off while we read, and hold us off.
    kept,
    /// Nobody takes notice of us. The index of a log can be kept in our own memory then (which SQLite's own
    /// "nolock" does not offer).
    none,
};

/// SQLite's own access to files, less everything that writes: it opens nothing for writing, creates nothing
/// and deletes nothing, whatever the database asks for. Opening a log would otherwise create it.
/// Returns the name under which SQLite knows it.
[[nodiscard]] const char *readOnlyFiles(FileLocks locks);

} // namespace quorvane
