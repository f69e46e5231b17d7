// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/TimeZoneResolver.h"

#include <QTimeZone>

#include <mutex>
#include <tuple>

namespace quorvane {
namespace {

icaltimezone *native(ICalTimezone *zone)
{
    return static_cast<icaltimezone *>(i_cal_object_get_native(I_CAL_OBJECT(zone)));
}

bool isUtcName(const QByteArray &name)
{
    for (const char *utc : {"UTC", "GMT", "Z", "Etc/UTC"}) {
        if (name.compare(utc, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

/// libical 3.0 takes a zone that its list lacks, such as "US/Eastern", into it with no regard to other
/// threads.
std::mutex builtinZones;

ICalTimezone *builtin(const QByteArray &name)
{
    const std::lock_guard lock(builtinZones);
    return isUtcName(name) ? i_cal_timezone_get_utc_timezone()
                           : i_cal_timezone_get_builtin_timezone(name.constData());
}

} // namespace

TimeZoneResolver::TimeZoneResolver(Definitions definitions, const QByteArray &defaultZone)
    : m_definitions(std::move(definitions))
    , m_defaultZone(builtin(defaultZone))
{
    if (!m_defaultZone)
        m_defaultZone = i_cal_timezone_get_utc_timezone();
}

QByteArray TimeZoneResolver::defaultZoneName()
{
    return QTimeZone::systemTimeZoneId();
}

ICalTimezone *TimeZoneResolver::zone(const char *id)
{
    if (!id || !*id)
        return nullptr;
    const QByteArray key(id);
    const auto known = m_known.find(key);
    return known != m_known.end() ? known->second : m_known.emplace(key, find(id)).first->second;
}

ICalTimezone *TimeZoneResolver::find(const char *id) const
{
    // Into the list with it, or else the library may take it there while it looks for definitions.
    std::ignore = builtin(id);
    if (ICalTimezone *own = m_definitions ? m_definitions(id) : nullptr)
        return own;
    QByteArray name(id);
    for (qsizetype slash = 0; slash >= 0; slash = name.indexOf('/')) {
        if (slash > 0 || name.startsWith('/'))
            name.remove(0, slash + 1);
        if (name.isEmpty())
            break;
        if (ICalTimezone *zone = builtin(name))
            return zone;
    }
    const QByteArray olson = QTimeZone::windowsIdToDefaultIanaId(QByteArray(id));
    return olson.isEmpty() ? nullptr : builtin(olson);
}

icaltimezone *TimeZoneResolver::zoneOf(const icaltimetype &time, const char *id)
{
    if (icaltime_is_utc(time))
        return icaltimezone_get_utc_timezone();
    if (ICalTimezone *named = time.is_date ? nullptr : zone(id))
        return native(named);
    return native(m_defaultZone);
}

time_t TimeZoneResolver::unixTime(const icaltimetype &time, const char *id)
{
    return icaltime_as_timet_with_zone(time, zoneOf(time, id));
}

} // namespace quorvane
