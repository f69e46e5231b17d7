// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarReader.h"
#include "model/FantasticalSource.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <system_error>
#include <vector>

/// The words in which the state of the calendar sources is told.
namespace quorvane::SourceStatus {

/// What the line about all sources is made of.
struct Summary
{
    /// A store of the system has answered.
    bool calendarAccess = false;
    bool fantasticalConnected = false;
    std::vector<StoreProblem> problems;
    std::size_t scheduledMeetings = 0;
};

/// One line: what needs attention, then how many meetings will alert. With no source at all it says that
/// there is no access, and counts only meetings that are there nevertheless.
[[nodiscard]] QString line(const Summary &summary);

/// The line of the second source at Unix time `now`; empty before its first reading has ended.
[[nodiscard]] QString fantasticalLine(const FantasticalSource &source, bool calendarAccess, double now);

/// What is said of a `FantasticalReadError`; absent for any other error.
[[nodiscard]] std::optional<QString> readFailure(const std::error_code &error);

} // namespace quorvane::SourceStatus
