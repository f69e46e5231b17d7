// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/EventAdapter.h"
#include "calendars/ical/GlibPointer.h"
#include "calendars/ical/TimeZoneResolver.h"
#include "calendars/records/CalendarEvent.h"

#include <libecal/libecal.h>

#include <ctime>
#include <map>
#include <string>
#include <vector>

namespace quorvane {

/// The components of a calendar on their way to occurrences: what both stores do once they have the
/// components.
class EventCollection final
{
public:
    /// Takes one VEVENT; components with the same UID belong together.
    void add(GlibPointer<ICalComponent> component);

    [[nodiscard]] bool isEmpty() const { return m_series.empty(); }
    [[nodiscard]] std::size_t size() const { return m_components.size(); }

    /// The occurrences that overlap the span from `from` to `to` (Unix time), by start and identifier.
    [[nodiscard]] std::vector<CalendarEvent> occurrences(const EventAdapter &adapter, TimeZoneResolver &zones,
                                                         time_t from, time_t to) const;

    /// Sorts as `occurrences` does.
    static void sort(std::vector<CalendarEvent> &events);

private:
    std::vector<GlibPointer<ICalComponent>> m_components;
    std::map<std::string, std::vector<ICalComponent *>> m_series;
};

} // namespace quorvane
