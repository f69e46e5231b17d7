// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/GlibPointer.h"

#include <libecal/libecal.h>

#include <ctime>

/// Keeps the expansion of a series to a moment. libical walks a rule step by step from DTSTART on, and one
/// that never matches to the year 2582, which takes hours for FREQ=SECONDLY and cannot be interrupted.
namespace quorvane::RecurrenceBudget {

/// Occurrences of one rule on one day: every five minutes, with some to spare. libecal compares each with
/// all others of its day.
inline constexpr double mostPerDay = 300;
/// Steps from DTSTART to the end of the span, over all rules of a series: an hourly series of 11 years, a
/// daily one of 270. libical takes about a second for as many.
inline constexpr double mostSteps = 100'000;
/// Rules (RRULE and EXRULE), RDATEs and EXDATEs of a series.
inline constexpr int mostRules = 4;
inline constexpr int mostExtraDates = 1'000;
inline constexpr int mostExceptions = 5'000;

/// Whether the occurrences of the VEVENT `event` up to `to` (Unix time) may be worked out.
[[nodiscard]] bool covers(icalcomponent *event, time_t to);

/// Whether the changes of the VTIMEZONE `zone` may be worked out: those that come back do so yearly, and
/// there are no more of them than in the history of a real zone.
[[nodiscard]] bool coversZone(icalcomponent *zone);

/// `event`, or where it has rules a copy whose rules (but those with COUNT) end at `to`; so a rule that never
/// matches ends there.
[[nodiscard]] GlibPointer<ICalComponent> endedAt(ICalComponent *event, time_t to);

} // namespace quorvane::RecurrenceBudget
