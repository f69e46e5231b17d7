// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SourceStatus.h"

#include "calendars/CalendarError.h"
#include "calendars/records/FantasticalReadError.h"

using namespace Qt::StringLiterals;

namespace quorvane::SourceStatus {

namespace {

/// A calendar sync longer ago than this is worth a word, in seconds.
constexpr double oldSync = 3600;

QString sentence(const StoreProblem &problem)
{
    if (problem.error == CalendarError::timedOut)
        return u"%1 did not answer; its saved meetings are retained."_s.arg(problem.store);
    if (problem.error == CalendarError::unavailable)
        return u"%1 is not running; its saved meetings are retained."_s.arg(problem.store);
    return u"%1 could not be read completely; its saved meetings are retained."_s.arg(problem.store);
}

/// No store of the system is there, or one is there and does not answer.
QString withoutAccess(const std::vector<StoreProblem> &problems)
{
    return problems.empty()
               ? u"Calendar access is off. Allow Quorvane in System Settings > Privacy & Security > "
                 "Calendars, then refresh."_s
               : u"Calendar access failed. Check Privacy & Security > Calendars."_s;
}

QString connectedText(const FantasticalSnapshot &snapshot, double now)
{
    if (snapshot.skipped > 0)
        return u"Fantastical: %1 records could not be read"_s.arg(snapshot.skipped);
    if (now - snapshot.cacheModifiedAt > oldSync)
        return u"Fantastical connected. Its last calendar sync is over an hour old."_s;
    return u"Fantastical connected"_s;
}

} // namespace

QString line(const Summary &summary)
{
    const QString count = QString::number(summary.scheduledMeetings) + u" meetings scheduled for alerts"_s;
    if (!summary.calendarAccess && !summary.fantasticalConnected) {
        const QString text = withoutAccess(summary.problems);
        return summary.scheduledMeetings == 0 ? text : text + u' ' + count;
    }
    QString text;
    for (const StoreProblem &problem : summary.problems)
        text += sentence(problem) + u' ';
    return text + count;
}

QString fantasticalLine(const FantasticalSource &source, bool calendarAccess, double now)
{
    if (source.isConnected())
        return connectedText(source.snapshot(), now);
    if (!source.failure())
        return {};
    return calendarAccess
               ? u"Apple Calendar connected. Fantastical access is blocked; saved meetings are retained."_s
               : readFailure(source.failure())
                     .value_or(u"Calendar read failed. Retry or connect Apple Calendar."_s);
}

std::optional<QString> readFailure(const std::error_code &error)
{
    if (error == FantasticalReadError::helperMissing)
        return u"Calendar reader is missing. Reinstall Quorvane or connect Apple Calendar."_s;
    if (error == FantasticalReadError::accessDenied)
        return u"Fantastical access was denied. Connect Apple Calendar to read your meetings."_s;
    if (error == FantasticalReadError::databaseUnavailable)
        return u"Fantastical’s calendar cache cannot be opened. Check Quorvane’s access in macOS Privacy & "
               "Security, then refresh."_s;
    if (error == FantasticalReadError::unsupportedFormat)
        return u"Fantastical’s calendar format changed. Connect Apple Calendar."_s;
    if (error == FantasticalReadError::helperFailed)
        return u"The Fantastical reader could not run. Connect Apple Calendar or retry."_s;
    if (error == FantasticalReadError::invalidData)
        return u"Fantastical returned an unreadable calendar. Retry or connect Apple Calendar."_s;
    return std::nullopt;
}

} // namespace quorvane::SourceStatus
