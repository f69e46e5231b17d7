// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/ReadOnlyFiles.h"

#include <sqlite3.h>

namespace quorvane {
namespace {

int openReadOnly(sqlite3_vfs *files, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    constexpr int writing =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE | SQLITE_OPEN_DELETEONCLOSE;
    file->pMethods = nullptr;
    if (!name) // a temporary file
        return SQLITE_CANTOPEN;
    auto *system = static_cast<sqlite3_vfs *>(files->pAppData);
    return system->xOpen(system, name, file, (flags & ~writing) | SQLITE_OPEN_READONLY, outFlags);
}

int refuseDelete(sqlite3_vfs *, const char *, int)
{
    return SQLITE_READONLY;
}

/// The other functions of the system's files do not look at what `pAppData` points to.
sqlite3_vfs readOnly(const char *name, const char *system)
{
    sqlite3_vfs files = *sqlite3_vfs_find(system);
    files.zName = name;
    files.pAppData = sqlite3_vfs_find(system);
    files.xOpen = openReadOnly;
    files.xDelete = refuseDelete;
    return files;
}

} // namespace

const char *readOnlyFiles(FileLocks locks)
{
    static sqlite3_vfs locking = readOnly("quorvane-locking", "unix");
    static sqlite3_vfs unlocked = readOnly("quorvane-unlocked", "unix-none");
    sqlite3_vfs &files = locks == FileLocks::kept ? locking : unlocked;
    sqlite3_vfs_register(&files, 0);
    return files.zName;
}

} // namespace quorvane
