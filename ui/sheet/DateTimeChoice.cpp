// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/DateTimeChoice.h"

#include "ui/format/MeetingFormat.h"
#include "ui/sheet/LocalTime.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr double minuteLength = 60;
constexpr double stepLength = 5 * minuteLength;

double wholeMinute(double time)
{
    return std::floor(time / minuteLength) * minuteLength;
}

QString dayText(QDate date, QDate today, const QLocale &locale)
{
    if (today.daysTo(date) == 0 || today.daysTo(date) == 1)
        return MeetingFormat::dayTitle(date, today);
    const QString order = locale.dateFormat(QLocale::ShortFormat);
    const bool isMonthFirst = order.indexOf(u'M') < order.indexOf(u'd');
    return locale.toString(date, isMonthFirst ? u"ddd, MMM d"_s : u"ddd d MMM"_s);
}

} // namespace

DateTimeChoice::DateTimeChoice(const QLocale &locale, const QTimeZone &zone, QObject *parent)
    : QObject(parent)
    , m_locale(locale)
    , m_zone(zone.isValid() ? zone : QTimeZone::utc())
    , m_style(locale)
    , m_days(locale)
{
    refreshDays();
}

void DateTimeChoice::setStart(double start)
{
    if (start == m_start)
        return;
    m_start = start;
    refreshDays();
    Q_EMIT changed();
    Q_EMIT startChanged();
}

void DateTimeChoice::setNow(double now)
{
    const QDate oldToday = today();
    m_now = now;
    if (today() == oldToday)
        return;
    refreshDays();
    Q_EMIT changed();
}

QString DateTimeChoice::text() const
{
    return tr("%1, %2").arg(dayText(shown().date(), today(), m_locale), MeetingFormat::clockTime(m_start));
}

QString DateTimeChoice::monthTitle() const
{
    const QDate date = shown().date();
    return m_locale.standaloneMonthName(date.month()) + u' ' + m_locale.toString(date, u"yyyy"_s);
}

QStringList DateTimeChoice::weekdays() const
{
    QStringList names;
    for (int column = 0; column < 7; ++column) {
        const int day = (m_locale.firstDayOfWeek() - 1 + column) % 7 + 1;
        names.append(m_locale.standaloneDayName(day, QLocale::ShortFormat));
    }
    return names;
}

bool DateTimeChoice::hasEarlierMonth() const
{
    const QDate date = shown().date();
    return today() < QDate(date.year(), date.month(), 1);
}

bool DateTimeChoice::hasLaterMonth() const
{
    const QDate date = shown().date();
    return lastDay() > QDate(date.year(), date.month(), date.daysInMonth());
}

QString DateTimeChoice::hour() const
{
    return m_style.hourText(shown().time());
}

QString DateTimeChoice::minute() const
{
    return m_style.minuteText(shown().time());
}

QString DateTimeChoice::half() const
{
    return m_style.hours == ClockStyle::Hours::twelve ? m_style.halfText(shown().time()) : QString();
}

void DateTimeChoice::chooseDay(int row)
{
    const QDate day = m_days.dayAt(row);
    if (day >= today() && day <= lastDay())
        chooseDate(day);
}

void DateTimeChoice::moveDays(int days)
{
    chooseDate(std::clamp(shown().date().addDays(days), today(), lastDay()));
}

void DateTimeChoice::moveMonths(int months)
{
    chooseDate(std::clamp(shown().date().addMonths(months), today(), lastDay()));
}

void DateTimeChoice::moveToWeekBegin()
{
    moveDays(-((shown().date().dayOfWeek() - m_locale.firstDayOfWeek() + 7) % 7));
}

void DateTimeChoice::moveToWeekEnd()
{
    moveDays(6 - (shown().date().dayOfWeek() - m_locale.firstDayOfWeek() + 7) % 7);
}

void DateTimeChoice::stepHours(int hours)
{
    stepTo(wholeMinute(m_start) + 60 * minuteLength * hours);
}

void DateTimeChoice::stepMinutes(int steps)
{
    const double place = m_start / stepLength;
    stepTo(((steps > 0 ? std::floor(place) : std::ceil(place)) + steps) * stepLength);
}

void DateTimeChoice::switchHalf()
{
    const QTime time = shown().time();
    chooseTime(QTime((time.hour() + 12) % 24, time.minute()));
}

bool DateTimeChoice::typeHour(const QString &text)
{
    const std::optional<TypedTime> typed = TypedTime::inHour(text, shown().time(), m_style);
    if (!typed || !typed->isFinished)
        return false;
    chooseTime(typed->time);
    return true;
}

bool DateTimeChoice::typeMinute(const QString &text)
{
    const std::optional<TypedTime> typed = TypedTime::inMinute(text, shown().time(), m_style);
    if (!typed || !typed->isFinished)
        return false;
    chooseTime(typed->time);
    return true;
}

void DateTimeChoice::leaveHour(const QString &text)
{
    if (const std::optional<TypedTime> typed = TypedTime::inHour(text, shown().time(), m_style))
        chooseTime(typed->time);
}

void DateTimeChoice::leaveMinute(const QString &text)
{
    if (const std::optional<TypedTime> typed = TypedTime::inMinute(text, shown().time(), m_style))
        chooseTime(typed->time);
}

QDateTime DateTimeChoice::shown() const
{
    return LocalTime::shownAt(m_start, m_zone);
}

QDate DateTimeChoice::today() const
{
    return LocalTime::shownAt(m_now, m_zone).date();
}

QDate DateTimeChoice::lastDay() const
{
    return LocalTime::shownAt(latest(), m_zone).date();
}

double DateTimeChoice::latest() const
{
    return wholeMinute(m_now + reach);
}

// A moment already begun is left to be chosen: the form says what is wrong with it, which helps more than a
// time that turns into another one.
void DateTimeChoice::chooseDate(QDate date)
{
    if (date == shown().date())
        return;
    setStart(std::min(LocalTime::instantOf(date, shown().time(), m_zone, m_now), latest()));
}

void DateTimeChoice::chooseTime(QTime time)
{
    const QDateTime old = shown();
    // Leaving a field as it is keeps the seconds that it does not show.
    if (time == QTime(old.time().hour(), old.time().minute()))
        return;
    setStart(std::min(LocalTime::instantOf(old.date(), time, m_zone, m_now), latest()));
}

void DateTimeChoice::stepTo(double start)
{
    const double earliest = wholeMinute(m_now) + minuteLength;
    setStart(std::clamp(start, earliest, latest()));
}

void DateTimeChoice::refreshDays()
{
    m_days.show({.chosen = shown().date(), .today = today(), .first = today(), .last = lastDay()});
}

} // namespace quorvane
