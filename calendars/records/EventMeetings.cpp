// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/EventMeetings.h"

#include <QSet>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane::EventMeetings {

namespace {

bool concernsUser(const CalendarEvent &event, double now)
{
    return !event.allDay && event.status != EventStatus::cancelled &&
           event.start >= now - Meeting::graceAfterStart && event.end > event.start && !event.declinedByUser;
}

std::optional<QString> linkIn(const CalendarEvent &event)
{
    QStringList texts;
    for (const auto &text : {event.url, event.location, event.notes}) {
        if (text)
            texts.append(*text);
    }
    return Meeting::findJoinURL(texts.join(u'\n'));
}

QString titleOf(const CalendarEvent &event)
{
    return event.title && !event.title->trimmed().isEmpty() ? *event.title : u"Meeting"_s;
}

Meeting meetingOf(const CalendarEvent &event, const QString &id)
{
    return {
        .id = id,
        .title = titleOf(event),
        .start = event.start,
        .end = event.end,
        .calendar = event.calendar,
        .joinURL = event.isSearched ? event.joinURL : linkIn(event),
        .source = Meeting::systemSource,
    };
}

} // namespace

void search(CalendarEvent &event)
{
    if (!std::exchange(event.isSearched, true))
        event.joinURL = linkIn(event);
}

std::vector<Meeting> meetings(const std::vector<CalendarEvent> &events, double now)
{
    std::vector<Meeting> result;
    QSet<QString> seen;
    for (const CalendarEvent &event : events) {
        if (!concernsUser(event, now))
            continue;
        const QString &uid = event.externalIdentifier.isEmpty() ? event.identifier : event.externalIdentifier;
        const QString id = Meeting::identity(uid, event.start);
        if (seen.contains(id))
            continue;
        seen.insert(id);
        result.push_back(meetingOf(event, id));
    }
    std::ranges::stable_sort(result, {}, &Meeting::start);
    return result;
}

} // namespace quorvane::EventMeetings
