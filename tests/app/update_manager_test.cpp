// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/UpdateManager.h"

#include "app/UpdateDeferral.h"
#include "tests/support/ModelFixture.h"
#include "tests/support/UpdaterFixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

namespace {

constexpr double noon = ModelFixture::noon;
constexpr auto soon = 60ms;

} // namespace

/// The manager over a real model and a real updater, on a clock of the test's.
class UpdateManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void itStartsOnlyWhereItCan_data();
    void itStartsOnlyWhereItCan();
    void aStartThatFailsIsTold();
    void theVersionIsDescribed_data();
    void theVersionIsDescribed();
    void aMeetingHoldsUpEveryDecision_data();
    void aMeetingHoldsUpEveryDecision();
    void anAlertHoldsUpEveryDecision();
    void withoutAModelEveryDecisionWaits();
    void anInstallationWaitsForTheInterval();
    void aSecondInstallationTakesThePlaceOfTheFirst();
    void aPersonIsRefusedUntilTheAlertIsAnswered();
    void theSwitchesAreTheUpdaters();

private:
    void make(InformationDictionary information, const QStringList &arguments = {});
    /// With a meeting of half an hour from `start`, Unix time in seconds, in the calendar.
    void startWith(std::optional<double> start);
    [[nodiscard]] bool defers() const;

    std::unique_ptr<UpdaterFixture> updates;
    std::unique_ptr<ModelFixture> fixture;
    std::unique_ptr<UpdateManager> manager;
    UpdaterDelegate *delegate = nullptr;
    int updaters = 0;

    const InformationDictionary withFeed{
        .shortVersion = u"1.4.0"_s, .buildNumber = u"812"_s, .feedAddress = u"https://127.0.0.1/feed"_s};
    const UpdateItem item{.version = u"813"_s};
};

void UpdateManagerTest::init()
{
    updates = std::make_unique<UpdaterFixture>();
    fixture = std::make_unique<ModelFixture>();
    delegate = nullptr;
    updaters = 0;
}

void UpdateManagerTest::cleanup()
{
    manager.reset();
    fixture.reset();
}

void UpdateManagerTest::make(InformationDictionary information, const QStringList &arguments)
{
    manager = std::make_unique<UpdateManager>(UpdateManager::Setup{
        .information = std::move(information),
        .arguments = arguments,
        .makeUpdater =
            [this](UpdaterDelegate &asked) {
                ++updaters;
                delegate = &asked;
                return std::make_unique<Updater>(updates->setup(), asked);
            },
        .keeper = u"Somebody else."_s,
        .retryInterval = soon,
    });
}

void UpdateManagerTest::startWith(std::optional<double> start)
{
    if (start)
        fixture->store->add(u"review"_s, *start);
    fixture->start();
    QTRY_VERIFY(fixture->model->lastRefresh());
    make(withFeed);
    manager->start(*fixture->model);
}

bool UpdateManagerTest::defers() const
{
    const bool refusesBoth =
        !delegate->mayPerform(UpdateCheck::byItself) && !delegate->mayPerform(UpdateCheck::byPerson);
    const bool postpones = delegate->shouldPostponeRelaunchForUpdate(item, [] {});
    if (refusesBoth != postpones)
        qFatal("the decisions differ");
    return postpones;
}

void UpdateManagerTest::itStartsOnlyWhereItCan_data()
{
    QTest::addColumn<bool>("hasFeed");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("made");

    QTest::newRow("with a feed") << true << QStringList() << 1;
    QTest::newRow("without") << false << QStringList() << 0;
    QTest::newRow("in a preview") << true << QStringList{u"--preview-overlay"_s, u"--preview"_s} << 0;
}

void UpdateManagerTest::itStartsOnlyWhereItCan()
{
    QFETCH(const bool, hasFeed);
    QFETCH(const QStringList, arguments);
    fixture->start();
    make(hasFeed ? withFeed : InformationDictionary(), arguments);
    manager->start(*fixture->model);
    manager->start(*fixture->model);
    QTEST(updaters, "made");
    QCOMPARE(manager->canCheckForUpdates(), updaters == 1);
    QCOMPARE(manager->updatesItself(), updaters == 1);
    QCOMPARE(manager->keeper().isEmpty(), updaters == 1);
    if (updaters == 1)
        return;
    manager->checkNow();
    manager->install();
    manager->setAutomaticallyChecks(Switch::on);
    QCOMPARE(manager->phase(), UpdateSettings::Phase::idle);
    QVERIFY(!manager->automaticallyChecks());
}

void UpdateManagerTest::aStartThatFailsIsTold()
{
    updates->installer.canInstall = Failure(make_error_code(UpdateError::folderReadOnly));
    startWith(std::nullopt);
    QVERIFY(!manager->canCheckForUpdates());
    QCOMPARE(fixture->model->notice(),
             u"Updates could not start. Your meeting reminders are still running."_s);
    QCOMPARE(manager->phase(), UpdateSettings::Phase::failed);
    QCOMPARE(manager->headline(), u"Quorvane cannot change the folder that it is installed in."_s);

    updates->installer.canInstall = {};
    manager->install(); // again
    QVERIFY(manager->canCheckForUpdates());
    QCOMPARE(manager->phase(), UpdateSettings::Phase::idle);
}

void UpdateManagerTest::theVersionIsDescribed_data()
{
    QTest::addColumn<InformationDictionary>("information");
    QTest::addColumn<QString>("description");

    QTest::newRow("whole") << withFeed << u"Version 1.4.0 (812)"_s;
    QTest::newRow("nothing known") << InformationDictionary() << u"Version Development (0)"_s;
}

