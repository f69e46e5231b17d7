// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/AlertSettings.h"

#include "core/UnixTime.h"
#include "model/AppModel.h"
#include "ui/format/MeetingFormat.h"

namespace quorvane {

AlertSettings::AlertSettings(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::settingsChanged, this, &AlertSettings::changed);
    connect(&model, &AppModel::pausedUntilChanged, this, &AlertSettings::changed);
}

bool AlertSettings::soundEnabled() const
{
    return m_model.soundEnabled();
}

void AlertSettings::setSoundEnabled(bool enabled)
{
    m_model.setSoundEnabled(enabled ? Switch::on : Switch::off);
}

bool AlertSettings::isPaused() const
{
    return m_model.pausedUntil().has_value();
}

QString AlertSettings::pauseNote() const
{
    const auto &until = m_model.pausedUntil();
    return until ? tr("Paused until %1.").arg(MeetingFormat::clockTime(UnixTime::seconds(*until)))
                 : QString();
}

QString AlertSettings::pauseAction() const
{
    return isPaused() ? tr("Resume now") : tr("Pause for 5 minutes");
}

void AlertSettings::togglePause()
{
    if (isPaused())
        m_model.resumeAlerts();
    else
        m_model.pauseAlerts();
}

void AlertSettings::previewAlert()
{
    m_model.previewAlert();
}

} // namespace quorvane
