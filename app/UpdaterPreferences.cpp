// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdaterPreferences.h"

#include "model/Preferences.h"

namespace quorvane {

UpdaterPreferences::UpdaterPreferences(Preferences &preferences)
    : m_preferences(preferences)
{
}

bool UpdaterPreferences::automaticallyChecksForUpdates() const
{
    return m_preferences.automaticallyChecksForUpdates();
}

Result<void> UpdaterPreferences::setAutomaticallyChecksForUpdates(Switch enabled)
{
    return m_preferences.setAutomaticallyChecksForUpdates(enabled);
}

bool UpdaterPreferences::automaticallyDownloadsUpdates() const
{
    return m_preferences.automaticallyDownloadsUpdates();
}

Result<void> UpdaterPreferences::setAutomaticallyDownloadsUpdates(Switch enabled)
{
    return m_preferences.setAutomaticallyDownloadsUpdates(enabled);
}

std::optional<double> UpdaterPreferences::lastCheck() const
{
    return m_preferences.lastUpdateCheck();
}

Result<void> UpdaterPreferences::setLastCheck(double time)
{
    return m_preferences.setLastUpdateCheck(time);
}

QByteArray UpdaterPreferences::refusedSignature() const
{
    return m_preferences.refusedUpdate();
}

Result<void> UpdaterPreferences::setRefusedSignature(const QByteArray &signature)
{
    return m_preferences.setRefusedUpdate(signature);
}

} // namespace quorvane
