// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/ServerReport.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString ok = u"ok"_s;

QString sourcesText(const ServerHealth &health, ScheduleState schedule)
{
    if (health.sources.isEmpty())
        return u"No calendars have reached the scheduler yet"_s;
    if (!std::ranges::all_of(health.sources, [](const QString &state) { return state == ok; }))
        return u"Calendar sync needs attention"_s;
    return schedule == ScheduleState::synced
               ? u"Connected. Phone alerts continue from the synced Fantastical schedule while this Mac sleeps."_s
               : u"Connected"_s;
}

} // namespace

ServerReport ServerReport::of(const ServerHealth &health, ScheduleState schedule)
{
    if (health.delivery != ok)
        return {u"Phone delivery needs attention. Local phone backup enabled."_s, false};
    if (!health.scheduler)
        return {u"Scheduler is not running. Local phone backup enabled."_s, false};
    if (!health.configured)
        return {u"Pushover application token needed on server"_s, false};
    return {sourcesText(health, schedule), true};
}

} // namespace quorvane
