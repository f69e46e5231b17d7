// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/FantasticalSource.h"

#include <QSet>

#include <algorithm>

namespace quorvane {

void FantasticalSource::take(Result<FantasticalSnapshot> outcome, double now)
{
    m_isBusy = false;
    m_isConnected = outcome.has_value();
    m_wasEverConnected = m_wasEverConnected || m_isConnected;
    m_failure = outcome ? std::error_code() : outcome.error();
    if (outcome) {
        m_snapshot = *std::move(outcome);
        m_lastRead = now;
    }
}

// A meeting names its calendar by its title only. Where a switched-off calendar shares its title with another
// one, its meetings stay: better one alert too many.
std::vector<Meeting> FantasticalSource::meetings(const QStringList &excluded) const
{
    QSet<QString> silent;
    QSet<QString> heard;
    for (const CalendarOption &calendar : m_snapshot.calendars)
        (excluded.contains(calendar.id) ? silent : heard).insert(calendar.name);
    silent.subtract(heard);
    std::vector<Meeting> result = m_snapshot.events;
    std::erase_if(result, [&silent](const Meeting &meeting) { return silent.contains(meeting.calendar); });
    return result;
}

} // namespace quorvane
