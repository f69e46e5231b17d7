// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QString>

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <optional>

namespace quorvane {

/// One SQL query. What the database holds is never taken for what it should be: values come only in the type
/// that is asked for.
class Statement final
{
public:
    /// Longest text that is taken from a column, in bytes.
    static constexpr int longestText = 4'000;

    /// Fails as `CacheDatabase` does.
    [[nodiscard]] static Result<Statement> prepare(sqlite3 *database, const char *sql);

    void bind(int index, sqlite3_int64 value) { sqlite3_bind_int64(m_statement.get(), index, value); }

    /// Goes to the next row; false after the last one.
    [[nodiscard]] Result<bool> step();
    /// Goes through the rows that are left, calling `take` for each.
    [[nodiscard]] Result<void> forEach(const std::function<void(const Statement &row)> &take);

    [[nodiscard]] bool isNull(int column) const;
    [[nodiscard]] sqlite3_int64 integer(int column) const;
    /// Absent when the value is no text in valid UTF-8 without zeros, or too long.
    [[nodiscard]] std::optional<QString> text(int column) const;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
    };

    explicit Statement(sqlite3_stmt *statement)
        : m_statement(statement)
    {
    }

    std::unique_ptr<sqlite3_stmt, Finalize> m_statement;
};

} // namespace quorvane
