// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdateManager.h"

#include "app/UpdateDeferral.h"
#include "core/UpdatePolicy.h"
#include "model/AppModel.h"
#include "model/SettingsWords.h"
#include "updates/UpdateError.h"

#include <QCoreApplication>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// The sentence for the person, in their language.
QString sentence(const std::error_code &error)
{
    return QCoreApplication::translate("Updates", error.message().c_str());
}

QString nameOf(const UpdateItem &item)
{
    return item.shortVersion == item.version ? item.version
                                             : u"%1 (%2)"_s.arg(item.shortVersion, item.version);
}

} // namespace

UpdateManager::UpdateManager(Setup setup)
    : m_setup(std::move(setup))
{
    m_installTimer.setTimerType(Qt::PreciseTimer); // others may be early
    m_installTimer.setInterval(m_setup.retryInterval);
    connect(&m_installTimer, &QTimer::timeout, this, &UpdateManager::retryInstallation);
}

UpdateManager::~UpdateManager() = default;

void UpdateManager::start(AppModel &model)
{
    if (m_controller || m_setup.arguments.contains(u"--preview"_s) || !m_setup.information.feedAddress)
        return;
    m_model = &model;
    m_controller = m_setup.makeUpdater(*this);
    if (!m_controller)
        return;
    takeDefaults();
    observe();
    startController();
    if (m_startFailure)
        model.tell(tr("Updates could not start. Your meeting reminders are still running."),
                   NoticeKind::problem);
}

void UpdateManager::startController()
{
    const Result<void> started = m_controller->start();
    m_startFailure = started ? std::error_code() : started.error();
    Q_EMIT progressed();
}

void UpdateManager::observe()
{
    connect(m_controller.get(), &Updater::canCheckForUpdatesChanged, this,
            &UpdateManager::takeCanCheckForUpdates);
    connect(m_controller.get(), &Updater::statusChanged, this, [this] {
        m_news = StartNews::none;
        Q_EMIT progressed();
    });
    connect(m_controller.get(), &Updater::found, this, &UpdateManager::found);
    connect(m_controller.get(), &Updater::installed, this, &UpdateManager::relaunchRequested);
    takeCanCheckForUpdates();
}

void UpdateManager::takeCanCheckForUpdates()
{
    m_canCheckForUpdates = m_controller->canCheckForUpdates();
    Q_EMIT changed();
}

void UpdateManager::takeDefaults()
{
    if (!m_controller)
        return;
    m_controller->takeDefaults();
    m_automaticallyChecks = m_controller->automaticallyChecksForUpdates();
    m_automaticallyDownloads = m_controller->automaticallyDownloadsUpdates();
    Q_EMIT changed();
}

void UpdateManager::setAutomaticallyChecks(Switch checks)
{
    if (!m_controller)
        return;
    tellUnkept(m_controller->setAutomaticallyChecksForUpdates(checks));
    takeDefaults();
}

void UpdateManager::setAutomaticallyDownloads(Switch downloads)
{
    if (!m_controller)
        return;
    tellUnkept(m_controller->setAutomaticallyDownloadsUpdates(downloads));
    takeDefaults();
}

void UpdateManager::tellUnkept(const Result<void> &kept)
{
    if (!kept && m_model)
        m_model->tell(SettingsWords::notWritten.toString(), NoticeKind::problem);
}

void UpdateManager::tellInstalled()
{
    m_news = StartNews::installed;
    Q_EMIT progressed();
}

void UpdateManager::tellRolledBack()
{
    m_news = StartNews::rolledBack;
    Q_EMIT progressed();
}

void UpdateManager::checkForUpdates()
{
    if (m_controller)
        m_controller->checkForUpdates();
}

void UpdateManager::install()
{
    if (!m_controller)
        return;
    if (m_startFailure)
        startController();
    else if (m_controller->status().item)
        m_controller->install();
    else
        m_controller->checkForUpdates();
}

void UpdateManager::stop()
{
    if (m_controller)
        m_controller->stop();
}

void UpdateManager::installOnQuit()
{
    if (m_controller)
        m_controller->installOnQuit();
}

QString UpdateManager::versionDescription() const
{
    return tr("Version %1 (%2)")
        .arg(m_setup.information.shortVersion.value_or(tr("Development")),
             m_setup.information.buildNumber.value_or(u"0"_s));
}

