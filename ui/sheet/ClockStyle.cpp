// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/ClockStyle.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

ClockStyle::Hours hoursOf(const QLocale &locale)
{
    static const QRegularExpression quoted(u"'[^']*'"_s);
    const QString format = locale.timeFormat(QLocale::ShortFormat).remove(quoted);
    return format.contains(u'a', Qt::CaseInsensitive) ? ClockStyle::Hours::twelve
                                                      : ClockStyle::Hours::twentyFour;
}

} // namespace

ClockStyle::ClockStyle(const QLocale &locale)
    : hours(hoursOf(locale))
    , morning(locale.amText())
    , afternoon(locale.pmText())
    , m_locale(locale)
{
}

QString ClockStyle::hourText(QTime time) const
{
    if (hours == Hours::twentyFour)
        return m_locale.toString(time, u"HH"_s);
    return m_locale.toString(time.hour() % 12 == 0 ? 12 : time.hour() % 12);
}

QString ClockStyle::minuteText(QTime time) const
{
    return m_locale.toString(time, u"mm"_s);
}

const QString &ClockStyle::halfText(QTime time) const
{
    return time.hour() < 12 ? morning : afternoon;
}

} // namespace quorvane
