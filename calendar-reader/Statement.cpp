// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/Statement.h"

#include "calendar-reader/DatabaseError.h"

#include <QStringDecoder>

namespace quorvane {

Result<Statement> Statement::prepare(sqlite3 *database, const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    const int code = sqlite3_prepare_v2(database, sql, -1, &statement, nullptr);
    Statement result(statement);
    if (code != SQLITE_OK)
        return Failure(databaseError(database, code));
    return result;
}

Result<bool> Statement::step()
{
    const int code = sqlite3_step(m_statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        return Failure(databaseError(sqlite3_db_handle(m_statement.get()), code));
    return code == SQLITE_ROW;
}

Result<void> Statement::forEach(const std::function<void(const Statement &row)> &take)
{
    for (;;) {
        const Result<bool> more = step();
        if (!more)
            return Failure(more.error());
        if (!*more)
            return {};
        take(*this);
    }
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

sqlite3_int64 Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

std::optional<QString> Statement::text(int column) const
{
    if (sqlite3_column_type(m_statement.get(), column) != SQLITE_TEXT)
        return std::nullopt;
    const unsigned char *bytes = sqlite3_column_text(m_statement.get(), column);
    const int size = sqlite3_column_bytes(m_statement.get(), column);
    if (!bytes || size > longestText)
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(QByteArrayView(bytes, size));
    if (decoder.hasError() || text.contains(QChar::Null))
        return std::nullopt;
    return text;
}

} // namespace quorvane
