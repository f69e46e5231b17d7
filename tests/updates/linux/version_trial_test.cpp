// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FullDisk.h"
#include "tests/support/InstalledTree.h"
#include "updates/linux/UpdatesFolder.h"
#include "updates/linux/VersionTrial.h"

#include <QTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using Outcome = VersionTrial::Outcome;

namespace {

/// What this process's files are on.
enum class Disk { local, network, withoutLocks };

Disk disk = Disk::local;

} // namespace

/// Stands in for the C library's, which cannot be had on a network's disk here.
extern "C" int flock(int file, int operation) noexcept
{
    const bool isForReading = (::fcntl(file, F_GETFL) & O_ACCMODE) == O_RDONLY;
    const bool isRefused = (operation & LOCK_EX) != 0 && isForReading && disk == Disk::network;
    if (!isRefused && disk != Disk::withoutLocks)
        return static_cast<int>(::syscall(SYS_flock, file, operation));
    errno = isRefused ? EBADF : ENOLCK;
    return -1;
}

/// Version 811 was current, 812 has just been put in its place.
class VersionTrialTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aNewVersionIsOnTrialUntilItIsConfirmed();
    void locksAreNotNeeded_data();
    void locksAreNotNeeded();
    void aStartThatProvesNothingIsNotCounted();
    void whoIsLeftOfTwoStartsTakesTheTrialOver();
    void aStartWithoutADisplayJudgesNothing();
    void whatAPowerCutEndsHasNotFailed();
    void aVersionThatDiedOnItsTrialGivesWay();
    void theFormerVersionTakesItsPlaceBack();
    void thePersonIsToldOnceWhatWasGivenUp();
    void aVersionThatWasGivenUpDoesNotComeBack();
    void aVersionThatWasGivenUpCanBeTriedAgain();
    void onlyANearPauseIsTakenUp_data();
    void onlyANearPauseIsTakenUp();
    void aDamagedTrialIsNone_data();
    void aDamagedTrialIsNone();
    void withoutTheVersionBeforeTheNewOneStays();
    void whatCannotBeWatchedOverIsNotTried();
    void aFullDiskDoesNotKeepTheOldVersionAway();

private:
    [[nodiscard]] VersionTrial start(const QString &version) const
    {
        return VersionTrial::begin(tree->seenBy(version));
    }
    [[nodiscard]] QString current() const
    {
        return tree->seenBy(u"811"_s).currentVersion().value_or(QString());
    }
    [[nodiscard]] bool has(const QString &name) const { return QFileInfo(tree->path(name)).exists(); }

    static constexpr double now = 1'800'000'000;
    std::unique_ptr<InstalledTree> tree;
};

void VersionTrialTest::init()
{
    tree = std::make_unique<InstalledTree>();
    tree->add(u"811"_s);
    tree->add(u"812"_s);
    tree->makeCurrent(u"812"_s);
    InstalledTree::write(tree->path(u"trial.json"_s),
                         R"({"version": "812", "previous": "811", "from": "a later program",
                             "handover": {"pausedUntil": 1800000060, "window": true}})");
}

void VersionTrialTest::aNewVersionIsOnTrialUntilItIsConfirmed()
{
    VersionTrial trial = start(u"812"_s);
    QCOMPARE(trial.outcome(), Outcome::onTrial);
    QCOMPARE(trial.handover(now), Handover({now + 60, Handover::Window::open}));
    const VersionTrial second = start(u"812"_s);
    QCOMPARE(second.outcome(), Outcome::inProgress);
    QCOMPARE(second.handover(now), std::nullopt);

    trial.confirm();
    QVERIFY(!has(u"trial.json"_s) && !has(u"trial.running"_s));
    QCOMPARE(start(u"812"_s).outcome(), Outcome::none);
    QCOMPARE(current(), u"812"_s);
    QCOMPARE(tree->seenBy(u"812"_s).previousVersion(), u"811"_s);
}

void VersionTrialTest::locksAreNotNeeded_data()
{
    QTest::addColumn<Disk>("where");
    QTest::newRow("on a network's disk") << Disk::network;
    QTest::newRow("without locks") << Disk::withoutLocks;
}

