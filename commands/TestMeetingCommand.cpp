// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/TestMeetingCommand.h"

#include "calendars/CalendarReader.h"
#include "commands/CalendarAccess.h"
#include "commands/ExitStatus.h"
#include "ui/format/MeetingFormat.h"

#include <QUuid>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// In seconds.
constexpr double untilStart = 300;
constexpr double length = 300;
constexpr double alarmLead = 60;

/// A calendar's title comes from its account: it must neither break the line nor steer the terminal.
QString printable(QString title)
{
    const auto isUnprintable = [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
               c.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(title.begin(), title.end(), isUnprintable, u' ');
    return title;
}

} // namespace

TestMeetingCommand::TestMeetingCommand(CalendarReader &reader, Writers writers, PrintLine print)
    : m_reader(reader)
    , m_writers(std::move(writers))
    , m_print(std::move(print))
{
}

NewEvent TestMeetingCommand::meeting(double now)
{
    const double start = std::floor(now) + untilStart;
    return {
        .uid = QUuid::createUuid().toString(QUuid::WithoutBraces),
        .title = u"Quorvane reminder test"_s,
        .notes = u"Private test of Quorvane's screen and phone reminders. No guests have been invited."_s,
        .start = start,
        .end = start + length,
        .alarmLead = alarmLead,
        .created = now,
    };
}

QCoro::Task<int> TestMeetingCommand::run(double now)
{
    const bool isAllowed = co_await CalendarAccess::isAllowed(m_reader);
    if (!isAllowed)
        co_return CalendarAccess::refuse(m_print);
    const Choice choice = co_await choose();
    if (!choice.calendar.isWritable) {
        m_print(u"No writable default calendar is available."_s);
        co_return ExitStatus::noWritableCalendar;
    }
    const NewEvent event = meeting(now);
    const Result<void> added = co_await choice.writer->add(event);
    if (!added) {
        m_print(u"Could not create the calendar test."_s);
        co_return ExitStatus::meetingNotSaved;
    }
    m_print(u"Created a test meeting at %1 in %2."_s.arg(MeetingFormat::clockTime(event.start),
                                                         printable(choice.calendar.title)));
    co_return ExitStatus::success;
}

// A place that does not answer, or whose calendar takes no events, has the default calendar nevertheless.
QCoro::Task<TestMeetingCommand::Choice> TestMeetingCommand::choose() const
{
    Choice choice;
    for (const std::unique_ptr<EventWriter> &writer : m_writers) {
        const Result<std::optional<DefaultCalendar>> calendar = co_await writer->defaultCalendar();
        if (!calendar)
            break;
        if (*calendar) {
            choice.writer = writer.get();
            choice.calendar = **calendar;
            break;
        }
    }
    co_return choice;
}

} // namespace quorvane
