// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/format/MeetingFormat.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane::MeetingFormat {

namespace {

// The C locale's short time shows seconds, which no reader of a meeting's time wants.
QString shortTimeFormat(const QLocale &locale)
{
    return locale.language() == QLocale::C ? u"H:mm"_s : locale.timeFormat(QLocale::ShortFormat);
}

QString hoursAndMinutes(qint64 hours, qint64 minutes)
{
    if (minutes == 0)
        return u"%1 hr"_s.arg(hours);
    return u"%1 hr %2 min"_s.arg(hours).arg(minutes);
}

} // namespace

QString countdown(const Meeting &meeting, double now)
{
    if (!std::isfinite(meeting.start - now))
        qFatal("A countdown needs a point in time");
    const auto seconds = static_cast<qint64>(meeting.start - now);
    if (seconds < 1)
        return u"Starting now"_s;
    const qint64 rounded = seconds + 59;
    const qint64 minutes = rounded / 60;
    if (rounded <= 3599)
        return u"In %1 min"_s.arg(minutes);
    if (rounded >= 86400)
        return minutes < 2880 ? u"In 1 day"_s : u"In %1 days"_s.arg(rounded / 86400);
    const qint64 hours = rounded / 3600;
    return u"In "_s + hoursAndMinutes(hours, minutes - 60 * hours);
}

QString duration(const Meeting &meeting)
{
    const auto minutes = static_cast<qint64>((meeting.end - meeting.start) / 60);
    return minutes > 59 ? hoursAndMinutes(minutes / 60, minutes % 60) : u"%1 min"_s.arg(minutes);
}

QString clockTime(double time)
{
    const QLocale locale = QLocale::system();
    const QTime clock = QDateTime::fromMSecsSinceEpoch(qRound64(time * 1000)).time();
    return locale.toString(clock, shortTimeFormat(locale));
}

QString timeRange(const Meeting &meeting)
{
    return clockTime(meeting.start) + u" – "_s + clockTime(meeting.end);
}

QString dayTitle(QDate date, QDate today)
{
    switch (today.daysTo(date)) {
    case 0:
        return u"Today"_s;
    case 1:
        return u"Tomorrow"_s;
    case -1:
        return u"Yesterday"_s;
    default:
        return QLocale::system().dayName(date.dayOfWeek(), QLocale::LongFormat);
    }
}

QString plural(qint64 n, const QString &word)
{
    return n == 1 ? u"1 "_s + word : QString::number(n) + u' ' + word + u's';
}

} // namespace quorvane::MeetingFormat
