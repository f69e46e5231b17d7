// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

using namespace Qt::StringLiterals;

namespace quorvane {

QCoro::Task<> AppModel::setScheduled(Meeting, Switch)
{
    co_return;
}

QCoro::Task<> AppModel::addMeeting(QString, double, int, QString)
{
    co_return;
}

QCoro::Task<> AppModel::deleteManualMeeting(Meeting)
{
    co_return;
}

QCoro::Task<> AppModel::persistMeetingChoices()
{
    co_return;
}

void AppModel::join(const Meeting &) {}

void AppModel::dismissNotice()
{
    setNotice(std::nullopt);
}

QCoro::Task<> AppModel::setCalendarEnabled(QString, Switch)
{
    co_return;
}

QCoro::Task<> AppModel::connectCalendarFolder()
{
    co_return;
}

QCoro::Task<> AppModel::disconnectCalendarFolder(QString)
{
    co_return;
}

} // namespace quorvane
