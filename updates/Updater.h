// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Switch.h"
#include "updates/ArchiveDownload.h"
#include "updates/CheckTimer.h"
#include "updates/FeedDownload.h"
#include "updates/UpdateStatus.h"
#include "updates/UpdaterDelegate.h"
#include "updates/UpdaterSetup.h"

#include <QCoroTask>
#include <QObject>
#include <QTimer>

#include <vector>

namespace quorvane {

/// Looks for newer versions of this program, fetches and installs them, and asks its delegate before anything
/// that the person would notice. Tells nobody anything of the machine or the person but that it asks. Main
/// thread only, which never waits for network or disk; what is under way ends with this object.
class Updater final : public QObject
{
    Q_OBJECT

public:
    /// `delegate` must outlive this.
    Updater(UpdaterSetup setup, UpdaterDelegate &delegate);

    /// Begins to look for newer versions, if that is to happen by itself. Fails with
    /// `UpdateError::setupInvalid` for a feed that is not on HTTPS, or as `UpdateInstaller::check` does; all
    /// else does nothing then.
    [[nodiscard]] Result<void> start();

    /// False until `start`, and while a check, a download or an installation is under way.
    [[nodiscard]] bool canCheckForUpdates() const;
    [[nodiscard]] bool automaticallyChecksForUpdates() const;
    Result<void> setAutomaticallyChecksForUpdates(Switch enabled);
    /// What is found by itself is also fetched and installed.
    [[nodiscard]] bool automaticallyDownloadsUpdates() const;
    Result<void> setAutomaticallyDownloadsUpdates(Switch enabled);
    /// Goes by the defaults as they are now.
    void takeDefaults();

    /// Looks because the person asked for it.
    void checkForUpdates();
    /// Fetches and installs the item of the status because the person asked for it.
    void install();
    /// Ends the download; what has come is kept.
    void stop();
    /// Has the next start of the program install what is ready: this one ends.
    void installOnQuit();

    [[nodiscard]] const UpdateStatus &status() const { return m_status; }

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void statusChanged();
    /// A check that nobody asked for has found a version that waits for the person.
    void found(const quorvane::UpdateItem &item);
    /// A new version is in place: the program has to be started again.
    void installed();

private:
    using Items = std::vector<UpdateItem>;

    QCoro::Task<> check(UpdateCheck kind);
    QCoro::Task<Result<Items>> readFeed();
    void refuse(UpdateCheck kind, const std::error_code &reason);
    void tryRefusedAgain();
    void endCheck(UpdateCheck kind, const Result<Items> &items);
    void schedule(const Result<Items> &items);
    void take(UpdateCheck kind, const UpdateItem &item);
    QCoro::Task<> obtain(UpdateItem item, UpdateCheck kind);
    QCoro::Task<Result<void>> fetchAndPrepare(UpdateItem item);
    QCoro::Task<Result<void>> download(UpdateItem item, QString file);
    void offer(const UpdateItem &item, UpdateCheck kind);
    void fail(const UpdateItem &item, const std::error_code &error);
    void installNow(const UpdateItem &item);
    void show(UpdateStatus status);
    void setChecking(bool isChecking);

    const UpdaterSetup m_setup;
    UpdaterDelegate &m_delegate;
    FeedDownload m_feed;
    ArchiveDownload m_archive;
    CheckTimer m_timer;
    QTimer m_refusal;
    UpdateStatus m_status;
    bool m_isStarted = false;
    bool m_isChecking = false;
};

} // namespace quorvane
