// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/UpdaterDefaults.h"

namespace quorvane {

class Preferences;

/// The updater's part of the user's settings.
class UpdaterPreferences final : public UpdaterDefaults
{
public:
    /// `preferences` outlives this.
    explicit UpdaterPreferences(Preferences &preferences);

    [[nodiscard]] bool automaticallyChecksForUpdates() const override;
    Result<void> setAutomaticallyChecksForUpdates(Switch enabled) override;
    [[nodiscard]] bool automaticallyDownloadsUpdates() const override;
    Result<void> setAutomaticallyDownloadsUpdates(Switch enabled) override;
    [[nodiscard]] std::optional<double> lastCheck() const override;
    Result<void> setLastCheck(double time) override;
    [[nodiscard]] QByteArray refusedSignature() const override;
    Result<void> setRefusedSignature(const QByteArray &signature) override;

private:
    Preferences &m_preferences;
};

} // namespace quorvane
