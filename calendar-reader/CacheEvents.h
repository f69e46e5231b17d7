// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheCalendars.h"
#include "calendar-reader/CacheRequest.h"
#include "calendars/ical/FileEvents.h"
#include "calendars/ical/ZoneDefinitions.h"
#include "calendars/records/CalendarEvent.h"

#include <vector>

namespace quorvane {

/// Reads the events of the cache that may take place within the next days.
class CacheEvents final
{
public:
    /// With more rows to look at reading fails.
    static constexpr std::size_t mostRows = 500'000;
    /// Once there are more, the rows that are left are skipped.
    static constexpr std::size_t mostOccurrences = 100'000;
    /// Longest UID, and longest title that is not cut, in characters.
    static constexpr qsizetype longestIdentifier = 1'000;
    static constexpr qsizetype longestTitle = 1'000;

    /// All must outlive this.
    CacheEvents(const CacheDatabase &database, const CacheCalendars &calendars, const CacheRequest &request);

    /// Fails as `CacheDatabase` does, and with `FantasticalReadError::helperFailed` when there are
    /// too many rows or the deadline passes before all were read. A row that cannot be understood is no
    /// failure and counts as skipped.
    [[nodiscard]] Result<std::vector<CalendarEvent>> read();

    [[nodiscard]] qint64 skipped() const { return m_skipped; }

private:
    struct Row
    {
        sqlite3_int64 id = 0;
        const CalendarOption *calendar = nullptr;
    };

    [[nodiscard]] Result<std::vector<Row>> rows();
    [[nodiscard]] Result<void> readRows(const std::vector<Row> &rows);
    [[nodiscard]] Result<void> readRow(const Row &row);
    [[nodiscard]] bool takeEvents(const Row &row, const std::string &content);
    [[nodiscard]] const FileContext &context(const CalendarOption &calendar);

    const CacheDatabase &m_database;
    const CacheCalendars &m_calendars;
    const CacheRequest &m_request;
    ZoneDefinitions m_zones;
    FileContext m_context;
    std::vector<CalendarEvent> m_events;
    qint64 m_skipped = 0;
};

} // namespace quorvane
