// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarReader.h"

#include <QString>

#include <cstddef>
#include <vector>

/// The words in which the state of the calendar sources is told.
namespace quorvane::SourceStatus {

/// One line: which stores need attention, then how many meetings will alert; or that there is no access.
[[nodiscard]] QString line(bool calendarAccess, const std::vector<StoreProblem> &problems,
                           std::size_t scheduledMeetings);

/// No calendar store is there.
[[nodiscard]] QString accessOff();
/// A calendar store is there and does not answer.
[[nodiscard]] QString accessFailed();

} // namespace quorvane::SourceStatus
