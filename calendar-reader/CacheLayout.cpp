// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheLayout.h"

#include "calendars/records/FantasticalReadError.h"

namespace quorvane::CacheLayout {
namespace {

// Each counts what is right; a pragma as a table gives one row.
constexpr const char *marks = "SELECT (SELECT application_id FROM pragma_application_id), "
                              "(SELECT user_version FROM pragma_user_version), "
                              "(SELECT encoding FROM pragma_encoding) = 'UTF-8'";
constexpr const char *tables =
    "SELECT count(*) FROM pragma_table_list WHERE schema = 'main' AND type = 'table' AND strict AND NOT wr "
    "AND name IN ('calendar', 'own_address', 'event')";
constexpr const char *columns =
    "WITH wanted(place, name, type) AS (VALUES "
    "('calendar', 'id', 'TEXT'), ('calendar', 'name', 'TEXT'), ('calendar', 'account', 'TEXT'), "
    "('own_address', 'calendar', 'TEXT'), ('own_address', 'address', 'TEXT'), "
    "('event', 'calendar', 'TEXT'), ('event', 'uid', 'TEXT'), ('event', 'first_start', 'INTEGER'), "
    "('event', 'last_end', 'INTEGER'), ('event', 'content', 'TEXT')) "
    "SELECT count(*) FROM wanted WHERE NOT EXISTS (SELECT 1 FROM pragma_table_xinfo(wanted.place) AS found "
    "WHERE found.name = wanted.name AND found.type = wanted.type AND found.hidden = 0)";

Result<sqlite3_int64> number(const CacheDatabase &database, const char *sql)
{
    Result<Statement> statement = database.query(sql);
    if (!statement)
        return Failure(statement.error());
    const Result<bool> row = statement->step();
    if (!row)
        return Failure(row.error());
    return *row ? statement->integer(0) : 0;
}

Result<bool> hasMarks(const CacheDatabase &database)
{
    Result<Statement> statement = database.query(marks);
    if (!statement)
        return Failure(statement.error());
    const Result<bool> row = statement->step();
    if (!row)
        return Failure(row.error());
    return *row && statement->integer(0) == applicationId && statement->integer(1) == version &&
           statement->integer(2) == 1;
}

} // namespace

Result<void> check(const CacheDatabase &database)
{
    const Result<bool> marked = hasMarks(database);
    if (!marked)
        return Failure(marked.error());
    if (!*marked)
        return Failure(FantasticalReadError::unsupportedFormat);
    const Result<sqlite3_int64> found = number(database, tables);
    const Result<sqlite3_int64> missing = found ? number(database, columns) : found;
    if (!missing)
        return Failure(missing.error());
    if (*found != 3 || *missing != 0)
        return Failure(FantasticalReadError::unsupportedFormat);
    return {};
}

} // namespace quorvane::CacheLayout
