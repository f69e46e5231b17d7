// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/EventMeetings.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::EventMeetings {

namespace {

bool concernsUser(const CalendarEvent &event, double now)
{
    return !event.allDay && event.status != EventStatus::cancelled &&
           event.start >= now - Meeting::graceAfterStart && event.end > event.start && !event.declinedByUser;
}

/// Finds join links; the occurrences of a series share their long texts, which are searched once.
class LinkSearch final
{
public:
    std::optional<QString> linkOf(const CalendarEvent &event)
    {
        if (!m_last || m_last->url != event.url || m_last->location != event.location ||
            m_last->notes != event.notes)
            m_link = search(event);
        m_last = &event;
        return m_link;
    }

private:
    static std::optional<QString> search(const CalendarEvent &event)
    {
        QStringList texts;
        for (const auto &text : {event.url, event.location, event.notes}) {
            if (text)
                texts.append(*text);
        }
        return Meeting::findJoinURL(texts.join(u'\n'));
    }

    const CalendarEvent *m_last = nullptr;
    std::optional<QString> m_link;
};

QString titleOf(const CalendarEvent &event)
{
    return event.title && !event.title->trimmed().isEmpty() ? *event.title : u"Meeting"_s;
}

Meeting meetingOf(const CalendarEvent &event, const QString &id, LinkSearch &links)
{
    return {
        .id = id,
        .title = titleOf(event),
        .start = event.start,
        .end = event.end,
        .calendar = event.calendar,
        .joinURL = links.linkOf(event),
        .source = Meeting::systemSource,
    };
}

} // namespace

std::vector<Meeting> meetings(const std::vector<CalendarEvent> &events, double now)
{
    std::vector<Meeting> result;
    QSet<QString> seen;
    LinkSearch links;
    for (const CalendarEvent &event : events) {
        if (!concernsUser(event, now))
            continue;
        const QString &uid = event.externalIdentifier.isEmpty() ? event.identifier : event.externalIdentifier;
        const QString id = Meeting::identity(uid, event.start);
        if (seen.contains(id))
            continue;
        seen.insert(id);
        result.push_back(meetingOf(event, id, links));
    }
    std::ranges::stable_sort(result, {}, &Meeting::start);
    return result;
}

} // namespace quorvane::EventMeetings
