// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarEvent.h"
#include "core/Meeting.h"

#include <vector>

/// How the events of a calendar store become meetings. Pure; times are Unix time in seconds.
namespace quorvane::EventMeetings {

/// How far ahead events are read, in seconds: 14 days.
inline constexpr double horizon = 1'209'600;

/// Searches the event's link, location and notes for its join link, once.
void search(CalendarEvent &event);

/// The meetings among `events`, by start (equal starts keep their order). Left out are all-day and cancelled
/// events, those that began more than 120 seconds before `now` or that end no later than they start, those
/// the user has declined, and the second of two entries of one occurrence. Events that have not been searched
/// for a join link are searched here.
[[nodiscard]] std::vector<Meeting> meetings(const std::vector<CalendarEvent> &events, double now);

} // namespace quorvane::EventMeetings
