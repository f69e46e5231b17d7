// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/VersionStart.h"

#include "app/ProcessImage.h"
#include "model/AppModel.h"
#include "updates/linux/PendingVersion.h"
#include "updates/linux/TakeoverGuard.h"

#include <QFile>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Another copy that was started together with this one hands over to this one within that time.
constexpr std::chrono::milliseconds retryInterval{50};
constexpr int mostRetries = 40;

std::optional<InstalledVersions> installationOf(const QStringList &arguments)
{
    if (arguments.contains(u"--preview"_s))
        return std::nullopt;
    return InstalledVersions::ofExecutable(QFile::symLinkTarget(u"/proc/self/exe"_s));
}

VersionTrial::Start starting(const ProcessImage &image)
{
    return [&image](const QString &executable) {
        [[maybe_unused]] const std::error_code failure = image.replaceBy(executable, {});
    };
}

} // namespace

VersionStart::VersionStart(const ProcessImage &image, const QStringList &arguments)
    : m_image(&image)
    , m_installed(installationOf(arguments))
{
    if (!m_installed)
        return;
    m_trial = VersionTrial::begin(*m_installed);
    if (m_trial->outcome() == VersionTrial::Outcome::none && PendingVersion::activate(*m_installed)) {
        TakeoverGuard::takeOver(*m_installed, starting(image));
        std::_Exit(EXIT_FAILURE);
    }
    becomeSuccessor();
    watch();
}

void VersionStart::putOff(const QStringList &arguments)
{
    if (const std::optional<InstalledVersions> installed = installationOf(arguments))
        VersionTrial::putOff(*installed);
}

// If that fails, a version that may not work is better than none.
void VersionStart::becomeSuccessor() const
{
    const VersionTrial::Start start = starting(*m_image);
    if (m_trial->outcome() == VersionTrial::Outcome::rolledBack)
        start(m_trial->successor());
}

void VersionStart::watch()
{
    m_trial->watch(starting(*m_image));
}

bool VersionStart::isFirst() const
{
    return m_trial && m_trial->outcome() == VersionTrial::Outcome::onTrial;
}

std::optional<Handover> VersionStart::handover(double now) const
{
    return m_trial ? m_trial->handover(now) : std::nullopt;
}

bool VersionStart::takeSetback()
{
    if (!m_trial || !m_trial->givenUp())
        return false;
    m_trial->setTold();
    return true;
}

void VersionStart::follow(const AppModel &model)
{
    if (!m_trial)
        return;
    connect(&model, &AppModel::ticked, this, &VersionStart::count);
    // Not at once: the other copy hands over to this one's event loop, and only then leaves the trial.
    connect(&m_retry, &QTimer::timeout, this, &VersionStart::retry);
    if (m_trial->outcome() == VersionTrial::Outcome::inProgress)
        m_retry.start(retryInterval);
}

void VersionStart::retry()
{
    m_trial->retry();
    const bool isUndecided = m_trial->outcome() == VersionTrial::Outcome::inProgress;
    if (isUndecided && ++m_retries < mostRetries)
        return;
    m_retry.stop();
    becomeSuccessor();
    if (!isFirst())
        return;
    watch();
    m_seconds = 0;
    Q_EMIT begun();
}

void VersionStart::count()
{
    if (++m_seconds != secondsOfProof)
        return;
    m_trial->confirm();
    Q_EMIT settled();
}

void VersionStart::leave()
{
    if (m_trial)
        m_trial->postpone();
}

void VersionStart::end()
{
    if (m_trial)
        m_trial->confirm();
}

} // namespace quorvane
