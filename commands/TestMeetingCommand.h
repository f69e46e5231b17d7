// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/EventWriter.h"
#include "calendars/records/NewEvent.h"
#include "commands/PrintLine.h"

#include <QCoroTask>

#include <memory>
#include <vector>

namespace quorvane {

class CalendarReader;

/// Puts a meeting that starts in five minutes into the user's default calendar, so that a person can see what
/// the screen and the phone make of it.
class TestMeetingCommand final
{
public:
    using Writers = std::vector<std::unique_ptr<EventWriter>>;

    /// `reader` must outlive the command. The first of `writers` whose place is there is the one, whatever
    /// can be done with its calendar.
    TestMeetingCommand(CalendarReader &reader, Writers writers, PrintLine print);

    /// `now` is Unix time in seconds. Gives an `ExitStatus`: `success`, `noCalendarAccess`,
    /// `noWritableCalendar` or `meetingNotSaved`. No writer is asked for anything without access.
    [[nodiscard]] QCoro::Task<int> run(double now);

    /// The meeting, as of `now`.
    [[nodiscard]] static NewEvent meeting(double now);

private:
    struct Choice
    {
        /// Null when there is none.
        EventWriter *writer = nullptr;
        DefaultCalendar calendar;
    };
    [[nodiscard]] QCoro::Task<Choice> choose() const;

    CalendarReader &m_reader;
    Writers m_writers;
    PrintLine m_print;
};

} // namespace quorvane
