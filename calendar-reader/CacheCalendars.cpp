// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheCalendars.h"

#include <QJsonDocument>

namespace quorvane {

Result<CacheCalendars> CacheCalendars::read(const CacheDatabase &database)
{
    CacheCalendars calendars;
    if (const Result<void> options = calendars.readOptions(database); !options)
        return Failure(options.error());
    if (const Result<void> addresses = calendars.readAddresses(database); !addresses)
        return Failure(addresses.error());
    return calendars;
}

Result<void> CacheCalendars::readOptions(const CacheDatabase &database)
{
    Result<Statement> rows = database.query("SELECT id, name, account FROM calendar ORDER BY rowid");
    if (!rows)
        return Failure(rows.error());
    return rows->forEach([this](const Statement &row) { m_skipped += addOption(row) ? 0 : 1; });
}

bool CacheCalendars::addOption(const Statement &row)
{
    const auto id = row.text(0);
    const auto name = row.text(1);
    const auto account = row.text(2);
    if (!id || id->isEmpty() || !name || !account || m_positions.contains(*id) || m_options.size() >= most)
        return false;
    CalendarOption option{*id, *name, *account};
    const qsizetype size = QJsonDocument(option.toJson()).toJson(QJsonDocument::Compact).size() + 1;
    if (m_listSize + size > longestList)
        return false;
    m_listSize += size;
    m_positions.insert(*id, m_options.size());
    m_options.push_back(std::move(option));
    return true;
}

Result<void> CacheCalendars::readAddresses(const CacheDatabase &database)
{
    Result<Statement> rows = database.query("SELECT calendar, address FROM own_address LIMIT 10000");
    if (!rows)
        return Failure(rows.error());
    return rows->forEach([this](const Statement &row) { m_skipped += addAddress(row) ? 0 : 1; });
}

bool CacheCalendars::addAddress(const Statement &row)
{
    const auto calendar = row.text(0);
    const auto address = row.text(1);
    if (!address || (!calendar && !row.isNull(0)))
        return false;
    (calendar ? m_addresses[*calendar] : m_addressesOfAll).append(*address);
    return true;
}

const CalendarOption *CacheCalendars::find(const QString &id) const
{
    const auto found = m_positions.constFind(id);
    return found == m_positions.constEnd() ? nullptr : &m_options[*found];
}

OwnAddresses CacheCalendars::addresses(const QString &id) const
{
    return OwnAddresses(m_addressesOfAll + m_addresses.value(id));
}

} // namespace quorvane
