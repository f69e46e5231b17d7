// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheFile.h"
#include "calendar-reader/Statement.h"

#include <chrono>
#include <string>

namespace quorvane {

/// The moment at which reading has to come to its end.
using Deadline = std::chrono::steady_clock::time_point;

/// The cache, opened for reading only. SQLite is told to distrust what it finds: the file may come from
/// anywhere.
class CacheDatabase final
{
public:
    /// How long somebody else's lock is waited for.
    static constexpr std::chrono::milliseconds patience{2'000};
    /// Longest content of an event that is read, in bytes.
    static constexpr int longestContent = 1'000'000;

    /// Opens the file and begins a transaction, so that everything read is of one moment. Fails with
    /// `FantasticalReadError`: `databaseUnavailable` when it is locked, damaged or gone, `helperFailed` when
    /// there is too little memory or `deadline` passes during a query.
    [[nodiscard]] static Result<CacheDatabase> open(const QByteArray &path, CacheJournal journal,
                                                    Deadline deadline);

    [[nodiscard]] Result<Statement> query(const char *sql) const
    {
        return Statement::prepare(m_database.get(), sql);
    }

    /// The content of the event in the row `row`; empty when there is none, or none that is short enough. Too
    /// long a content is not even loaded.
    [[nodiscard]] Result<std::string> content(sqlite3_int64 row) const;

private:
    struct Close
    {
        void operator()(sqlite3 *database) const { sqlite3_close_v2(database); }
    };

    explicit CacheDatabase(sqlite3 *database)
        : m_database(database)
    {
    }

    void distrust();
    [[nodiscard]] Result<void> run(const char *sql) const;

    std::unique_ptr<sqlite3, Close> m_database;
    /// Kept where it does not move: SQLite holds a pointer to it.
    std::unique_ptr<Deadline> m_deadline;
};

} // namespace quorvane
