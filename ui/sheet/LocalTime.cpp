// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/LocalTime.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane::LocalTime {

namespace {

QDateTime utc(qint64 instant)
{
    return QDateTime::fromSecsSinceEpoch(instant, Qt::UTC);
}

} // namespace

QDateTime shownAt(double instant, const QTimeZone &zone)
{
    return utc(static_cast<qint64>(std::floor(instant))).toTimeZone(zone);
}

// QDateTime alone does not say which of two it takes, nor that it takes none.
double instantOf(QDate date, QTime time, const QTimeZone &zone, double earliest)
{
    constexpr qint64 day = 86400;
    const qint64 asIfUtc = QDateTime(date, time, Qt::UTC).toSecsSinceEpoch();
    const qint64 before = asIfUtc - zone.offsetFromUtc(utc(asIfUtc - day));
    std::array<qint64, 2> candidates{before, asIfUtc - zone.offsetFromUtc(utc(asIfUtc + day))};
    std::ranges::sort(candidates);
    const auto isShown = [&](qint64 instant) {
        return instant + zone.offsetFromUtc(utc(instant)) == asIfUtc;
    };
    const auto shown = std::ranges::remove_if(candidates, std::not_fn(isShown)).begin();
    if (shown == candidates.begin())
        return static_cast<double>(before);
    const auto later = std::find_if(candidates.begin(), shown,
                                    [&](qint64 instant) { return static_cast<double>(instant) > earliest; });
    return static_cast<double>(later == shown ? candidates.front() : *later);
}

} // namespace quorvane::LocalTime
