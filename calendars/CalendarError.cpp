// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"

namespace quorvane {

std::string errorText(CalendarError error)
{
    switch (error) {
    case CalendarError::unavailable:
        return "the calendar store is not there";
    case CalendarError::timedOut:
        return "the calendar store did not answer in time";
    case CalendarError::unreadable:
        return "the calendar store's answer is unreadable";
    }
    return "unknown";
}

const char *errorDomain(CalendarError)
{
    return "Quorvane.Calendars";
}

} // namespace quorvane
