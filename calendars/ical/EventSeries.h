// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/TimeZoneResolver.h"

#include <libecal/libecal.h>

#include <ctime>
#include <map>
#include <optional>
#include <vector>

namespace quorvane {

/// A time property of a component, e.g. DTSTART.
struct EventTime
{
    icaltimetype written;
    /// The zone in which `written` is to be understood.
    icaltimezone *zone = nullptr;
    time_t unixTime = 0;
};

/// The property `kind` of `component`, when it is there and valid.
[[nodiscard]] std::optional<EventTime> eventTime(ICalComponent *component, icalproperty_kind kind,
                                                 TimeZoneResolver &zones);

/// A component that takes the place of one occurrence, or (RANGE=THISANDFUTURE, RFC 5545 3.2.13) also changes
/// all later ones.
struct EventOverride
{
    ICalComponent *component = nullptr;
    bool thisAndFuture = false;
    /// Difference between the new start and the one it replaces, in seconds.
    time_t shift = 0;
    /// Its own length in seconds where it states one.
    std::optional<time_t> duration;
};

/// The components of one event, sorted out.
class EventSeries final
{
public:
    EventSeries(const std::vector<ICalComponent *> &components, TimeZoneResolver &zones);

    /// The component that describes the event or series; null when only overrides are known.
    [[nodiscard]] ICalComponent *master() const { return m_master; }
    [[nodiscard]] std::vector<ICalComponent *> overrides() const;

    /// Whether the series' own occurrence at `start` is replaced. A RECURRENCE-ID that is written as a date
    /// where the series has times, or the other way round, stands for the occurrence on that day in the
    /// series' zone.
    [[nodiscard]] bool isReplaced(time_t start) const;
    /// The change that applies to the series' own occurrence at `start`; null when none does.
    [[nodiscard]] const EventOverride *changeFor(time_t start) const;
    /// The largest distance in seconds by which a change moves later occurrences.
    [[nodiscard]] time_t largestShift() const { return m_largestShift; }

private:
    void setMaster(ICalComponent *component, TimeZoneResolver &zones);
    void readLikeStart(EventTime &replaced, ICalComponent *component) const;
    void addOverride(ICalComponent *component, const EventTime &replaced, TimeZoneResolver &zones);
    [[nodiscard]] int dayOf(time_t time) const;

    ICalComponent *m_master = nullptr;
    std::optional<EventTime> m_start;
    std::map<time_t, EventOverride> m_overrides;
    /// Overrides named by day, as year * 10000 + month * 100 + day.
    std::map<int, ICalComponent *> m_overridesByDay;
    time_t m_largestShift = 0;
};

} // namespace quorvane