void UpdateManagerTest::theVersionIsDescribed()
{
    QFETCH(const InformationDictionary, information);
    make(information);
    QTEST(manager->versionDescription(), "description");
}

void UpdateManagerTest::aMeetingHoldsUpEveryDecision_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("now");
    QTest::addColumn<bool>("isAnswered");
    QTest::addColumn<bool>("waits");

    QTest::newRow("in five minutes") << noon + 300 << noon << false << true;
    QTest::newRow("in half a second more") << noon + 300.5 << noon << false << false;
    QTest::newRow("under way") << noon + 100 << noon + 200 << false << true;
    QTest::newRow("answered") << noon + 200 << noon << true << false;
    QTest::newRow("over") << noon + 100 << noon + 100 + 1801 << false << false;
}

void UpdateManagerTest::aMeetingHoldsUpEveryDecision()
{
    QFETCH(const double, start);
    QFETCH(const bool, isAnswered);
    startWith(start);
    QCOMPARE(fixture->model->meetings().size(), 1U);
    if (isAnswered)
        launch(fixture->model->acknowledge(fixture->model->meetings().front().id));
    QFETCH(const double, now);
    fixture->clock.time = now;
    QTEST(defers(), "waits");
}

void UpdateManagerTest::anAlertHoldsUpEveryDecision()
{
    startWith(std::nullopt);
    QVERIFY(!defers());
    fixture->model->previewAlert();
    QVERIFY(defers());
    fixture->alert.overlay.close();
    QVERIFY(!defers());
}

void UpdateManagerTest::withoutAModelEveryDecisionWaits()
{
    startWith(std::nullopt);
    fixture->model.reset();
    QVERIFY(defers());
}

void UpdateManagerTest::anInstallationWaitsForTheInterval()
{
    startWith(noon + 120);
    int installed = 0;
    QVERIFY(delegate->willInstallUpdateOnQuit(item, [&installed] { ++installed; }));
    QTest::qWait(3 * soon.count());
    QCOMPARE(installed, 0);
    launch(fixture->model->acknowledge(fixture->model->meetings().front().id));
    QTRY_COMPARE(installed, 1);
    QTest::qWait(3 * soon.count());
    QCOMPARE(installed, 1);

    // Never at once, with no meeting either.
    QElapsedTimer since;
    since.start();
    QVERIFY(delegate->willInstallUpdateOnQuit(item, [&installed] { ++installed; }));
    QCOMPARE(installed, 1);
    QTRY_COMPARE(installed, 2);
    QVERIFY(since.elapsed() >= soon.count());
    QCOMPARE(UpdateManager::usualRetryInterval, 15s);
}

void UpdateManagerTest::aSecondInstallationTakesThePlaceOfTheFirst()
{
    startWith(noon + 120);
    QStringList installed;
    QVERIFY(delegate->shouldPostponeRelaunchForUpdate(item, [&installed] { installed.append(u"first"_s); }));
    QVERIFY(delegate->willInstallUpdateOnQuit(item, [&installed] { installed.append(u"second"_s); }));
    fixture->clock.time = noon + 120 + 1801;
    QTRY_COMPARE(installed, QStringList{u"second"_s});
    QTest::qWait(3 * soon.count());
    QCOMPARE(installed, QStringList{u"second"_s});
}

void UpdateManagerTest::aPersonIsRefusedUntilTheAlertIsAnswered()
{
    startWith(std::nullopt);
    fixture->model->previewAlert();
    manager->checkForUpdates();
    QCOMPARE(manager->phase(), UpdateSettings::Phase::waiting);
    QCOMPARE(manager->headline(), u"Updates will resume after your meeting reminder is handled."_s);
    const Result<void> refused = delegate->mayPerform(UpdateCheck::byPerson);
    QCOMPARE(refused.error().category().name(), "Quorvane.Updates");
    QCOMPARE(refused.error().value(), 1);
    QCOMPARE(updates->peer.connections(), 0);

    fixture->alert.overlay.close();
    manager->checkForUpdates();
    QCOMPARE(manager->headline(), u"Checking for updates…"_s);
    QTRY_COMPARE(manager->headline(), u"Version 813 is available."_s);
    QCOMPARE(manager->notes(), u"News"_s);

    // With an alert on screen, what is fetched waits too, and says so.
    fixture->model->previewAlert();
    manager->install();
    QTRY_COMPARE(manager->phase(), UpdateSettings::Phase::waiting);
    QCOMPARE(manager->headline(), u"Updates will resume after your meeting reminder is handled."_s);
    QSignalSpy relaunch(manager.get(), &UpdateManager::relaunchRequested);
    fixture->alert.overlay.close();
    QTRY_COMPARE(relaunch.size(), 1);
    QCOMPARE(updates->installer.activated, QStringList{u"813"_s});
}

void UpdateManagerTest::theSwitchesAreTheUpdaters()
{
    updates->defaults.checks = Switch::on;
    startWith(std::nullopt);
    QVERIFY(manager->automaticallyChecks());
    QVERIFY(!manager->automaticallyDownloads());
    manager->setAutomaticallyDownloads(Switch::on);
    manager->setAutomaticallyChecks(Switch::off);
    QCOMPARE(updates->defaults.downloads, Switch::on);
    QCOMPARE(updates->defaults.checks, Switch::off);

    updates->defaults.checks = Switch::on; // by another program
    QSignalSpy changed(manager.get(), &UpdateSettings::changed);
    manager->takeDefaults();
    QVERIFY(manager->automaticallyChecks());
    QVERIFY(!changed.isEmpty());
}

QTEST_MAIN(UpdateManagerTest)
#include "update_manager_test.moc"
