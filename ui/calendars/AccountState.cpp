// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/calendars/AccountState.h"

#include "core/UnixTime.h"
#include "ui/format/MeetingFormat.h"

#include <QCoreApplication>

#include <cmath>

namespace quorvane::AccountState {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(AccountState)
};

QString moment(const QDateTime &time, double now)
{
    const QDate today = UnixTime::moment(now).date();
    const QDate date = time.toLocalTime().date();
    const QString clock = MeetingFormat::clockTime(UnixTime::seconds(time));
    return date == today ? clock : Words::tr("%1 %2").arg(MeetingFormat::dayTitle(date, today), clock);
}

QString age(const QDateTime &time, double now)
{
    const auto minutes = static_cast<qint64>((now - UnixTime::seconds(time)) / 60);
    if (minutes < 1)
        return Words::tr("just now");
    if (minutes < 60)
        return Words::tr("%1 min ago").arg(minutes);
    return moment(time, now);
}

} // namespace

QString text(const SourceHealth &health, double now)
{
    switch (health.state) {
    case SourceHealth::State::waiting:
        return Words::tr("Not read yet");
    case SourceHealth::State::refreshing:
        return Words::tr("Refreshing…");
    case SourceHealth::State::upToDate:
        return health.lastRead ? Words::tr("Up to date · %1").arg(age(*health.lastRead, now))
                               : Words::tr("Up to date");
    case SourceHealth::State::failing:
        return health.lastRead
                   ? Words::tr("Not answering · last refresh %1").arg(moment(*health.lastRead, now))
                   : Words::tr("Not answering");
    }
    return {};
}

} // namespace quorvane::AccountState
