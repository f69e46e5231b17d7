// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>
#include <QTimeZone>

/// Between Unix time (seconds) and what the clocks of a place show.
namespace quorvane::LocalTime {

/// What the clocks of `zone` show at `instant`.
[[nodiscard]] QDateTime shownAt(double instant, const QTimeZone &zone);

/// When the clocks of `zone` show `time` on `date`. A time that they skip is taken as much later as they
/// skip; of a time that they show twice it is the first one after `earliest`, or the first when none is.
[[nodiscard]] double instantOf(QDate date, QTime time, const QTimeZone &zone, double earliest);

} // namespace quorvane::LocalTime
