// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/settings/UpdateSettings.h"

namespace quorvane {

/// A copy that something else keeps current, such as the system's package manager.
class PackagedUpdates final : public UpdateSettings
{
    Q_OBJECT

public:
    using UpdateSettings::UpdateSettings;

    [[nodiscard]] QString version() const override;
    [[nodiscard]] bool updatesItself() const override { return false; }
    [[nodiscard]] bool automaticallyChecks() const override { return false; }
    void setAutomaticallyChecks(Switch) override {}
    [[nodiscard]] bool automaticallyDownloads() const override { return false; }
    void setAutomaticallyDownloads(Switch) override {}
    [[nodiscard]] bool canCheckForUpdates() const override { return false; }
    void checkNow() override {}
    [[nodiscard]] QString keeper() const override;
    [[nodiscard]] Phase phase() const override { return Phase::idle; }
    [[nodiscard]] QString headline() const override { return {}; }
    [[nodiscard]] QString notes() const override { return {}; }
    [[nodiscard]] double progress() const override { return 0; }
    void install() override {}
    void stop() override {}
};

} // namespace quorvane
