// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/FantasticalReadError.h"

#include <sqlite3.h>

namespace quorvane {

/// What SQLite's result `code` of the last call on `database` means for the cache. A query that does not fit
/// the tables tells of another layout, too little memory or time of this process; everything else of a
/// database that cannot be read just now.
[[nodiscard]] FantasticalReadError databaseError(sqlite3 *database, int code);

} // namespace quorvane
