// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheEvents.h"

#include "calendars/records/EventMeetings.h"
#include "calendars/records/FantasticalReadError.h"

#include <algorithm>
#include <iterator>

namespace quorvane {
namespace {

/// The bounds of a row are taken with two days to spare: floating times and dates have no zone of their own.
constexpr sqlite3_int64 margin = 172'800;

bool isIdentified(const CalendarEvent &event)
{
    return !event.externalIdentifier.isEmpty() &&
           event.externalIdentifier.size() <= CacheEvents::longestIdentifier;
}

void cutTitle(CalendarEvent &event)
{
    if (!event.title || event.title->size() <= CacheEvents::longestTitle)
        return;
    event.title->truncate(CacheEvents::longestTitle);
    if (event.title->back().isHighSurrogate())
        event.title->chop(1);
}

/// What was searched for the join link is of no more use, and may be most of the memory that there is.
void dropTexts(CalendarEvent &event)
{
    event.url = event.location = event.notes = std::nullopt;
}

} // namespace

CacheEvents::CacheEvents(const CacheDatabase &database, const CacheCalendars &calendars,
                         const CacheRequest &request)
    : m_database(database)
    , m_calendars(calendars)
    , m_request(request)
{
    m_context.defaultZone = request.zone;
    m_context.from = static_cast<time_t>(request.now - Meeting::graceAfterStart);
    m_context.to = static_cast<time_t>(request.now + EventMeetings::horizon);
}

Result<std::vector<CalendarEvent>> CacheEvents::read()
{
    const Result<std::vector<Row>> found = rows();
    if (!found)
        return Failure(found.error());
    const Result<void> done = readRows(*found);
    m_request.leaveRows();
    if (!done)
        return Failure(done.error());
    return std::move(m_events);
}

/// The rows are listed first: the index has all that this takes, so contents are touched only where needed.
Result<std::vector<CacheEvents::Row>> CacheEvents::rows()
{
    Result<Statement> found = m_database.query("SELECT rowid, calendar FROM event "
                                               "WHERE (first_start IS NULL OR first_start <= ?1) "
                                               "AND (last_end IS NULL OR last_end >= ?2)");
    if (!found)
        return Failure(found.error());
    found->bind(1, m_context.to + margin);
    found->bind(2, m_context.from - margin);
    std::vector<Row> rows;
    const Result<void> done = found->forEach([this, &rows](const Statement &row) {
        const auto calendar = row.text(1);
        if (calendar && m_request.excluded.contains(*calendar))
            return;
        const CalendarOption *known = calendar ? m_calendars.find(*calendar) : nullptr;
        if (!known)
            ++m_skipped;
        else if (rows.size() <= mostRows)
            rows.push_back({row.integer(0), known});
    });
    if (!done)
        return Failure(done.error());
    if (rows.size() > mostRows)
        return Failure(FantasticalReadError::helperFailed);
    return rows;
}

Result<void> CacheEvents::readRows(const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        if (m_events.size() > mostOccurrences || !m_request.mayRead(row.id)) {
            ++m_skipped;
            continue;
        }
        // An answer without the rest would take meetings away from whoever still holds them.
        if (std::chrono::steady_clock::now() > m_request.deadline)
            return Failure(FantasticalReadError::helperFailed);
        if (const Result<void> done = readRow(row); !done)
            return done;
    }
    return {};
}

Result<void> CacheEvents::readRow(const Row &row)
{
    const Result<std::string> content = m_database.content(row.id);
    if (!content)
        return Failure(content.error());
    m_skipped += takeEvents(row, *content) ? 0 : 1;
    return {};
}

/// Returns whether everything in the content could be used.
bool CacheEvents::takeEvents(const Row &row, const std::string &content)
{
    FileEvents read = FileEvents::read(content, std::string(), context(*row.calendar), m_zones);
    m_zones.trim();
    const std::size_t found = read.events.size();
    std::erase_if(read.events, [](const CalendarEvent &event) { return !isIdentified(event); });
    std::ranges::for_each(read.events, cutTitle);
    std::ranges::for_each(read.events, dropTexts);
    const bool isWhole = read.isReadable && read.unusable == 0 && read.events.size() == found;
    std::ranges::move(read.events, std::back_inserter(m_events));
    return isWhole;
}

/// Rows of a calendar tend to follow each other.
const FileContext &CacheEvents::context(const CalendarOption &calendar)
{
    if (m_context.calendarId != calendar.id) {
        m_context.calendarId = calendar.id;
        m_context.calendarName = calendar.name;
        m_context.addresses = m_calendars.addresses(calendar.id);
    }
    return m_context;
}

} // namespace quorvane
