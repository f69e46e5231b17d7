// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/FileEvents.h"

#include "calendars/ical/CalendarText.h"
#include "calendars/ical/EventAdapter.h"
#include "calendars/ical/EventCollection.h"
#include "calendars/ical/NativeComponent.h"
#include "calendars/ical/RecurrenceBudget.h"

#include <chrono>
#include <map>

namespace quorvane {
namespace {

constexpr time_t day = 86'400;

time_t unixDay(int yearMonthDay)
{
    const std::chrono::year_month_day date(
        std::chrono::year(yearMonthDay / 10000),
        std::chrono::month(static_cast<unsigned>(yearMonthDay / 100 % 100)),
        std::chrono::day(static_cast<unsigned>(yearMonthDay % 100)));
    return std::chrono::sys_days(date).time_since_epoch().count() * day;
}

/// Whether the event can be told to lie outside the span without parsing it; whatever the zone, with a day to
/// spare.
bool isOutside(const CalendarText::Event &event, const FileContext &context)
{
    return (event.lastDay && unixDay(*event.lastDay) + 3 * day < context.from) ||
           (event.firstDay && unixDay(*event.firstDay) - 2 * day > context.to);
}

bool isUsable(ICalComponent *event, time_t to)
{
    const icaltimetype start = icalcomponent_get_dtstart(native(event));
    return !icaltime_is_null_time(start) && icaltime_is_valid_time(start) &&
           RecurrenceBudget::covers(native(event), to);
}

std::map<std::string, ICalTimezone *> zonesOf(const CalendarText &text, ZoneDefinitions &definitions)
{
    std::map<std::string, ICalTimezone *> zones;
    for (const std::string &definition : text.timeZones) {
        ICalTimezone *zone = definitions.zone(definition);
        const char *id = zone ? i_cal_timezone_get_tzid(zone) : nullptr;
        if (id)
            zones.emplace(id, zone);
    }
    return zones;
}

} // namespace

FileEvents FileEvents::read(const std::string &content, const std::string &fileName,
                            const FileContext &context, ZoneDefinitions &definitions)
{
    const CalendarText text = CalendarText::parse(content);
    FileEvents result;
    result.unusable = text.brokenEvents;
    result.isReadable = text.isCalendar && text.brokenEvents == 0 && text.events.empty();
    EventCollection collection;
    for (const CalendarText::Event &event : text.events) {
        if (isOutside(event, context)) {
            result.isReadable = true;
            continue;
        }
        GlibPointer<ICalComponent> component(i_cal_component_new_from_string(event.text.c_str()));
        if (component && i_cal_component_isa(component.get()) == I_CAL_VEVENT_COMPONENT) {
            result.isReadable = true;
            result.unusable += isUsable(component.get(), context.to) ? 0 : 1;
            collection.add(std::move(component));
        } else {
            ++result.unusable;
        }
    }
    if (collection.isEmpty())
        return result;

    const std::map<std::string, ICalTimezone *> own = zonesOf(text, definitions);
    const auto lookUp = [&own](const char *id) {
        const auto found = own.find(id);
        return found == own.end() ? nullptr : found->second;
    };
    TimeZoneResolver zones(lookUp, context.defaultZone);
    OwnAddresses addresses = context.addresses;
    addresses.add(QString::fromStdString(text.owner));
    const EventAdapter adapter(context.calendarId, context.calendarName, addresses);
    result.events = collection.occurrences(adapter, zones, context.from, context.to);
    for (CalendarEvent &event : result.events) {
        if (event.externalIdentifier.isEmpty()) // tell it from the other files' events without a UID
            event.identifier += u'@' + QString::fromLocal8Bit(fileName);
    }
    return result;
}

} // namespace quorvane
