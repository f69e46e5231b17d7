// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "commands/PrintLine.h"

#include <QCoroTask>
#include <QStringList>

namespace quorvane {

class CalendarReader;

/// Tells whether calendars can be read, and how much there is in them.
class CalendarStatusCommand final
{
public:
    /// `reader` must outlive the command. `excluded` are the identifiers of the calendars that are not read.
    CalendarStatusCommand(CalendarReader &reader, QStringList excluded, PrintLine print);

    /// `now` is Unix time in seconds. Gives an `ExitStatus`: `success` or `noCalendarAccess`.
    [[nodiscard]] QCoro::Task<int> run(double now);

private:
    CalendarReader &m_reader;
    QStringList m_excluded;
    PrintLine m_print;
};

} // namespace quorvane
