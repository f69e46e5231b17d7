// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SourceStatus.h"

#include "calendars/CalendarError.h"

using namespace Qt::StringLiterals;

namespace quorvane::SourceStatus {

namespace {

QString sentence(const StoreProblem &problem)
{
    if (problem.error == CalendarError::timedOut)
        return u"%1 did not answer; its saved meetings are retained."_s.arg(problem.store);
    if (problem.error == CalendarError::unavailable)
        return u"%1 is not running; its saved meetings are retained."_s.arg(problem.store);
    return u"%1 could not be read completely; its saved meetings are retained."_s.arg(problem.store);
}

} // namespace

QString line(bool calendarAccess, const std::vector<StoreProblem> &problems, std::size_t scheduledMeetings)
{
    if (!calendarAccess)
        return problems.empty() ? accessOff() : accessFailed();
    QString text;
    for (const StoreProblem &problem : problems)
        text += sentence(problem) + u' ';
    return text + QString::number(scheduledMeetings) + u" meetings scheduled for alerts"_s;
}

QString accessOff()
{
    return u"Calendar access is off. Allow Quorvane in System Settings > Privacy & Security > Calendars, "
           u"then "
           "refresh."_s;
}

QString accessFailed()
{
    return u"Calendar access failed. Check Privacy & Security > Calendars."_s;
}

} // namespace quorvane::SourceStatus
