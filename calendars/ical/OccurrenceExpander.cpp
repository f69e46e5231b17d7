// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/OccurrenceExpander.h"

#include "calendars/ical/EventSeries.h"
#include "calendars/ical/GlibPointer.h"
#include "calendars/ical/NativeComponent.h"
#include "calendars/ical/RecurrenceBudget.h"

#include <algorithm>

namespace quorvane {
namespace {

constexpr time_t day = 86'400;

struct Expansion
{
    TimeZoneResolver &zones;
    const EventSeries &series;
    time_t from;
    time_t to;
    std::vector<Occurrence> found;
    ICalComponent *current = nullptr;
    int remaining = OccurrenceExpander::maximumPerSeries;

    void add(Occurrence occurrence)
    {
        occurrence.end = std::max(occurrence.start, occurrence.end);
        const bool isInside =
            occurrence.end > from || (occurrence.start == occurrence.end && occurrence.end == from);
        if (occurrence.start < to && isInside)
            found.push_back(occurrence);
    }

    void addOwn(Occurrence occurrence)
    {
        if (series.isReplaced(occurrence.start))
            return;
        if (const EventOverride *change = series.changeFor(occurrence.start)) {
            const time_t duration = change->duration.value_or(occurrence.end - occurrence.start);
            occurrence.source = change->component;
            occurrence.start += change->shift;
            occurrence.end = occurrence.start + duration;
        }
        add(occurrence);
    }

    time_t unixTime(ICalTime *time) const
    {
        ICalTimezone *zone =
            i_cal_time_is_utc(time) ? i_cal_timezone_get_utc_timezone() : i_cal_time_get_timezone(time);
        return i_cal_time_as_timet_with_zone(time, zone ? zone : zones.defaultZone());
    }
};

gboolean addInstance(ICalComponent *, ICalTime *start, ICalTime *end, gpointer data, GCancellable *,
                     GError **)
{
    auto *expansion = static_cast<Expansion *>(data);
    const Occurrence occurrence{expansion->current, expansion->unixTime(start), expansion->unixTime(end),
                                i_cal_time_is_date(start) != FALSE};
    if (expansion->current == expansion->series.master())
        expansion->addOwn(occurrence);
    else
        expansion->add(occurrence);
    return --expansion->remaining > 0;
}

ICalTimezone *resolve(const gchar *id, gpointer data, GCancellable *, GError **)
{
    return static_cast<Expansion *>(data)->zones.zone(id);
}

} // namespace

OccurrenceExpander::OccurrenceExpander(TimeZoneResolver &zones, time_t from, time_t to)
    : m_zones(zones)
    , m_from(from)
    , m_to(to)
{
}

std::vector<Occurrence> OccurrenceExpander::expand(const std::vector<ICalComponent *> &components)
{
    const EventSeries series(components, m_zones);
    Expansion expansion{m_zones, series, m_from, m_to, {}};
    // Changes move occurrences into the span from outside it; a day more covers dates and floating times.
    const time_t margin = day + series.largestShift();
    ICalTimezone *utc = i_cal_timezone_get_utc_timezone();
    const GlibPointer<ICalTime> from(i_cal_time_new_from_timet_with_zone(m_from - margin, 0, utc));
    const GlibPointer<ICalTime> to(i_cal_time_new_from_timet_with_zone(m_to + margin, 0, utc));
    std::vector<ICalComponent *> all = series.overrides();
    if (series.master())
        all.push_back(series.master());
    for (ICalComponent *component : all) {
        if (!RecurrenceBudget::covers(native(component), m_to + margin))
            continue;
        expansion.current = component;
        // Two days more than is asked for, so that no zone cuts off an occurrence that counts.
        const auto bounded = RecurrenceBudget::endedAt(component, m_to + margin + 2 * day);
        GError *error = nullptr; // an event that makes no sense has no occurrences
        e_cal_recur_generate_instances_sync(bounded.get(), from.get(), to.get(), addInstance, &expansion,
                                            resolve, &expansion, m_zones.defaultZone(), nullptr, &error);
        g_clear_error(&error);
    }
    return std::move(expansion.found);
}

} // namespace quorvane
