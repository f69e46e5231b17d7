// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/NewEventText.h"

#include <libical/ical.h>

#include <cmath>
#include <memory>

namespace quorvane::NewEventText {

namespace {

struct ComponentFree
{
    void operator()(icalcomponent *component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, ComponentFree>;

icaltimetype utc(double time)
{
    return icaltime_from_timet_with_zone(static_cast<time_t>(std::floor(time)), 0,
                                         icaltimezone_get_utc_timezone());
}

/// The alarm is told in seconds, as it was set; libical would make minutes of them.
icaltriggertype before(double seconds)
{
    icaltriggertype trigger{};
    trigger.time = icaltime_null_time();
    trigger.duration.is_neg = 1;
    trigger.duration.seconds = static_cast<unsigned>(seconds);
    return trigger;
}

icalcomponent *alarm(const NewEvent &event)
{
    return icalcomponent_vanew(ICAL_VALARM_COMPONENT, icalproperty_new_action(ICAL_ACTION_DISPLAY),
                               icalproperty_new_trigger(before(event.alarmLead)),
                               icalproperty_new_description(qUtf8Printable(event.title)),
                               static_cast<void *>(nullptr));
}

Component native(const NewEvent &event)
{
    return Component(icalcomponent_vanew(
        ICAL_VEVENT_COMPONENT, icalproperty_new_uid(qUtf8Printable(event.uid)),
        icalproperty_new_dtstamp(utc(event.created)), icalproperty_new_dtstart(utc(event.start)),
        icalproperty_new_dtend(utc(event.end)), icalproperty_new_summary(qUtf8Printable(event.title)),
        icalproperty_new_description(qUtf8Printable(event.notes)), alarm(event),
        static_cast<void *>(nullptr)));
}

} // namespace

GlibPointer<ICalComponent> component(const NewEvent &event)
{
    return GlibPointer<ICalComponent>(
        i_cal_component_new_from_string(icalcomponent_as_ical_string(native(event).get())));
}

QByteArray calendar(const NewEvent &event)
{
    const Component whole(icalcomponent_vanew(ICAL_VCALENDAR_COMPONENT, icalproperty_new_version("2.0"),
                                              icalproperty_new_prodid("-//Quorvane//Quorvane//EN"),
                                              native(event).release(), static_cast<void *>(nullptr)));
    return icalcomponent_as_ical_string(whole.get());
}

} // namespace quorvane::NewEventText
