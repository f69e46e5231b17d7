// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/EventSeries.h"

#include "calendars/ical/NativeComponent.h"

#include <algorithm>
#include <cstdlib>

namespace quorvane {
namespace {

bool isChangeOfFuture(ICalComponent *component)
{
    icalproperty *property = icalcomponent_get_first_property(native(component), ICAL_RECURRENCEID_PROPERTY);
    icalparameter *range = icalproperty_get_first_parameter(property, ICAL_RANGE_PARAMETER);
    return range && icalparameter_get_range(range) == ICAL_RANGE_THISANDFUTURE;
}

int sequenceOf(ICalComponent *component)
{
    return icalcomponent_get_sequence(native(component));
}

int dayNumber(const icaltimetype &time)
{
    return time.year * 10000 + time.month * 100 + time.day;
}

} // namespace

std::optional<EventTime> eventTime(ICalComponent *component, icalproperty_kind kind, TimeZoneResolver &zones)
{
    icalproperty *property = icalcomponent_get_first_property(native(component), kind);
    const icalvalue *value = property ? icalproperty_get_value(property) : nullptr;
    if (!value)
        return std::nullopt;
    const icalvalue_kind valueKind = icalvalue_isa(value);
    if (valueKind != ICAL_DATE_VALUE && valueKind != ICAL_DATETIME_VALUE)
        return std::nullopt;
    EventTime result;
    result.written = valueKind == ICAL_DATE_VALUE ? icalvalue_get_date(value) : icalvalue_get_datetime(value);
    if (icaltime_is_null_time(result.written) || !icaltime_is_valid_time(result.written))
        return std::nullopt;
    icalparameter *id = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    result.zone = zones.zoneOf(result.written, id ? icalparameter_get_tzid(id) : nullptr);
    result.unixTime = icaltime_as_timet_with_zone(result.written, result.zone);
    return result;
}

EventSeries::EventSeries(const std::vector<ICalComponent *> &components, TimeZoneResolver &zones)
{
    for (ICalComponent *component : components) {
        if (!icalcomponent_get_first_property(native(component), ICAL_RECURRENCEID_PROPERTY))
            setMaster(component, zones);
    }
    for (ICalComponent *component : components) {
        if (auto replaced = eventTime(component, ICAL_RECURRENCEID_PROPERTY, zones)) {
            readLikeStart(*replaced, component);
            addOverride(component, *replaced, zones);
        }
    }
}

void EventSeries::setMaster(ICalComponent *component, TimeZoneResolver &zones)
{
    if (m_master && sequenceOf(m_master) >= sequenceOf(component))
        return;
    m_master = component;
    m_start = eventTime(component, ICAL_DTSTART_PROPERTY, zones);
}

/// A RECURRENCE-ID has the form of the series' DTSTART (RFC 5545 3.8.4.4), so one that lost its TZID on the
/// way through a server has that zone and not the user's.
void EventSeries::readLikeStart(EventTime &replaced, ICalComponent *component) const
{
    icalproperty *property = icalcomponent_get_first_property(native(component), ICAL_RECURRENCEID_PROPERTY);
    const bool isFloating = !replaced.written.is_date && !icaltime_is_utc(replaced.written) &&
                            !icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (!isFloating || !m_start || m_start->written.is_date)
        return;
    replaced.zone = m_start->zone;
    replaced.unixTime = icaltime_as_timet_with_zone(replaced.written, replaced.zone);
}

void EventSeries::addOverride(ICalComponent *component, const EventTime &replaced, TimeZoneResolver &zones)
{
    const auto start = eventTime(component, ICAL_DTSTART_PROPERTY, zones);
    const auto previous = m_overrides.find(replaced.unixTime);
    if (!start ||
        (previous != m_overrides.end() && sequenceOf(previous->second.component) >= sequenceOf(component)))
        return;
    EventOverride override{component, isChangeOfFuture(component), start->unixTime - replaced.unixTime, {}};
    if (m_start && m_start->written.is_date != replaced.written.is_date)
        m_overridesByDay[dayNumber(replaced.written)] = component;
    if (const auto end = eventTime(component, ICAL_DTEND_PROPERTY, zones))
        override.duration = end->unixTime - start->unixTime;
    else if (icalcomponent_get_first_property(native(component), ICAL_DURATION_PROPERTY))
        override.duration = icaldurationtype_as_int(icalcomponent_get_duration(native(component)));
    if (override.thisAndFuture)
        m_largestShift = std::max<time_t>(m_largestShift, std::abs(override.shift));
    m_overrides[replaced.unixTime] = override;
}

std::vector<ICalComponent *> EventSeries::overrides() const
{
    std::vector<ICalComponent *> result;
    for (const auto &[replaced, override] : m_overrides)
        result.push_back(override.component);
    return result;
}

bool EventSeries::isReplaced(time_t start) const
{
    return m_overrides.contains(start) ||
           (!m_overridesByDay.empty() && m_overridesByDay.contains(dayOf(start)));
}

const EventOverride *EventSeries::changeFor(time_t start) const
{
    for (auto later = m_overrides.upper_bound(start); later != m_overrides.begin();) {
        --later;
        if (later->second.thisAndFuture)
            return &later->second;
    }
    return nullptr;
}

int EventSeries::dayOf(time_t time) const
{
    return dayNumber(icaltime_from_timet_with_zone(time, 0, m_start->zone));
}

} // namespace quorvane
