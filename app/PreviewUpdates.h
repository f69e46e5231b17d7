// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/settings/UpdateSettings.h"

namespace quorvane {

/// An updater that stands still at one moment of an update, for a picture.
class PreviewUpdates final : public UpdateSettings
{
    Q_OBJECT

public:
    struct Moment
    {
        Phase phase = Phase::idle;
        QString headline{};
        QString notes{};
        /// 0 to 1.
        double progress = 0;
    };

    explicit PreviewUpdates(Moment moment, QObject *parent = nullptr);

    [[nodiscard]] QString version() const override;
    [[nodiscard]] bool updatesItself() const override { return true; }
    [[nodiscard]] bool automaticallyChecks() const override { return true; }
    void setAutomaticallyChecks(Switch) override {}
    [[nodiscard]] bool automaticallyDownloads() const override { return false; }
    void setAutomaticallyDownloads(Switch) override {}
    [[nodiscard]] bool canCheckForUpdates() const override;
    void checkNow() override {}
    [[nodiscard]] QString keeper() const override { return {}; }
    [[nodiscard]] Phase phase() const override { return m_moment.phase; }
    [[nodiscard]] QString headline() const override { return m_moment.headline; }
    [[nodiscard]] QString notes() const override { return m_moment.notes; }
    [[nodiscard]] double progress() const override { return m_moment.progress; }
    void install() override {}
    void stop() override {}

private:
    Moment m_moment;
};

} // namespace quorvane
