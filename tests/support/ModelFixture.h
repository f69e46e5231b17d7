// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "async/Launch.h"
#include "calendars/records/FantasticalCache.h"
#include "model/AppModel.h"
#include "tests/support/AlertFixture.h"
#include "tests/support/ManualTime.h"
#include "tests/support/MemorySecrets.h"
#include "tests/support/ScriptedChooser.h"
#include "tests/support/ScriptedRunner.h"
#include "tests/support/ScriptedStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace quorvane {

class NoActivities final : public ProcessActivities
{
public:
    [[nodiscard]] std::unique_ptr<ActivityToken> beginLatencyCritical(const QString &) override
    {
        return std::make_unique<ActivityToken>();
    }
};

/// A model on a clock, calendar sources and an alert of the test's, with its files in a folder that goes
/// away.
class ModelFixture
{
public:
    static constexpr double noon = 1'800'000'000;

    ModelFixture()
    {
        std::vector<std::unique_ptr<CalendarStore>> stores;
        stores.push_back(std::unique_ptr<CalendarStore>(store));
        reader = std::make_unique<CalendarReader>(std::move(stores));
        clock.time = noon;
    }

    void start(AppModel::Mode mode = AppModel::Mode::live)
    {
        network = std::make_unique<Network>(NetworkSetup{
            .secrets = secrets,
            .serverAddress = [this] { return preferences.serverURL(); },
            .now = [this] { return clock.now(); },
            .trust = ServerTrust([this] { return pinnedCertificate; }),
            .phoneService = phoneService,
        });
        const AppModelServices services{*reader,
                                        fantasticalReader,
                                        fantasticalAccess,
                                        secrets,
                                        *network,
                                        alert.overlay,
                                        preferences,
                                        clock,
                                        ticks,
                                        wakes,
                                        activities,
                                        ledgerFile(),
                                        alert.opener,
                                        chooser,
                                        [this](const QStringList &folders, const QStringList &addresses) {
                                            usedFolders = folders;
                                            usedAddresses = addresses;
                                        }};
        model = std::make_unique<AppModel>(mode, services);
    }

    void restart()
    {
        model.reset();
        alert.overlay.close();
        start();
    }

    void tickAt(double time)
    {
        clock.time = time;
        Q_EMIT ticks.tick();
    }

    /// Identifier of the meeting on screen; empty when there is none.
    [[nodiscard]] QString shown() const { return alert.overlay.eventID().value_or(QString()); }

    [[nodiscard]] QString ledgerFile() const
    {
        return dir.filePath(QStringLiteral("data/acknowledgments.json"));
    }

    /// From now on `fantastical` answers for the reader executable, which is missing before.
    void installReader() { readerProgram = QStringLiteral("/bin/true"); }
    void removeReader() { readerProgram.clear(); }

    /// A folder with a cache file in it.
    [[nodiscard]] QString cacheFolder() const
    {
        QFile file(dir.filePath(FantasticalCache::fileName));
        [&] { QVERIFY(file.open(QIODevice::WriteOnly)); }();
        return dir.path();
    }

    /// A cache file where it is looked for without having been chosen.
    void addDefaultCache() const
    {
        const QString folder = fantasticalAccess.defaultDirectory();
        QVERIFY(QDir().mkpath(folder));
        QFile file(folder + u'/' + FantasticalCache::fileName);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    void addSetting(const QString &line) const
    {
        QFile file(dir.filePath(QStringLiteral("settings.ini")));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
        file.write(line.toUtf8() + '\n');
    }

    QTemporaryDir dir;
    AlertFixture alert;
    /// Owned by the reader.
    ScriptedStore *store = new ScriptedStore;
    ManualClock clock;
    ManualTicks ticks;
    ManualWakes wakes;
    NoActivities activities;
    Preferences preferences{dir.filePath(QStringLiteral("settings.ini"))};
    std::shared_ptr<ScriptedRunner> fantastical = std::make_shared<ScriptedRunner>();
    QString readerProgram;
    FantasticalReader fantasticalReader{{.program = [this] { return readerProgram; },
                                         .home = dir.path(),
                                         .folder = [this] { return preferences.fantasticalFolder(); },
                                         .runner = fantastical}};
    ScriptedChooser chooser;
    FantasticalAccess fantasticalAccess{dir.path(), chooser, [this](const QString &folder) {
                                            return preferences.setFantasticalFolder(folder);
                                        }};
    /// The folders and addresses that calendars are read with.
    QStringList usedFolders;
    QStringList usedAddresses;
    MemorySecrets keyring;
    Secrets secrets{keyring};
    /// Where the phone service and the pinned certificate are; nowhere, unless a test has them.
    QUrl phoneService{QStringLiteral("https://localhost:1")};
    QByteArray pinnedCertificate;
    std::unique_ptr<Network> network;
    std::unique_ptr<CalendarReader> reader;
    std::unique_ptr<AppModel> model;
};

} // namespace quorvane
