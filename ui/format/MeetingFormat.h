// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QDate>
#include <QString>

/// Meeting times as the short English texts of the interface. Pure; clock times follow the user's locale and
/// zone.
namespace quorvane::MeetingFormat {

/// Time until the start, minutes rounded up: "Starting now", "In 5 min", "In 1 hr 5 min", "In 2 days". `now`
/// is Unix time in seconds; the distance must be finite.
[[nodiscard]] QString countdown(const Meeting &meeting, double now);

/// The length, minutes rounded down: "59 min", "2 hr", "1 hr 30 min".
[[nodiscard]] QString duration(const Meeting &meeting);

/// Start and end as clock times, such as "9:00 – 9:30".
[[nodiscard]] QString timeRange(const Meeting &meeting);

/// One clock time (Unix time, seconds) with the date left out.
[[nodiscard]] QString clockTime(double time);

/// "Today", "Tomorrow", "Yesterday", else the weekday's full name.
[[nodiscard]] QString dayTitle(QDate date, QDate today);

/// A counted noun: "1 calendar", "2 calendars", "0 calendars".
[[nodiscard]] QString plural(qint64 n, const QString &word);

} // namespace quorvane::MeetingFormat
