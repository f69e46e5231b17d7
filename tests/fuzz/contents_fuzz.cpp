// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/FileEvents.h"
#include "calendars/records/EventMeetings.h"

using namespace quorvane;

/// Any bytes as the text of a calendar. The time is that of the samples.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static ZoneDefinitions zones;
    zones.trim();
    constexpr double now = 1'795'219'200;
    const FileContext context{
        .calendarId = QStringLiteral("c"),
        .calendarName = QStringLiteral("Calendar"),
        .addresses = OwnAddresses({QStringLiteral("me@example.com")}),
        .defaultZone = "Asia/Jerusalem",
        .from = static_cast<time_t>(now - Meeting::graceAfterStart),
        .to = static_cast<time_t>(now + EventMeetings::horizon),
    };
    const std::string text(reinterpret_cast<const char *>(data), size);
    const FileEvents read = FileEvents::read(text, "fuzz.ics", context, zones);
    for (const Meeting &meeting : EventMeetings::meetings(read.events, now)) {
        if (!meeting.eligible(now) || meeting.id.size() != 64)
            qFatal("a meeting that could never alert");
    }
    return 0;
}
