// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/settings/UpdateSettings.h"

#include <QStringList>

namespace quorvane {

/// An updater that does as it is told.
class ObedientUpdates final : public UpdateSettings
{
    Q_OBJECT

public:
    [[nodiscard]] QString version() const override { return QStringLiteral("Version 1.4.0 (812)"); }
    [[nodiscard]] bool updatesItself() const override { return true; }
    [[nodiscard]] bool automaticallyChecks() const override { return checks == Switch::on; }
    void setAutomaticallyChecks(Switch wanted) override { checks = wanted; }
    [[nodiscard]] bool automaticallyDownloads() const override { return false; }
    void setAutomaticallyDownloads(Switch) override {}
    [[nodiscard]] bool canCheckForUpdates() const override { return true; }
    void checkNow() override { asked << QStringLiteral("check"); }
    [[nodiscard]] QString keeper() const override { return {}; }
    [[nodiscard]] Phase phase() const override { return m_phase; }
    [[nodiscard]] QString headline() const override { return m_headline; }
    [[nodiscard]] QString notes() const override { return m_notes; }
    [[nodiscard]] double progress() const override { return m_progress; }
    void install() override { asked << QStringLiteral("install"); }
    void stop() override { asked << QStringLiteral("stop"); }

    void enter(Phase phase, const QString &headline, const QString &notes = {}, double progress = 0)
    {
        m_phase = phase;
        m_headline = headline;
        m_notes = notes;
        m_progress = progress;
        Q_EMIT progressed();
    }

    Switch checks = Switch::on;
    QStringList asked;

private:
    Phase m_phase = Phase::idle;
    QString m_headline;
    QString m_notes;
    double m_progress = 0;
};

} // namespace quorvane
