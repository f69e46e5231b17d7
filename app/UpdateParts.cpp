// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdateParts.h"

#include "app/PartSetups.h"
#include "app/ProgramResources.h"
#include "async/Launch.h"
#include "model/Clock.h"
#include "process/linux/PosixProcessRunner.h"
#include "updates/linux/ArchiveSignature.h"
#include "updates/linux/InstallationKind.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Who keeps a copy of this kind current, as one sentence.
QString keeperOf(InstallationKind kind)
{
    switch (kind) {
    case InstallationKind::packageManager:
        return QCoreApplication::translate(
            "Updates",
            "Your system’s package manager, or whoever built it, keeps this copy of Quorvane current.");
    case InstallationKind::sandbox:
        return QCoreApplication::translate(
            "Updates", "This copy of Quorvane is kept current together with the sandbox that it runs in.");
    case InstallationKind::itself:
        return QCoreApplication::translate("Updates",
                                           "This build of Quorvane has no place to look for updates.");
    }
    return {};
}

} // namespace

UpdateParts::UpdateParts(Preferences &preferences, const Clock &clock,
                         const std::optional<InstalledVersions> &installed)
    : m_clock(clock)
    , m_defaults(preferences)
{
    const QString folder = QCoreApplication::applicationDirPath();
    m_information = InformationDictionary::read(ProgramResources::informationDictionary(folder));
    const InstallationKind kind =
        installationKind(QCoreApplication::applicationFilePath(), QProcessEnvironment::systemEnvironment());
    m_keeper = keeperOf(kind);
    if (kind != InstallationKind::itself || !installed)
        return;
    if (!installed->canChange()) {
        m_keeper = QCoreApplication::translate(
            "Updates", "Whoever installed this copy of Quorvane keeps it current: its folder is theirs.");
        return;
    }
    m_installer = std::make_unique<VersionedInstaller>(VersionedInstaller::Configuration{
        .installed = *installed,
        .key = ArchiveSignature::parseKey(m_information.feedKey.value_or(QString())).value_or(QByteArray()),
        .unpacker = ProgramResources::updateUnpacker(folder),
        .runner = std::make_shared<PosixProcessRunner>(),
    });
}

UpdateManager::Setup UpdateParts::setup(const QStringList &arguments,
                                        const std::function<Handover()> &handover)
{
    return {
        .information = m_information,
        .arguments = arguments,
        .makeUpdater = [this,
                        handover](UpdaterDelegate &delegate) { return makeUpdater(delegate, handover); },
        .keeper = m_keeper,
    };
}

std::unique_ptr<Updater> UpdateParts::makeUpdater(UpdaterDelegate &delegate,
                                                  const std::function<Handover()> &handover)
{
    if (!m_installer)
        return nullptr;
    return std::make_unique<Updater>(
        UpdaterSetup{
            .feed = QUrl(m_information.feedAddress.value_or(QString()), QUrl::StrictMode),
            .installedVersion = m_information.buildNumber.value_or(u"0"_s),
            .installer = *m_installer,
            .defaults = m_defaults,
            .trust = PartSetups::serverTrust(),
            .handover = handover,
            .now = [this] { return m_clock.now(); },
        },
        delegate);
}

void UpdateParts::clean()
{
    if (m_installer)
        launch(m_installer->clean());
}

} // namespace quorvane
