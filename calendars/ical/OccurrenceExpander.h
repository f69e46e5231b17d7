// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/TimeZoneResolver.h"

#include <libecal/libecal.h>

#include <ctime>
#include <vector>

namespace quorvane {

/// One occurrence of an event or series.
struct Occurrence
{
    /// The component whose properties describe it: the event's own or that of an override.
    ICalComponent *source = nullptr;
    /// Unix time, seconds; `end` is never before `start`.
    time_t start = 0;
    time_t end = 0;
    bool allDay = false;
};

/// Works out when events take place: RRULE, RDATE, EXDATE (RFC 5545 3.8.5) and what overrides make of it.
class OccurrenceExpander final
{
public:
    /// More occurrences of one series within the span are not listed: nobody is at a meeting every second.
    static constexpr int maximumPerSeries = 10'000;

    /// For occurrences that overlap the span from `from` to `to`, Unix time. `zones` must outlive the
    /// expander.
    OccurrenceExpander(TimeZoneResolver &zones, time_t from, time_t to);

    /// The occurrences of one event, in no particular order. `components` are its VEVENTs: at most one
    /// without RECURRENCE-ID (of several the one with the highest SEQUENCE counts), and the overrides of its
    /// occurrences, which may also stand alone.
    [[nodiscard]] std::vector<Occurrence> expand(const std::vector<ICalComponent *> &components);

private:
    TimeZoneResolver &m_zones;
    time_t m_from;
    time_t m_to;
};

} // namespace quorvane
