// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/UpdaterFixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

using Phase = UpdateStatus::Phase;

/// Decides as it is told and keeps what it is given.
class Decider final : public UpdaterDelegate
{
public:
    [[nodiscard]] Result<void> mayPerform(UpdateCheck) override
    {
        ++asked;
        return allowed;
    }
    [[nodiscard]] bool shouldPostponeRelaunchForUpdate(const UpdateItem &,
                                                       std::function<void()> install) override
    {
        relaunch = std::move(install);
        return postpones == Switch::on;
    }
    [[nodiscard]] bool willInstallUpdateOnQuit(const UpdateItem &, std::function<void()> installNow) override
    {
        onQuit = std::move(installNow);
        return true;
    }

    Result<void> allowed;
    Switch postpones = Switch::on;
    int asked = 0;
    std::function<void()> relaunch;
    std::function<void()> onQuit;
};

} // namespace

class UpdaterTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aPersonIsToldWhatACheckFinds_data();
    void aPersonIsToldWhatACheckFinds();
    void aCheckThatIsRefusedAsksNobody();
    void checksComeByThemselvesOnceADay();
    void theFeedIsTriedAgainWhenItCouldNotBeReached();
    void whatIsFoundByItselfIsToldOrInstalled_data();
    void whatIsFoundByItselfIsToldOrInstalled();
    void aVersionThatFailedOnceComesByRequestOnly();
    void whatCannotBeInstalledIsNotFetchedEachDay();
    void aCheckThatEndsLateUndoesNothing();
    void anInstallationWaitsForItsDelegate();
    void aFailureIsToldAndCanBeTriedAgain();
    void aStoppedDownloadCanBeTakenUpAgain();
    void whatIsReadyIsInstalledAtTheEnd();
    void onlyASoundSetupStarts();
    void anUpdaterMayGoAtAnyTime();

private:
    void start();
    void find();
    [[nodiscard]] Phase phase() const { return updater->status().phase; }

    std::unique_ptr<UpdaterFixture> fixture;
    std::unique_ptr<Decider> decider;
    std::unique_ptr<Updater> updater;
};

void UpdaterTest::init()
{
    fixture = std::make_unique<UpdaterFixture>();
    decider = std::make_unique<Decider>();
    start();
}

void UpdaterTest::cleanup()
{
    updater.reset();
}

void UpdaterTest::start()
{
    updater = std::make_unique<Updater>(fixture->setup(), *decider);
    QVERIFY(!updater->canCheckForUpdates());
    QVERIFY(updater->start());
    QVERIFY(updater->canCheckForUpdates());
}

void UpdaterTest::find()
{
    updater->checkForUpdates();
    QTRY_COMPARE(phase(), Phase::available);
}

void UpdaterTest::aPersonIsToldWhatACheckFinds_data()
{
    QTest::addColumn<QString>("version");
    QTest::addColumn<Phase>("found");
    QTest::addColumn<std::error_code>("error");

    QTest::newRow("newer") << u"813"_s << Phase::available << std::error_code();
    QTest::newRow("the same") << u"812"_s << Phase::upToDate << std::error_code();
    QTest::newRow("older") << u"99"_s << Phase::upToDate << std::error_code();
    QTest::newRow("no feed") << QString() << Phase::failed << make_error_code(UpdateError::feedInvalid);
}

void UpdaterTest::aPersonIsToldWhatACheckFinds()
{
    QFETCH(const QString, version);
    if (version.isEmpty())
        fixture->serve(u"<html/>"_s);
    else
        fixture->announce(version);
    updater->checkForUpdates();
    QCOMPARE(phase(), Phase::checking);
    QVERIFY(!updater->canCheckForUpdates());

    QTRY_VERIFY(updater->canCheckForUpdates());
    QTEST(phase(), "found");
    QTEST(updater->status().error, "error");
    QVERIFY(fixture->installer.activated.isEmpty());
}

void UpdaterTest::aCheckThatIsRefusedAsksNobody()
{
    decider->allowed = Failure(make_error_code(UpdateError::busy));
    updater->checkForUpdates();
    QCOMPARE(phase(), Phase::refused);
    QCOMPARE(updater->status().error, make_error_code(UpdateError::busy));
    QCOMPARE(fixture->peer.connections(), 0);

    // When it may be made it is, as was said.
    decider->allowed = {};
    QTRY_COMPARE(phase(), Phase::available);
}

