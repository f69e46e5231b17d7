// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/CalendarDots.h"

#include <algorithm>
#include <numeric>

namespace quorvane {

namespace {

/// The turn of meetings that were added by hand and of calendars that are in no list: the theme's green.
constexpr int ownTurn = 3;

} // namespace

CalendarDots::CalendarDots(const std::vector<CalendarOption> &calendars,
                           const std::vector<CalendarOption> &others)
{
    for (const auto *list : {&calendars, &others})
        std::ranges::for_each(*list, [this](const CalendarOption &calendar) { add(calendar); });
}

void CalendarDots::add(const CalendarOption &calendar)
{
    const int turn = m_count++;
    if (!m_dots.contains(calendar.name))
        m_dots.insert(calendar.name, {.color = calendar.color.value_or(QString()), .turn = turn});
}

CalendarDot CalendarDots::of(const QString &calendar) const
{
    return m_dots.value(calendar, {.turn = ownTurn});
}

} // namespace quorvane
