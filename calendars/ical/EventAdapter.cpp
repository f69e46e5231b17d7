// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/EventAdapter.h"

#include "calendars/ical/ConferenceLinks.h"
#include "calendars/ical/EventNotes.h"
#include "calendars/ical/IcalText.h"
#include "calendars/ical/LinkUnwrapper.h"
#include "calendars/records/EventMeetings.h"
#include "core/Meeting.h"

#include <algorithm>

namespace quorvane {
namespace {

EventStatus statusOf(icalcomponent *event)
{
    const icalproperty_status status = icalcomponent_get_status(event);
    if (status == ICAL_STATUS_CONFIRMED)
        return EventStatus::confirmed;
    if (status == ICAL_STATUS_TENTATIVE)
        return EventStatus::tentative;
    return status == ICAL_STATUS_CANCELLED ? EventStatus::cancelled : EventStatus::none;
}

std::optional<QString> unwrappedText(icalcomponent *event, icalproperty_kind kind)
{
    const std::optional<QString> text = icalText(event, kind);
    return text ? std::optional(LinkUnwrapper::unwrapped(*text)) : std::nullopt;
}

void setLinksAndNotes(CalendarEvent &result, icalcomponent *event)
{
    QStringList links = conferenceLinks(event);
    const auto video = std::find_if(links.begin(), links.end(), [](const QString &link) {
        return Meeting::findJoinURL(link).has_value();
    });
    const std::optional<QString> plain = unwrappedText(event, ICAL_URL_PROPERTY);
    if (video != links.end())
        result.url = *video;
    else if (plain)
        result.url = plain;
    else if (!links.isEmpty())
        result.url = links.constFirst();
    if (plain)
        links.append(*plain);

    QString notes = eventNotes(event);
    for (const QString &link : std::as_const(links)) {
        if (link != result.url && !notes.contains(link))
            notes += (notes.isEmpty() ? QString() : QStringLiteral("\n")) + link;
    }
    if (!notes.trimmed().isEmpty())
        result.notes = notes;
}

} // namespace

EventAdapter::EventAdapter(QString calendarId, QString calendarName, OwnAddresses addresses)
    : m_calendarId(std::move(calendarId))
    , m_calendarName(std::move(calendarName))
    , m_addresses(std::move(addresses))
{
}

CalendarEvent EventAdapter::describe(icalcomponent *event, const QString &fallbackIdentifier) const
{
    CalendarEvent result;
    result.externalIdentifier = icalText(event, ICAL_UID_PROPERTY).value_or(QString());
    const QString &own = result.externalIdentifier.isEmpty() ? fallbackIdentifier : result.externalIdentifier;
    result.identifier = m_calendarId + u'/' + own;
    result.title = icalText(event, ICAL_SUMMARY_PROPERTY);
    result.status = statusOf(event);
    result.declinedByUser = m_addresses.haveDeclined(event);
    result.location = unwrappedText(event, ICAL_LOCATION_PROPERTY);
    setLinksAndNotes(result, event);
    result.calendarId = m_calendarId;
    result.calendar = m_calendarName;
    EventMeetings::search(result);
    return result;
}

} // namespace quorvane
