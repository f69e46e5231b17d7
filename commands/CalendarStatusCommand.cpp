// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/CalendarStatusCommand.h"

#include "calendars/CalendarReader.h"
#include "commands/CalendarAccess.h"
#include "commands/ExitStatus.h"

using namespace Qt::StringLiterals;

namespace quorvane {

CalendarStatusCommand::CalendarStatusCommand(CalendarReader &reader, QStringList excluded, PrintLine print)
    : m_reader(reader)
    , m_excluded(std::move(excluded))
    , m_print(std::move(print))
{
}

QCoro::Task<int> CalendarStatusCommand::run(double now)
{
    const bool isAllowed = co_await CalendarAccess::isAllowed(m_reader);
    if (!isAllowed)
        co_return CalendarAccess::refuse(m_print);
    co_await m_reader.read(now, m_excluded);
    m_print(
        u"Calendar access allowed; %1 calendars; %2 upcoming timed events."_s.arg(m_reader.calendars().size())
            .arg(m_reader.events(now, m_excluded).size()));
    co_return ExitStatus::success;
}

} // namespace quorvane
