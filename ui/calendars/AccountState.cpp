// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/calendars/AccountState.h"

#include "core/UnixTime.h"
#include "ui/format/MeetingFormat.h"

#include <QCoreApplication>

#include <cmath>

namespace quorvane::AccountState {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("AccountState", text);
}

QString moment(const QDateTime &time, double now)
{
    const QDate today = UnixTime::moment(now).date();
    const QDate date = time.toLocalTime().date();
    const QString clock = MeetingFormat::clockTime(UnixTime::seconds(time));
    return date == today ? clock : tr("%1 %2").arg(MeetingFormat::dayTitle(date, today), clock);
}

QString age(const QDateTime &time, double now)
{
    const auto minutes = static_cast<qint64>((now - UnixTime::seconds(time)) / 60);
    if (minutes < 1)
        return tr("just now");
    if (minutes < 60)
        return tr("%1 min ago").arg(minutes);
    return moment(time, now);
}

} // namespace

QString text(const SourceHealth &health, double now)
{
    switch (health.state) {
    case SourceHealth::State::waiting:
        return tr("Not read yet");
    case SourceHealth::State::refreshing:
        return tr("Refreshing…");
    case SourceHealth::State::upToDate:
        return health.lastRead ? tr("Up to date · %1").arg(age(*health.lastRead, now)) : tr("Up to date");
    case SourceHealth::State::failing:
        return health.lastRead ? tr("Not answering · last refresh %1").arg(moment(*health.lastRead, now))
                               : tr("Not answering");
    }
    return {};
}

} // namespace quorvane::AccountState
