// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QString>

namespace quorvane {

/// One of many video meetings of half an hour, in one of seven calendars. `start` is a Unix time, in seconds.
inline Meeting teamMeeting(int number, double start)
{
    return {.id = QString::number(number),
            .title = QStringLiteral("Meeting %1 of the engineering team").arg(number),
            .start = start,
            .end = start + 1800,
            .calendar = QStringLiteral("Calendar %1").arg(number % 7),
            .joinURL = QStringLiteral("https://meet.google.com/abc-defg-hij"),
            .source = Meeting::systemSource};
}

} // namespace quorvane