QString UpdateManager::keeper() const
{
    return m_controller ? QString() : m_setup.keeper;
}

// --- what the updater asks

Result<void> UpdateManager::mayPerform(UpdateCheck)
{
    if (meetingNeedsAttention())
        return Failure(make_error_code(UpdateDeferral::meetingNeedsAttention));
    return {};
}

bool UpdateManager::shouldPostponeRelaunchForUpdate(const UpdateItem &, std::function<void()> install)
{
    if (!meetingNeedsAttention())
        return false;
    deferInstallation(std::move(install));
    return true;
}

bool UpdateManager::willInstallUpdateOnQuit(const UpdateItem &, std::function<void()> installNow)
{
    deferInstallation(std::move(installNow));
    return true;
}

bool UpdateManager::meetingNeedsAttention() const
{
    return !m_model || UpdatePolicy::shouldDefer(m_model->meetings(), m_model->records(),
                                                 m_model->overlayVisibility(), m_model->now());
}

void UpdateManager::deferInstallation(std::function<void()> continuation)
{
    m_continuation = std::move(continuation);
    m_installTimer.start();
}

void UpdateManager::retryInstallation()
{
    if (meetingNeedsAttention()) {
        Q_EMIT progressed();
        return;
    }
    m_installTimer.stop();
    std::exchange(m_continuation, {})();
}

// --- what the person sees

UpdateSettings::Phase UpdateManager::phase() const
{
    if (m_news != StartNews::none)
        return m_news == StartNews::installed ? Phase::installed : Phase::failed;
    if (m_startFailure)
        return Phase::failed;
    if (!m_controller)
        return Phase::idle;
    switch (m_controller->status().phase) {
    case UpdateStatus::Phase::idle:
        return Phase::idle;
    case UpdateStatus::Phase::checking:
        return Phase::checking;
    case UpdateStatus::Phase::upToDate:
        return Phase::upToDate;
    case UpdateStatus::Phase::available:
        return Phase::available;
    case UpdateStatus::Phase::downloading:
        return Phase::downloading;
    case UpdateStatus::Phase::preparing:
        return Phase::preparing;
    case UpdateStatus::Phase::refused:
    case UpdateStatus::Phase::ready:
        return Phase::waiting;
    case UpdateStatus::Phase::failed:
        return Phase::failed;
    }
    return Phase::idle;
}

QString UpdateManager::headline() const
{
    switch (m_news) {
    case StartNews::none:
        if (m_startFailure)
            return sentence(m_startFailure);
        return m_controller ? headlineOfStatus() : QString();
    case StartNews::installed:
        return tr("Quorvane was updated. This is %1.").arg(versionDescription());
    case StartNews::rolledBack:
        return sentence(make_error_code(UpdateError::rolledBack));
    }
    return {};
}

QString UpdateManager::headlineOfStatus() const
{
    const UpdateStatus &status = m_controller->status();
    const QString name = status.item ? nameOf(*status.item) : QString();
    switch (status.phase) {
    case UpdateStatus::Phase::idle:
        return {};
    case UpdateStatus::Phase::checking:
        return tr("Checking for updates…");
    case UpdateStatus::Phase::upToDate:
        return tr("Quorvane is up to date.");
    case UpdateStatus::Phase::available:
        return tr("Version %1 is available.").arg(name);
    case UpdateStatus::Phase::downloading:
        return tr("Downloading version %1…").arg(name);
    case UpdateStatus::Phase::preparing:
        return tr("Preparing version %1…").arg(name);
    case UpdateStatus::Phase::ready:
        return meetingNeedsAttention() ? sentence(make_error_code(UpdateDeferral::meetingNeedsAttention))
                                       : tr("Version %1 will be installed in a moment.").arg(name);
    case UpdateStatus::Phase::refused:
    case UpdateStatus::Phase::failed:
        return sentence(status.error);
    }
    return {};
}

QString UpdateManager::notes() const
{
    const bool isTold = m_controller && m_controller->status().item && m_news == StartNews::none;
    return isTold ? m_controller->status().item->notes : QString();
}

double UpdateManager::progress() const
{
    return m_controller ? m_controller->status().progress : 0;
}

} // namespace quorvane
