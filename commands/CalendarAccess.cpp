// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/CalendarAccess.h"

#include "calendars/CalendarReader.h"
#include "commands/ExitStatus.h"

using namespace Qt::StringLiterals;

namespace quorvane::CalendarAccess {

QCoro::Task<bool> isAllowed(CalendarReader &reader)
{
    const Result<bool> isGranted = co_await reader.requestAccess();
    co_return isGranted.value_or(false);
}

int refuse(const PrintLine &print)
{
    print(u"Calendar access is needed. Allow access from Quorvane's Connect calendars button."_s);
    return ExitStatus::noCalendarAccess;
}

} // namespace quorvane::CalendarAccess
