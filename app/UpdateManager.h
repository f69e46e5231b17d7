// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/InformationDictionary.h"
#include "ui/settings/UpdateSettings.h"
#include "updates/Updater.h"
#include "updates/UpdaterDelegate.h"

#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace quorvane {

class AppModel;

/// Keeps this program current without ever taking it away while a meeting needs its user: it owns the
/// updater, holds up its checks and installations, and shows how it stands. One for the process. Main thread
/// only.
class UpdateManager final : public UpdateSettings, private UpdaterDelegate
{
    Q_OBJECT

public:
    /// How often an installation that was put off is tried again.
    static constexpr std::chrono::milliseconds usualRetryInterval{15'000};

    /// Makes the updater, which asks the delegate; null where this copy does not update itself.
    using MakeUpdater = std::function<std::unique_ptr<Updater>(UpdaterDelegate &)>;

    struct Setup
    {
        /// What the build says about itself.
        InformationDictionary information;
        /// Those of the process.
        QStringList arguments;
        MakeUpdater makeUpdater;
        /// Who keeps this copy current if not it itself, as one sentence.
        QString keeper;
        std::chrono::milliseconds retryInterval = usualRetryInterval;
    };

    explicit UpdateManager(Setup setup);
    ~UpdateManager() override;

    /// Starts updating, in builds that have a feed. `model` may go before this. Again is harmless.
    void start(AppModel &model);

    /// This copy has just taken the place of an older one.
    void tellInstalled();
    /// A newer copy did not come up, and this one is back in its place.
    void tellRolledBack();

    /// Looks for a newer version because the person asked for it.
    void checkForUpdates();

    /// "Version 1.4.0 (812)".
    [[nodiscard]] QString versionDescription() const;

    /// Installs what waits for that: the program ends.
    void installOnQuit();
    /// The settings may have been changed by another program.
    void takeDefaults();

    [[nodiscard]] QString version() const override { return versionDescription(); }
    [[nodiscard]] bool updatesItself() const override { return m_controller != nullptr; }
    [[nodiscard]] bool automaticallyChecks() const override { return m_automaticallyChecks; }
    void setAutomaticallyChecks(Switch checks) override;
    [[nodiscard]] bool automaticallyDownloads() const override { return m_automaticallyDownloads; }
    void setAutomaticallyDownloads(Switch downloads) override;
    [[nodiscard]] bool canCheckForUpdates() const override { return m_canCheckForUpdates; }
    void checkNow() override { checkForUpdates(); }
    [[nodiscard]] QString keeper() const override;
    [[nodiscard]] Phase phase() const override;
    [[nodiscard]] QString headline() const override;
    [[nodiscard]] QString notes() const override;
    [[nodiscard]] double progress() const override;
    void install() override;
    void stop() override;

Q_SIGNALS:
    /// A check that nobody asked for has found a version that waits for the person.
    void found(const quorvane::UpdateItem &item);
    /// A new version is in place: the program has to be started again.
    void relaunchRequested();

private:
    [[nodiscard]] Result<void> mayPerform(UpdateCheck check) override;
    [[nodiscard]] bool shouldPostponeRelaunchForUpdate(const UpdateItem &item,
                                                       std::function<void()> install) override;
    [[nodiscard]] bool willInstallUpdateOnQuit(const UpdateItem &item,
                                               std::function<void()> installNow) override;

    [[nodiscard]] bool meetingNeedsAttention() const;
    void deferInstallation(std::function<void()> continuation);
    void retryInstallation();
    void observe();
    void takeCanCheckForUpdates();
    void tellUnkept(const Result<void> &kept);
    [[nodiscard]] QString headlineOfStatus() const;
    void startController();

    /// What a start of the program has to tell, until something else happens.
    enum class StartNews { none, installed, rolledBack };

    const Setup m_setup;
    bool m_canCheckForUpdates = false;
    bool m_automaticallyChecks = false;
    bool m_automaticallyDownloads = false;
    std::unique_ptr<Updater> m_controller;
    QTimer m_installTimer;
    std::function<void()> m_continuation;
    QPointer<AppModel> m_model;
    StartNews m_news = StartNews::none;
    /// Why the updater could not start.
    std::error_code m_startFailure;
};

} // namespace quorvane
