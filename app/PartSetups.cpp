// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PartSetups.h"

#include "app/ProgramResources.h"
#include "app/UserFolders.h"
#include "calendars/linux/EvolutionStore.h"
#include "calendars/linux/FolderStore.h"
#include "model/Clock.h"
#include "model/Preferences.h"
#include "network/PinnedCertificate.h"
#include "process/linux/PosixProcessRunner.h"

#include <QCoreApplication>
#include <QDir>

namespace quorvane::PartSetups {

namespace {

QByteArray pinnedCertificate()
{
    return PinnedCertificate::find(ProgramResources::dataFolders(QCoreApplication::applicationDirPath()));
}

} // namespace

void CalendarStores::use(const QStringList &chosenFolders, const QStringList &ownAddresses) const
{
    folders->use(QStringList{UserFolders::calendarFolder()} + chosenFolders, ownAddresses);
}

CalendarStores calendarStores()
{
    auto folders = std::make_unique<FolderStore>(QStringList{UserFolders::calendarFolder()}, QStringList());
    CalendarStores stores;
    stores.folders = folders.get();
    stores.all.push_back(std::make_unique<EvolutionStore>());
    stores.all.push_back(std::move(folders));
    return stores;
}

FantasticalReader::Configuration fantasticalReader(const Preferences &preferences)
{
    return {
        .program = [] { return ProgramResources::calendarReader(QCoreApplication::applicationDirPath()); },
        .home = QDir::homePath(),
        .folder = [&preferences] { return preferences.fantasticalFolder(); },
        .runner = std::make_shared<PosixProcessRunner>(),
    };
}

ServerTrust serverTrust()
{
    return ServerTrust(pinnedCertificate);
}

NetworkSetup network(Secrets &secrets, const Preferences &preferences, const Clock &clock)
{
    return {
        .secrets = secrets,
        .serverAddress = [&preferences] { return preferences.serverURL(); },
        .now = [&clock] { return clock.now(); },
        .trust = serverTrust(),
    };
}

} // namespace quorvane::PartSetups