void VersionTrialTest::locksAreNotNeeded()
{
    QFETCH(const Disk, where);
    disk = where;
    QVERIFY(UpdatesFolder::open(tree->root()));
    VersionTrial first = start(u"812"_s);
    const Outcome outcome = first.outcome();
    first.postpone();
    start(u"812"_s).confirm();
    disk = Disk::local;
    QCOMPARE(outcome, Outcome::onTrial);
    QVERIFY(!has(u"trial.json"_s));
    QCOMPARE(current(), u"812"_s);
}

void VersionTrialTest::aStartThatProvesNothingIsNotCounted()
{
    VersionTrial without = start(u"812"_s); // a display, say
    without.postpone();
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    QCOMPARE(start(u"812"_s).outcome(), Outcome::rolledBack);
}

void VersionTrialTest::whoIsLeftOfTwoStartsTakesTheTrialOver()
{
    VersionTrial first = start(u"812"_s);
    VersionTrial second = start(u"812"_s);
    second.retry();
    QCOMPARE(second.outcome(), Outcome::inProgress);
    first.postpone();
    second.retry();
    QCOMPARE(second.outcome(), Outcome::onTrial);
    QCOMPARE(second.handover(now), Handover({now + 60, Handover::Window::open}));
    second.confirm();
    QVERIFY(!has(u"trial.json"_s) && !has(u"trial.running"_s) && !has(u"trial.seen"_s));
}

void VersionTrialTest::aStartWithoutADisplayJudgesNothing()
{
    for (const QString &version : {u"812"_s, u"811"_s}) {
        QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
        VersionTrial::putOff(tree->seenBy(version));
        QCOMPARE(current(), u"812"_s);
    }
    const VersionTrial trial = start(u"812"_s);
    VersionTrial::putOff(tree->seenBy(u"812"_s));
    QCOMPARE(start(u"812"_s).outcome(), Outcome::inProgress);
}

void VersionTrialTest::whatAPowerCutEndsHasNotFailed()
{
    InstalledTree::write(tree->path(u"trial.running"_s), "d4a1a29c-3f4c-4b52-9a46-3f2b8b5b7f5e");
    QCOMPARE(start(u"811"_s).givenUp(), std::nullopt);
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    QCOMPARE(start(u"812"_s).outcome(), Outcome::rolledBack);
}

void VersionTrialTest::aVersionThatDiedOnItsTrialGivesWay()
{
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    const VersionTrial trial = start(u"812"_s);
    QCOMPARE(trial.outcome(), Outcome::rolledBack);
    QCOMPARE(trial.successor(), tree->path(u"versions/811/bin/quorvane"_s));
    QCOMPARE(current(), u"811"_s);
    QVERIFY(!has(u"trial.json"_s) && !has(u"trial.running"_s));
}

void VersionTrialTest::theFormerVersionTakesItsPlaceBack()
{
    QCOMPARE(start(u"811"_s).givenUp(), std::nullopt); // the new one has not been started yet
    QCOMPARE(current(), u"812"_s);
    {
        const VersionTrial trial = start(u"812"_s);
        QCOMPARE(start(u"811"_s).givenUp(), std::nullopt);
    }
    QCOMPARE(start(u"811"_s).givenUp(), u"812"_s);
    QCOMPARE(current(), u"811"_s);
}

void VersionTrialTest::thePersonIsToldOnceWhatWasGivenUp()
{
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    QCOMPARE(start(u"812"_s).outcome(), Outcome::rolledBack);
    VersionTrial old = start(u"811"_s);
    QCOMPARE(old.outcome(), Outcome::none);
    QCOMPARE(old.givenUp(), u"812"_s);
    QCOMPARE(old.handover(now), Handover({now + 60, Handover::Window::open}));
    old.setTold();
    const VersionTrial later = start(u"811"_s);
    QCOMPARE(later.givenUp(), std::nullopt);
    QCOMPARE(later.handover(now), std::nullopt);
}