void UpdaterTest::checksComeByThemselvesOnceADay()
{
    // The first comes a minute after the start, and then one at midnight (by these dice).
    fixture->defaults.checks = Switch::on;
    updater->takeDefaults();
    QTest::qWait(100);
    QCOMPARE(decider->asked, 0);
    decider->allowed = Failure(make_error_code(UpdateError::busy));
    fixture->now += 61;
    QTRY_COMPARE(decider->asked, 1);
    QCOMPARE(phase(), Phase::idle);
    decider->allowed = {};
    fixture->now += 61;
    QTRY_COMPARE(phase(), Phase::available);

    const double midnight = (std::floor(UpdaterFixture::noon / 86'400) + 1) * 86'400;
    fixture->now = midnight - 1;
    QTest::qWait(100);
    QCOMPARE(decider->asked, 2);
    fixture->now = midnight + 60;
    QTRY_COMPARE(decider->asked, 3);

    fixture->defaults.checks = Switch::off;
    updater->takeDefaults();
    fixture->now += 3 * 86'400;
    QTest::qWait(100);
    QCOMPARE(decider->asked, 3);
}

void UpdaterTest::theFeedIsTriedAgainWhenItCouldNotBeReached()
{
    fixture->peer.tell({{u"path"_s, u"/feed"_s}, {u"status"_s, 503}});
    fixture->defaults.checks = Switch::on;
    updater->takeDefaults();
    fixture->now += 61;
    QTRY_COMPARE(fixture->peer.requests().size(), 1);
    QTRY_VERIFY(updater->canCheckForUpdates());
    QCOMPARE(phase(), Phase::idle); // nobody asked
    QVERIFY(!fixture->defaults.last);

    fixture->announce(u"813"_s);
    fixture->now += 30 * 60 + 1;
    QTRY_COMPARE(phase(), Phase::available);
}

void UpdaterTest::whatIsFoundByItselfIsToldOrInstalled_data()
{
    QTest::addColumn<Switch>("downloads");
    QTest::addColumn<Phase>("reached");
    QTest::addColumn<int>("told");

    QTest::newRow("told") << Switch::off << Phase::available << 1;
    QTest::newRow("installed") << Switch::on << Phase::ready << 0;
}

void UpdaterTest::whatIsFoundByItselfIsToldOrInstalled()
{
    QFETCH(const Switch, downloads);
    fixture->defaults.checks = Switch::on;
    fixture->defaults.downloads = downloads;
    QSignalSpy told(updater.get(), &Updater::found);
    updater->takeDefaults();
    fixture->now += 61;
    QFETCH(const Phase, reached);
    QTRY_COMPARE(phase(), reached);
    QTEST(static_cast<int>(told.size()), "told");
    QCOMPARE(static_cast<bool>(decider->onQuit), downloads == Switch::on);
    QVERIFY(fixture->installer.activated.isEmpty());

    if (downloads == Switch::on) {
        QSignalSpy installed(updater.get(), &Updater::installed);
        decider->onQuit();
        QCOMPARE(fixture->installer.activated, QStringList{u"813"_s});
        QCOMPARE(installed.size(), 1);
    }
}

void UpdaterTest::aVersionThatFailedOnceComesByRequestOnly()
{
    fixture->installer.failed = u"813"_s;
    fixture->defaults.checks = Switch::on;
    updater->takeDefaults();
    fixture->now += 61;
    QTRY_COMPARE(fixture->defaults.last, fixture->now);
    QCOMPARE(phase(), Phase::idle);
    find();
}

void UpdaterTest::whatCannotBeInstalledIsNotFetchedEachDay()
{
    fixture->defaults.checks = Switch::on;
    fixture->defaults.downloads = Switch::on;
    fixture->installer.preparation = Failure(make_error_code(UpdateError::selfTestFailed));
    updater->takeDefaults();
    fixture->now += 61;
    QTRY_COMPARE(phase(), Phase::failed);

    start(); // in a later run
    updater->takeDefaults();
    fixture->now += 2 * 86'400;
    QTRY_COMPARE(phase(), Phase::available);
    fixture->installer.preparation = {};
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
}

void UpdaterTest::aCheckThatEndsLateUndoesNothing()
{
    find();
    fixture->peer.tell({{u"path"_s, u"/feed"_s}, {u"size"_s, 20}, {u"fault"_s, u"drip"_s}});
    fixture->defaults.checks = Switch::on;
    updater->takeDefaults();
    fixture->now += 2 * 86'400;
    QTRY_VERIFY(!updater->canCheckForUpdates());
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
    QSignalSpy changed(updater.get(), &Updater::canCheckForUpdatesChanged);
    QTRY_VERIFY(!changed.isEmpty()); // the check has ended
    QCOMPARE(phase(), Phase::ready);
}

void UpdaterTest::anInstallationWaitsForItsDelegate()
{
    QSignalSpy installed(updater.get(), &Updater::installed);
    find();
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
    QVERIFY(!updater->canCheckForUpdates());
    QVERIFY(fixture->installer.activated.isEmpty());

    decider->relaunch();
    QCOMPARE(fixture->installer.activated, QStringList{u"813"_s});
    QCOMPARE(installed.size(), 1);

    // Prepared already, and allowed at once: nothing is fetched any more.
    start();
    decider->postpones = Switch::off;
    find();
    const qsizetype requests = fixture->peer.requests().size();
    updater->install();
    QTRY_COMPARE(fixture->installer.activated.size(), 2);
    QCOMPARE(fixture->peer.requests().size(), requests);
}

void UpdaterTest::aFailureIsToldAndCanBeTriedAgain()
{
    find();
    fixture->installer.preparation = Failure(make_error_code(UpdateError::signatureInvalid));
    updater->install();
    QTRY_COMPARE(phase(), Phase::failed);
    QCOMPARE(updater->status().error, make_error_code(UpdateError::signatureInvalid));
    QVERIFY(updater->canCheckForUpdates());

    fixture->installer.preparation = {};
    fixture->installer.activation = Failure(make_error_code(UpdateError::installationFailed));
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
    decider->relaunch();
    QCOMPARE(updater->status().error, make_error_code(UpdateError::installationFailed));

    fixture->installer.activation = {};
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
}

void UpdaterTest::aStoppedDownloadCanBeTakenUpAgain()
{
    fixture->announce(u"813"_s, 100);
    fixture->peer.tell({{u"path"_s, u"/archive"_s}, {u"size"_s, 100}, {u"fault"_s, u"drip"_s}});
    find();
    updater->install();
    QTRY_VERIFY(updater->status().progress > 0);
    updater->stop();
    QTRY_COMPARE(phase(), Phase::available);
    fixture->peer.tell({{u"path"_s, u"/archive"_s}, {u"size"_s, 100}});
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
}

void UpdaterTest::whatIsReadyIsInstalledAtTheEnd()
{
    QSignalSpy installed(updater.get(), &Updater::installed);
    find();
    updater->installOnQuit();
    QVERIFY(fixture->installer.noted.isEmpty());
    updater->install();
    QTRY_COMPARE(phase(), Phase::ready);
    updater->installOnQuit();
    QCOMPARE(fixture->installer.noted, QStringList{u"813"_s});
    QVERIFY(fixture->installer.activated.isEmpty());
    QCOMPARE(installed.size(), 0);
}

void UpdaterTest::onlyASoundSetupStarts()
{
    UpdaterSetup plain = fixture->setup();
    plain.feed.setScheme(u"http"_s);
    Updater onHttp(plain, *decider);
    QCOMPARE(onHttp.start().error(), make_error_code(UpdateError::setupInvalid));
    onHttp.checkForUpdates();
    QCOMPARE(onHttp.status().phase, Phase::idle);

    fixture->installer.canInstall = Failure(make_error_code(UpdateError::folderReadOnly));
    Updater onReadOnly(fixture->setup(), *decider);
    QCOMPARE(onReadOnly.start().error(), make_error_code(UpdateError::folderReadOnly));
    QVERIFY(!onReadOnly.canCheckForUpdates());
}

void UpdaterTest::anUpdaterMayGoAtAnyTime()
{
    updater->checkForUpdates();
    start(); // in its place
    fixture->peer.tell({{u"path"_s, u"/archive"_s}, {u"size"_s, 1000}, {u"fault"_s, u"drip"_s}});
    find();
    updater->install();
    QTRY_VERIFY(updater->status().progress > 0);
    updater.reset();
    QTest::qWait(50);
}

QTEST_GUILESS_MAIN(UpdaterTest)
#include "updater_test.moc"
