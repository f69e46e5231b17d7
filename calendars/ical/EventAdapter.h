// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/OwnAddresses.h"
#include "calendars/records/CalendarEvent.h"

#include <libical/ical.h>

namespace quorvane {

/// Turns the properties of one VEVENT into a `CalendarEvent`.
class EventAdapter final
{
public:
    /// For the events of one calendar of the user who is known by `addresses`.
    EventAdapter(QString calendarId, QString calendarName, OwnAddresses addresses);

    /// All but the times, which belong to the occurrences; already searched for the join link. `url` is the
    /// conference link where one leads to a video service; the links that find no place there are added to
    /// the notes, so that none is lost to a search. `fallbackIdentifier` stands in for a missing UID.
    [[nodiscard]] CalendarEvent describe(icalcomponent *event, const QString &fallbackIdentifier) const;

private:
    QString m_calendarId;
    QString m_calendarName;
    OwnAddresses m_addresses;
};

} // namespace quorvane
