// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/ReadOnlyFiles.h"

#include <sqlite3.h>

namespace quorvane {
namespace {

int openReadOnly(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    constexpr int writing =
        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE | SQLITE_OPEN_DELETEONCLOSE;
    file->pMethods = nullptr;
    if (!name) // a temporary file
        return SQLITE_CANTOPEN;
    sqlite3_vfs *system = sqlite3_vfs_find(nullptr);
    return system->xOpen(system, name, file, (flags & ~writing) | SQLITE_OPEN_READONLY, outFlags);
}

int refuseDelete(sqlite3_vfs *, const char *, int)
{
    return SQLITE_READONLY;
}

sqlite3_vfs *makeReadOnly()
{
    static sqlite3_vfs files = *sqlite3_vfs_find(nullptr);
    files.zName = "quorvane-read-only";
    files.xOpen = openReadOnly;
    files.xDelete = refuseDelete;
    sqlite3_vfs_register(&files, 0);
    return &files;
}

} // namespace

const char *readOnlyFiles()
{
    static const sqlite3_vfs *const files = makeReadOnly();
    return files->zName;
}

} // namespace quorvane
