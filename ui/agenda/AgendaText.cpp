// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/AgendaText.h"

#include "ui/format/MeetingFormat.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::AgendaText {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(AgendaText)
};

constexpr qint64 minutesPerHour = 60;
constexpr qint64 minutesPerDay = 24 * minutesPerHour;

QDateTime local(double time)
{
    return QDateTime::fromMSecsSinceEpoch(qRound64(time * 1000));
}

bool hasMonthFirst(const QLocale &locale)
{
    const QString format = locale.dateFormat(QLocale::LongFormat);
    return format.indexOf(u"MMMM") < format.lastIndexOf(u'd');
}

} // namespace

QDate day(double time)
{
    return local(time).date();
}

QString dayDate(QDate date, QDate today)
{
    const QLocale locale = QLocale::system();
    const bool monthFirst = locale.language() != QLocale::C && hasMonthFirst(locale);
    QString dayAndMonth = locale.toString(date, monthFirst ? u"MMMM d"_s : u"d MMMM"_s);
    const QString weekday = locale.dayName(date.dayOfWeek(), QLocale::LongFormat);
    if (MeetingFormat::dayTitle(date, today) == weekday)
        return dayAndMonth;
    return weekday + (monthFirst ? u", "_s : u" "_s) + dayAndMonth;
}

QString ago(double seconds)
{
    const auto minutes = static_cast<qint64>(std::max(0.0, seconds) / 60);
    if (minutes < 1)
        return Words::tr("just now");
    if (minutes < minutesPerHour)
        return Words::tr("%1 min ago").arg(minutes);
    if (minutes < minutesPerDay)
        return Words::tr("%1 h ago").arg(minutes / minutesPerHour);
    return Words::tr("%1 ago").arg(MeetingFormat::plural(minutes / minutesPerDay, Words::tr("day")));
}

QString dialTime(double time)
{
    QString digits = MeetingFormat::clockTime(time);
    erase_if(digits, [](QChar letter) { return !letter.isDigit() && !letter.isPunct(); });
    return digits;
}

double minuteAngle(double time)
{
    const QTime clock = local(time).time();
    return 6 * (clock.minute() + (clock.second() + clock.msec() / 1000.0) / 60.0);
}

QString line(const QString &text)
{
    return text.simplified();
}

QString spoken(const QStringList &parts)
{
    QStringList said = parts;
    said.removeAll(QString());
    return said.join(u", ");
}

} // namespace quorvane::AgendaText
