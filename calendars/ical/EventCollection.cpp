// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/EventCollection.h"

#include "calendars/ical/NativeComponent.h"
#include "calendars/ical/OccurrenceExpander.h"

#include <algorithm>
#include <tuple>

namespace quorvane {
namespace {

void append(std::vector<CalendarEvent> &events, const CalendarEvent &description,
            const Occurrence &occurrence)
{
    events.push_back(description);
    events.back().start = static_cast<double>(occurrence.start);
    events.back().end = static_cast<double>(occurrence.end);
    events.back().allDay = occurrence.allDay;
}

} // namespace

void EventCollection::add(GlibPointer<ICalComponent> component)
{
    const char *uid = icalcomponent_get_uid(native(component.get()));
    // A component without a UID is an event of its own; no UID begins with a line break.
    const std::string key = uid && *uid ? std::string(uid) : '\n' + std::to_string(m_series.size());
    m_series[key].push_back(component.get());
    m_components.push_back(std::move(component));
}

std::vector<CalendarEvent> EventCollection::occurrences(const EventAdapter &adapter, TimeZoneResolver &zones,
                                                        time_t from, time_t to) const
{
    std::vector<CalendarEvent> events;
    OccurrenceExpander expander(zones, from, to);
    for (const auto &[key, components] : m_series) {
        ICalComponent *described = nullptr;
        CalendarEvent description;
        for (const Occurrence &occurrence : expander.expand(components)) {
            if (described != occurrence.source) {
                described = occurrence.source;
                description = adapter.describe(native(described), QString::fromStdString(key).trimmed());
            }
            append(events, description, occurrence);
        }
    }
    sort(events);
    return events;
}

void EventCollection::sort(std::vector<CalendarEvent> &events)
{
    std::stable_sort(events.begin(), events.end(), [](const CalendarEvent &a, const CalendarEvent &b) {
        return std::tie(a.start, a.identifier) < std::tie(b.start, b.identifier);
    });
}

} // namespace quorvane
