// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/DatabaseError.h"

#include <cerrno>

namespace quorvane {

FantasticalReadError databaseError(sqlite3 *database, int code)
{
    const int number = database ? sqlite3_system_errno(database) : 0;
    switch (code & 0xFF) {
    case SQLITE_ERROR:
        return FantasticalReadError::unsupportedFormat;
    case SQLITE_CANTOPEN:
        // Not EPERM: that is what our own confinement says to calls that SQLite can do without.
        return number == EACCES ? FantasticalReadError::accessDenied
                                : FantasticalReadError::databaseUnavailable;
    case SQLITE_NOMEM:
    case SQLITE_INTERRUPT:
        return FantasticalReadError::helperFailed;
    default:
        return FantasticalReadError::databaseUnavailable;
    }
}

} // namespace quorvane
