// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <libecal/libecal.h>

#include <functional>
#include <map>

namespace quorvane {

/// Finds the time zone that a TZID parameter (RFC 5545 3.2.19) names. In this order: the calendar's own
/// definition (VTIMEZONE), the Olson name, an Olson name behind a vendor's prefix
/// ("/citadel.org/20210210_1/Europe/Paris"), the name that Windows gives a zone ("W. Europe Standard Time").
class TimeZoneResolver final
{
public:
    /// Finds a calendar's own definition; null when there is none. The zone must outlive the resolver.
    using Definitions = std::function<ICalTimezone *(const char *id)>;

    explicit TimeZoneResolver(Definitions definitions, const QByteArray &defaultZone = defaultZoneName());

    /// The zone named by `id`, null when nobody knows it.
    [[nodiscard]] ICalTimezone *zone(const char *id);

    /// The user's zone, in which floating times and dates are understood.
    [[nodiscard]] ICalTimezone *defaultZone() const { return m_defaultZone; }

    /// The Unix time of `time`, whose TZID was `id` (null for none). An unknown zone counts as the user's.
    [[nodiscard]] time_t unixTime(const icaltimetype &time, const char *id);

    /// The zone in which `time` with the TZID `id` (null for none) is to be understood; never null.
    [[nodiscard]] icaltimezone *zoneOf(const icaltimetype &time, const char *id);

    /// Olson name of the user's zone; honours TZ.
    [[nodiscard]] static QByteArray defaultZoneName();

private:
    [[nodiscard]] ICalTimezone *find(const char *id) const;

    Definitions m_definitions;
    std::map<QByteArray, ICalTimezone *> m_known;
    ICalTimezone *m_defaultZone;
};

} // namespace quorvane
