// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheDatabase.h"
#include "calendars/ical/OwnAddresses.h"
#include "calendars/records/CalendarOption.h"

#include <QHash>

#include <vector>

namespace quorvane {

/// The calendars of the cache, and by which addresses the user is known in each.
class CacheCalendars final
{
public:
    /// Further calendars are skipped, and so is one that would make the list longer than `longestList` bytes
    /// of JSON.
    static constexpr std::size_t most = 2'000;
    static constexpr qsizetype longestList = 1'000'000;

    /// Fails as `CacheDatabase` does.
    [[nodiscard]] static Result<CacheCalendars> read(const CacheDatabase &database);

    [[nodiscard]] const std::vector<CalendarOption> &options() const { return m_options; }
    /// Null when there is no such calendar.
    [[nodiscard]] const CalendarOption *find(const QString &id) const;
    [[nodiscard]] OwnAddresses addresses(const QString &id) const;
    /// Rows that could not be understood.
    [[nodiscard]] qint64 skipped() const { return m_skipped; }

private:
    [[nodiscard]] Result<void> readOptions(const CacheDatabase &database);
    [[nodiscard]] Result<void> readAddresses(const CacheDatabase &database);
    [[nodiscard]] bool addOption(const Statement &row);
    [[nodiscard]] bool addAddress(const Statement &row);

    std::vector<CalendarOption> m_options;
    QHash<QString, std::size_t> m_positions;
    QStringList m_addressesOfAll;
    QHash<QString, QStringList> m_addresses;
    qsizetype m_listSize = 0;
    qint64 m_skipped = 0;
};

} // namespace quorvane
