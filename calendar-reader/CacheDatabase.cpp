// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheDatabase.h"

#include "calendar-reader/DatabaseError.h"
#include "calendar-reader/ReadOnlyFiles.h"

namespace quorvane {
namespace {

QByteArray uri(const QByteArray &path, CacheJournal journal)
{
    const QByteArray file = "file:" + path.toPercentEncoding("/") + "?mode=ro";
    return journal == CacheJournal::logEmpty ? file + "&immutable=1" : file;
}

int isOver(void *deadline)
{
    return std::chrono::steady_clock::now() > *static_cast<const Deadline *>(deadline) ? 1 : 0;
}

} // namespace

Result<CacheDatabase> CacheDatabase::open(const QByteArray &path, CacheJournal journal, Deadline deadline)
{
    sqlite3 *handle = nullptr;
    const int code = sqlite3_open_v2(
        uri(path, journal).constData(), &handle,
        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_PRIVATECACHE,
        readOnlyFiles(journal == CacheJournal::logFilled ? FileLocks::none : FileLocks::kept));
    CacheDatabase database(handle);
    if (code != SQLITE_OK)
        return Failure(databaseError(handle, code));
    database.m_deadline = std::make_unique<Deadline>(deadline);
    // Before anything looks into the database: the index of the log is kept in memory, not in a file for all.
    if (journal == CacheJournal::logFilled) {
        if (const Result<void> alone = database.run("PRAGMA locking_mode = EXCLUSIVE"); !alone)
            return Failure(alone.error());
    }
    database.distrust();
    if (const Result<void> begun = database.run("BEGIN"); !begun)
        return Failure(begun.error());
    return database;
}

void CacheDatabase::distrust()
{
    sqlite3 *database = m_database.get();
    for (const int option : {SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW,
                             SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION})
        sqlite3_db_config(database, option, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, 2 * longestContent);
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(database, SQLITE_LIMIT_SQL_LENGTH, 100'000);
    sqlite3_busy_timeout(database, static_cast<int>(patience.count()));
    sqlite3_progress_handler(database, 1'000, isOver, m_deadline.get());
    for (const char *pragma : {"PRAGMA cell_size_check = ON", "PRAGMA mmap_size = 0",
                               "PRAGMA temp_store = MEMORY", "PRAGMA cache_size = -8000"})
        (void)run(pragma);
}

Result<void> CacheDatabase::run(const char *sql) const
{
    const int code = sqlite3_exec(m_database.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        return Failure(databaseError(m_database.get(), code));
    return {};
}

Result<std::string> CacheDatabase::content(sqlite3_int64 row) const
{
    sqlite3_blob *handle = nullptr;
    const int opened = sqlite3_blob_open(m_database.get(), "main", "event", "content", row, 0, &handle);
    const std::unique_ptr<sqlite3_blob, decltype(&sqlite3_blob_close)> blob(handle, &sqlite3_blob_close);
    if ((opened & 0xFF) == SQLITE_ERROR || opened == SQLITE_TOOBIG) // a number, nothing
        return std::string();
    if (opened != SQLITE_OK)
        return Failure(databaseError(m_database.get(), opened));
    const int size = sqlite3_blob_bytes(handle);
    if (size > longestContent)
        return std::string();
    std::string content(static_cast<std::size_t>(size), '\0');
    if (const int code = sqlite3_blob_read(handle, content.data(), size, 0); code != SQLITE_OK)
        return Failure(databaseError(m_database.get(), code));
    return content;
}

} // namespace quorvane
