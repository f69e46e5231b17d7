// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/RecurrenceBudget.h"

#include "calendars/ical/NativeComponent.h"

#include <QByteArray>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <span>
#include <vector>

namespace quorvane::RecurrenceBudget {
namespace {

constexpr double day = 86'400;
constexpr int mostZoneChanges = 1'000;
constexpr int mostZoneRules = 40;
/// What a step costs in another calendar than the Gregorian one, which a general library computes.
constexpr double otherCalendar = 100;
/// Months that libical looks through for a first match before it gives up, in the cost of a plain step.
constexpr double search = 10'000;

std::vector<icalproperty *> properties(icalcomponent *component,
                                       std::initializer_list<icalproperty_kind> kinds)
{
    std::vector<icalproperty *> result;
    for (const icalproperty_kind kind : kinds) {
        for (auto *property = icalcomponent_get_first_property(component, kind); property;
             property = icalcomponent_get_next_property(component, kind))
            result.push_back(property);
    }
    return result;
}

icalrecurrencetype ruleOf(icalproperty *property)
{
    return icalproperty_isa(property) == ICAL_RRULE_PROPERTY ? icalproperty_get_rrule(property)
                                                             : icalproperty_get_exrule(property);
}

bool has(std::span<const short> values)
{
    return values.front() != ICAL_RECURRENCE_ARRAY_MAX;
}

/// How often a BY... part makes one step into several; 1 where the rule has none.
double parts(std::span<const short> values)
{
    const auto end = std::find(values.begin(), values.end(), short{ICAL_RECURRENCE_ARRAY_MAX});
    return std::max<double>(1, static_cast<double>(std::distance(values.begin(), end)));
}

double perDay(const icalrecurrencetype &rule)
{
    const double interval = std::max<double>(1, rule.interval);
    const double seconds = parts(rule.by_second);
    const double minutes = parts(rule.by_minute) * seconds;
    if (rule.freq == ICAL_SECONDLY_RECURRENCE)
        return day / interval;
    if (rule.freq == ICAL_MINUTELY_RECURRENCE)
        return day / 60 / interval * seconds;
    if (rule.freq == ICAL_HOURLY_RECURRENCE)
        return day / 3'600 / interval * minutes;
    return parts(rule.by_hour) * minutes;
}

double stepsPerDay(const icalrecurrencetype &rule)
{
    const bool isWithinDay = rule.freq == ICAL_SECONDLY_RECURRENCE || rule.freq == ICAL_MINUTELY_RECURRENCE ||
                             rule.freq == ICAL_HOURLY_RECURRENCE;
    return isWithinDay ? perDay(rule) : perDay(rule) / std::max<double>(1, rule.interval);
}

/// A set that BYSETPOS picks nothing from is made anew for each month of 18,000 years.
double searchSteps(const icalrecurrencetype &rule)
{
    return has(rule.by_set_pos) && rule.freq == ICAL_MONTHLY_RECURRENCE ? search * parts(rule.by_day) : 0;
}

/// In days, whatever the zones: to be taken with a day or two to spare. As Unix time a far year overflows, so
/// years are compared as they are.
double daysLong(icalcomponent *event, const icaltimetype &start)
{
    const icaltimetype end = icalcomponent_get_dtend(event);
    if (icaltime_is_null_time(end)) {
        const icaldurationtype duration = icalcomponent_get_duration(event); // as an int it may overflow
        const double days = duration.weeks * 7.0 + duration.days + duration.hours / 24.0;
        return duration.is_neg ? -days : days;
    }
    const double years = double(end.year) - start.year;
    return years > 1 ? years * 366 : difftime(icaltime_as_timet(end), icaltime_as_timet(start)) / day;
}

/// The end of each occurrence is found by counting through the months of its length; backwards that takes for
/// ever.
double costOfLength(icalcomponent *event, const icaltimetype &start)
{
    const double days = daysLong(event, start);
    return days < -2 ? mostSteps + 1 : 1 + std::abs(days) / 100;
}

/// A rule with COUNT cannot be ended early, and where it names dates there may be none for it. The steps of
/// that search are cheap ones.
double daysOf(const icalrecurrencetype &rule, double days)
{
    constexpr double wholeCalendar = 0.4 * 365 * (2582 - 1970);
    const bool mayNeverMatch =
        has(rule.by_month) || has(rule.by_month_day) || has(rule.by_year_day) || has(rule.by_week_no);
    const bool isFrequent = rule.freq < ICAL_WEEKLY_RECURRENCE;
    return rule.count > 0 && mayNeverMatch && isFrequent ? std::max(days, wholeCalendar) : days;
}

double steps(const icalrecurrencetype &rule, double untilEnd)
{
    const double days = daysOf(rule, untilEnd);
    const double all = days * stepsPerDay(rule) + searchSteps(rule);
    return rule.rscale && qstricmp(rule.rscale, "GREGORIAN") != 0 ? all * otherCalendar : all;
}

bool isAtMost(icalcomponent *component, icalproperty_kind kind, int most)
{
    return icalcomponent_count_properties(component, kind) <= most;
}

} // namespace

bool covers(icalcomponent *event, time_t to)
{
    const std::vector<icalproperty *> rules = properties(event, {ICAL_RRULE_PROPERTY, ICAL_EXRULE_PROPERTY});
    if (rules.size() > mostRules || !isAtMost(event, ICAL_RDATE_PROPERTY, mostExtraDates) ||
        !isAtMost(event, ICAL_EXDATE_PROPERTY, mostExceptions))
        return false;
    const icaltimetype first = icalcomponent_get_dtstart(event);
    if (!rules.empty() && icaltime_is_null_time(first)) // libical would walk from the year 0 on
        return false;
    const time_t start = icaltime_as_timet(first);
    const double days = std::max(0.0, difftime(to, start) / day) + 1;
    double sum = icalcomponent_count_properties(event, ICAL_RDATE_PROPERTY) + 1;
    for (icalproperty *property : rules) {
        const icalrecurrencetype rule = ruleOf(property);
        if (perDay(rule) > mostPerDay)
            return false;
        sum += steps(rule, days);
    }
    return sum * costOfLength(event, first) <= mostSteps;
}

bool coversZone(icalcomponent *zone)
{
    int changes = 0;
    int rules = 0;
    for (auto *change = icalcomponent_get_first_component(zone, ICAL_ANY_COMPONENT); change;
         change = icalcomponent_get_next_component(zone, ICAL_ANY_COMPONENT)) {
        for (icalproperty *property : properties(change, {ICAL_RRULE_PROPERTY, ICAL_EXRULE_PROPERTY})) {
            const icalrecurrencetype rule = ruleOf(property);
            if (rule.freq != ICAL_YEARLY_RECURRENCE || perDay(rule) > 1 || parts(rule.by_day) > 7 ||
                rule.rscale)
                return false;
            ++rules;
        }
        changes += 1 + icalcomponent_count_properties(change, ICAL_RDATE_PROPERTY);
    }
    return rules <= mostZoneRules && changes <= mostZoneChanges;
}

GlibPointer<ICalComponent> endedAt(ICalComponent *event, time_t to)
{
    if (properties(native(event), {ICAL_RRULE_PROPERTY, ICAL_EXRULE_PROPERTY}).empty())
        return GlibPointer<ICalComponent>(I_CAL_COMPONENT(g_object_ref(event)));
    GlibPointer<ICalComponent> copy(i_cal_component_clone(event));
    icalcomponent *component = native(copy.get());
    const icaltimetype end = icaltime_from_timet_with_zone(to, 0, icaltimezone_get_utc_timezone());
    for (icalproperty *property : properties(component, {ICAL_RRULE_PROPERTY, ICAL_EXRULE_PROPERTY})) {
        icalrecurrencetype rule = ruleOf(property);
        const bool endsEarlier = !icaltime_is_null_time(rule.until) && icaltime_compare(rule.until, end) < 0;
        if (endsEarlier || rule.count > 0) // libical refuses rules with both
            continue;
        rule.until = end;
        const bool isException = icalproperty_isa(property) == ICAL_EXRULE_PROPERTY;
        // Not by setting the rule: libical 3.0 frees the old RSCALE before it copies the same text.
        icalcomponent_add_property(component, isException ? icalproperty_new_exrule(rule)
                                                          : icalproperty_new_rrule(rule));
        icalcomponent_remove_property(component, property);
        icalproperty_free(property);
    }
    return copy;
}

} // namespace quorvane::RecurrenceBudget
