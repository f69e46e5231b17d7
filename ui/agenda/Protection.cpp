// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/Protection.h"

#include "core/UnixTime.h"
#include "model/AppModel.h"
#include "ui/format/MeetingFormat.h"

#include <QGuiApplication>
#include <QScreen>

namespace quorvane {

namespace {

QString clockText(const QDateTime &time)
{
    return MeetingFormat::clockTime(UnixTime::seconds(time));
}

} // namespace

Protection::Protection(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::pausedUntilChanged, this, &Protection::update);
    connect(&model, &AppModel::phoneHealthChanged, this, &Protection::update);
    connect(&model, &AppModel::statusChanged, this, &Protection::update);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, &Protection::update);
    // The display that goes is still in the list when this is told.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &Protection::update, Qt::QueuedConnection);
    m_state = state();
}

void Protection::togglePause()
{
    if (m_model.pausedUntil())
        m_model.resumeAlerts();
    else
        m_model.pauseAlerts();
}

void Protection::update()
{
    const State now = state();
    if (now == m_state)
        return;
    m_state = now;
    Q_EMIT changed();
}

Protection::State Protection::state() const
{
    const PhoneHealth::State phone = m_model.phoneHealth().state;
    return {
        .screenText = screenState(),
        .phoneText = phoneState(),
        .phoneDetail = m_model.cloudStatus(),
        .isPaused = m_model.pausedUntil().has_value(),
        .isPhoneReady = phone == PhoneHealth::State::ready,
        .hasPhoneFailed = phone == PhoneHealth::State::failed,
    };
}

QString Protection::screenState() const
{
    if (m_model.pausedUntil())
        return tr("Paused until %1").arg(clockText(*m_model.pausedUntil()));
    return tr("On · %1").arg(MeetingFormat::plural(QGuiApplication::screens().size(), tr("display")));
}

QString Protection::phoneState() const
{
    const PhoneHealth health = m_model.phoneHealth();
    switch (health.state) {
    case PhoneHealth::State::unknown:
        return tr("Waiting for the keyring");
    case PhoneHealth::State::notSetUp:
        return tr("Not set up");
    case PhoneHealth::State::ready:
        return health.testedAt ? tr("Ready · tested %1").arg(clockText(*health.testedAt)) : tr("Ready");
    case PhoneHealth::State::failed:
        return tr("Last message failed");
    }
    Q_UNREACHABLE();
}

} // namespace quorvane
