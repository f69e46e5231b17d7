// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarOption.h"

#include <QHash>

#include <vector>

namespace quorvane {

/// The colour of a calendar's dot: the source's own, or one of the theme's by turn.
struct CalendarDot
{
    /// "#rrggbb"; empty where the source has none.
    QString color;
    /// The calendar's turn among all.
    int turn = 0;

    bool operator==(const CalendarDot &) const = default;
};

/// The dots by the calendars' names, which is all that a meeting knows of its calendar.
class CalendarDots final
{
public:
    CalendarDots() = default;
    /// Turns follow the lists; of calendars with one name the first counts.
    CalendarDots(const std::vector<CalendarOption> &calendars, const std::vector<CalendarOption> &others);

    /// A name that is in no list has a turn of its own that stays the same.
    [[nodiscard]] CalendarDot of(const QString &calendar) const;

    bool operator==(const CalendarDots &) const = default;

private:
    void add(const CalendarOption &calendar);

    QHash<QString, CalendarDot> m_dots;
    int m_count = 0;
};

} // namespace quorvane