void VersionTrialTest::aVersionThatWasGivenUpDoesNotComeBack()
{
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    QCOMPARE(start(u"812"_s).outcome(), Outcome::rolledBack);
    const VersionTrial late = start(u"812"_s); // its start had begun before
    QCOMPARE(late.outcome(), Outcome::rolledBack);
    QCOMPARE(late.successor(), tree->path(u"versions/811/bin/quorvane"_s));
}

void VersionTrialTest::aVersionThatWasGivenUpCanBeTriedAgain()
{
    InstalledTree::write(tree->path(u"rejected.json"_s), R"({"versions": ["700", "812"], "untold": "812"})");
    VersionTrial trial = start(u"812"_s);
    QCOMPARE(trial.outcome(), Outcome::onTrial);
    QCOMPARE(trial.givenUp(), std::nullopt);
    trial.confirm();
    QCOMPARE(InstalledTree::read(tree->path(u"rejected.json"_s)), QByteArray(R"({"versions":["700"]})"));
}

void VersionTrialTest::onlyANearPauseIsTakenUp_data()
{
    QTest::addColumn<QByteArray>("pausedUntil");
    QTest::addColumn<bool>("isTakenUp");
    QTest::newRow("over") << QByteArray("1799999999") << false;
    QTest::newRow("near") << QByteArray("1800000300") << true;
    QTest::newRow("far") << QByteArray("1800000301") << false;
    QTest::newRow("none") << QByteArray("null") << false;
}

void VersionTrialTest::onlyANearPauseIsTakenUp()
{
    QFETCH(const QByteArray, pausedUntil);
    QFETCH(const bool, isTakenUp);
    InstalledTree::write(
        tree->path(u"trial.json"_s),
        R"({"version": "812", "previous": "811", "handover": {"window": false, "pausedUntil": )" +
            pausedUntil + "}}");
    const std::optional<Handover> handover = start(u"812"_s).handover(now);
    QCOMPARE(handover->pausedUntil, isTakenUp ? std::optional(pausedUntil.toDouble()) : std::nullopt);
    QCOMPARE(handover->window, Handover::Window::closed);
}

void VersionTrialTest::aDamagedTrialIsNone_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray(R"({"version": "812", "prev)");
    QTest::newRow("huge") << QByteArray(10'000'000, '[');
    QTest::newRow("no version") << QByteArray(R"({"previous": "811", "handover": {"window": true}})");
    QTest::newRow("a path") << QByteArray(
        R"({"version": "812", "previous": "../../bin", "handover": {"window": true}})");
    QTest::newRow("of others") << QByteArray(
        R"({"version": "900", "previous": "899", "handover": {"window": true}})");
}

void VersionTrialTest::aDamagedTrialIsNone()
{
    QFETCH(const QByteArray, content);
    InstalledTree::write(tree->path(u"trial.json"_s), content);
    for (const QString &version : {u"812"_s, u"812"_s, u"811"_s})
        QCOMPARE(start(version).outcome(), Outcome::none);
    QCOMPARE(current(), u"812"_s);
}

void VersionTrialTest::withoutTheVersionBeforeTheNewOneStays()
{
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    QVERIFY(QFile::remove(tree->path(u"versions/811/bin/quorvane"_s)));
    QCOMPARE(start(u"812"_s).outcome(), Outcome::none);
    QCOMPARE(current(), u"812"_s);
    QVERIFY(!has(u"trial.json"_s));
}

void VersionTrialTest::whatCannotBeWatchedOverIsNotTried()
{
    QVERIFY(QDir().mkdir(tree->path(u"trial.running"_s))); // so that no mark can be made
    QCOMPARE(start(u"812"_s).outcome(), Outcome::rolledBack);
    QCOMPARE(current(), u"811"_s);
}

void VersionTrialTest::aFullDiskDoesNotKeepTheOldVersionAway()
{
    QCOMPARE(start(u"812"_s).outcome(), Outcome::onTrial);
    const FullDisk full;
    QCOMPARE(start(u"812"_s).outcome(), Outcome::rolledBack);
    QCOMPARE(current(), u"811"_s);
    QCOMPARE(start(u"811"_s).outcome(), Outcome::none);
}

QTEST_GUILESS_MAIN(VersionTrialTest)
#include "version_trial_test.moc"
