// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

/// The agenda's own short texts of times. Pure; days and clock times follow the user's locale and zone.
namespace quorvane::AgendaText {

/// The local day of a Unix time in seconds.
[[nodiscard]] QDate day(double time);

/// What stands beside a day's title: day and month, and the weekday where the title does not say it.
[[nodiscard]] QString dayDate(QDate date, QDate today);

/// How long ago something was, in seconds: "just now", "1 min ago", "3 h ago", "2 days ago".
[[nodiscard]] QString ago(double seconds);

/// A clock time as the dial's digits, without the words that a locale may add for the half of the day.
[[nodiscard]] QString dialTime(double time);

/// Where the minute hand stands at a Unix time: degrees from twelve o'clock, clockwise, in [0, 360).
[[nodiscard]] double minuteAngle(double time);

/// A text from elsewhere on one line.
[[nodiscard]] QString line(const QString &text);

/// What is not empty of `parts`, as a screen reader shall say it.
[[nodiscard]] QString spoken(const QStringList &parts);

} // namespace quorvane::AgendaText
