// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/TakeoverText.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace quorvane::TakeoverText {

namespace {

constexpr qint64 minute = 60;

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(TakeoverText)
};

} // namespace

QString clockText(qint64 secondsLeft)
{
    if (secondsLeft < 1)
        return Words::tr("Now");
    if (secondsLeft < minute)
        return QString::number(secondsLeft);
    return QStringLiteral("%1:%2")
        .arg(secondsLeft / minute)
        .arg(secondsLeft % minute, 2, 10, QLatin1Char('0'));
}

QString caption(qint64 secondsLeft)
{
    if (secondsLeft >= minute)
        return Words::tr("minutes");
    if (secondsLeft > 1)
        return Words::tr("seconds");
    if (secondsLeft == 1)
        return Words::tr("second");
    const qint64 elapsed = -secondsLeft;
    if (elapsed < minute)
        return Words::tr("just started");
    return Words::tr("started %1 min ago").arg(elapsed / minute);
}

QString headline(qint64 secondsLeft)
{
    return secondsLeft < 1 ? Words::tr("Your meeting has started") : Words::tr("Your meeting starts in");
}

QString dialLabel(qint64 secondsLeft)
{
    return secondsLeft < 1 ? Words::tr("The meeting has started")
                           : Words::tr("Starts in %1 seconds").arg(secondsLeft);
}

bool isAnnounced(qint64 before, qint64 secondsLeft)
{
    constexpr std::array<qint64, 4> marks{60, 30, 10, 0};
    return std::any_of(marks.begin(), marks.end(),
                       [=](qint64 mark) { return before > mark && secondsLeft <= mark; });
}

} // namespace quorvane::TakeoverText
