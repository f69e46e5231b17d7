// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/OwnAddresses.h"
#include "calendars/ical/ZoneDefinitions.h"
#include "calendars/records/CalendarEvent.h"

#include <QByteArray>

#include <ctime>
#include <string>
#include <vector>

namespace quorvane {

/// What is common to the files of one reading.
struct FileContext
{
    QString calendarId;
    QString calendarName;
    OwnAddresses addresses;
    /// Olson name of the user's time zone.
    QByteArray defaultZone;
    /// Occurrences that overlap this span are wanted, Unix time.
    time_t from = 0;
    time_t to = 0;
};

/// What one .ics file holds.
struct FileEvents
{
    std::vector<CalendarEvent> events;
    /// Whether anything in it could be read; an empty calendar can.
    bool isReadable = false;
    /// Components that no occurrence can be worked out of, or not in a moment: broken ones, such without a
    /// valid DTSTART, and series beyond `RecurrenceBudget`.
    int unusable = 0;

    /// Reads the content of the file `fileName`. Its components with the same UID belong together.
    [[nodiscard]] static FileEvents read(const std::string &content, const std::string &fileName,
                                         const FileContext &context, ZoneDefinitions &definitions);
};

} // namespace quorvane
