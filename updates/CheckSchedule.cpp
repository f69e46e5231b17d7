// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/CheckSchedule.h"

#include <cmath>

namespace quorvane::CheckSchedule {
namespace {

constexpr double day = 86'400;
constexpr double minute = 60;

} // namespace

double next(std::optional<double> lastCheck, double now, const Random &random)
{
    constexpr quint32 minutesOfDay = 1'440;
    constexpr double shortestWait = minute;
    constexpr quint32 waitSpread = 9 * 60 + 1;
    if (lastCheck && std::isfinite(*lastCheck) && *lastCheck <= now + 2 * day) {
        const double nextDay = (std::floor(*lastCheck / day) + 1) * day;
        // Half past the minute: alerts come up at full ones.
        const double due = nextDay + random(minutesOfDay) * minute + minute / 2;
        if (due > now)
            return due;
    }
    return now + shortestWait + random(waitSpread);
}

} // namespace quorvane::CheckSchedule
