// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FullDisk.h"
#include "tests/support/InstalledTree.h"
#include "updates/linux/TakeoverGuard.h"
#include "updates/linux/UpdatesFolder.h"
#include "updates/linux/VersionTrial.h"

#include <QTest>

#include <cerrno>
#include <climits>
#include <csignal>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;
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
    void theWatcherBringsTheOldVersionBack_data();
    void theWatcherBringsTheOldVersionBack();
    void aVersionThatDoesNotBeginGivesWay_data();
    void aVersionThatDoesNotBeginGivesWay();
    void aConfirmedVersionIsNotWatched();

private:
    enum class Fate { dies, hangs, isConfirmed };

    [[nodiscard]] VersionTrial start(const QString &version) const
    {
        return VersionTrial::begin(tree->seenBy(version));
    }
    void live(Fate fate) const;
    void reportFrom811() const;
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

/// The new version's life in this process; what looks after it starts the program like `main` does.
void VersionTrialTest::live(Fate fate) const
{
    VersionTrial trial = start(u"812"_s);
    const auto begin = [this](const QString &executable) {
        const QString resolved = QFileInfo(executable).canonicalFilePath();
        const VersionTrial again = VersionTrial::begin(*InstalledVersions::ofExecutable(resolved));
        const QByteArray program = QFile::encodeName(again.successor());
        ::execl(program.constData(), program.constData(), "argument", nullptr);
    };
    trial.watch(begin, {.patience = 2s, .end = 20s});
    if (fate == Fate::isConfirmed)
        trial.confirm();
    ::close_range(STDERR_FILENO + 1, UINT_MAX, 0);
    if (fate == Fate::hangs)
        ::pause();
    ::kill(::getpid(), SIGKILL);
}

void VersionTrialTest::theWatcherBringsTheOldVersionBack_data()
{
    QTest::addColumn<Fate>("fate");
    QTest::newRow("after a crash") << Fate::dies;
    QTest::newRow("after a hang") << Fate::hangs;
}

/// Has the former version write down its argument.
void VersionTrialTest::reportFrom811() const
{
    const QByteArray report = tree->path(u"report"_s).toUtf8();
    const QByteArray script =
        "#!/bin/sh\necho $1 > " + report + ".new\nmv " + report + ".new " + report + "\n";
    InstalledTree::writeVersion(tree->path(u"versions/811"_s), u"811"_s, script);
}

void VersionTrialTest::theWatcherBringsTheOldVersionBack()
{
    QFETCH(const Fate, fate);
    reportFrom811();
    int ends[2];
    QVERIFY(::pipe(ends) == 0);
    const pid_t program = ::fork();
    if (program == 0)
        live(fate);
    ::close(ends[1]);
    char byte = 0;
    QCOMPARE(::read(ends[0], &byte, 1), ssize_t(0)); // nobody holds the other end open any more
    ::close(ends[0]);
    int status = 0;
    if (fate == Fate::hangs)
        QCOMPARE(::waitpid(program, &status, WNOHANG), 0);
    QCOMPARE(::waitpid(program, &status, 0), program);
    QCOMPARE(WTERMSIG(status), SIGKILL);
    QTRY_VERIFY_WITH_TIMEOUT(has(u"report"_s), 20'000);
    QCOMPARE(InstalledTree::read(tree->path(u"report"_s)), QByteArray("argument\n"));
    QCOMPARE(current(), u"811"_s);
}

void VersionTrialTest::aVersionThatDoesNotBeginGivesWay_data()
{
    QTest::addColumn<QByteArray>("program");
    QTest::addColumn<bool>("givesWay");
    const QByteArray begin = "cd -P $(dirname $0)/../../..; touch trial.seen trial.running\n";
    QTest::newRow("dies") << QByteArray("exit 1\n") << true;
    QTest::newRow("cannot be run") << QByteArray() << true; // not even a shell can
    QTest::newRow("hangs") << QByteArray("exec sleep 60\n") << true;
    QTest::newRow("dies as soon as it has begun") << begin + "exit 1\n" << true;
    QTest::newRow("has nothing to do") << begin + "rm trial.running\n" << false;
    QTest::newRow("lives beside the one on trial") << begin + "rm trial.running; exec sleep 3\n" << false;
}

void VersionTrialTest::aVersionThatDoesNotBeginGivesWay()
{
    QFETCH(const QByteArray, program);
    reportFrom811();
    const QString folder = tree->path(u"versions/812"_s);
    InstalledTree::writeVersion(folder, u"812"_s, program.isEmpty() ? "no program" : "#!/bin/sh\n" + program);
    ::prctl(PR_SET_CHILD_SUBREAPER, 1); // so that the guard becomes a child of this process
    const pid_t process = ::fork();
    if (process == 0) {
        const auto start = [this](const QString &executable) {
            if (executable == tree->seenBy(u"811"_s).executable(u"811"_s))
                static_cast<void>(VersionTrial::begin(tree->seenBy(u"811"_s)));
            const QByteArray path = QFile::encodeName(executable);
            ::execl(path.constData(), path.constData(), "argument", nullptr);
        };
        TakeoverGuard::takeOver(tree->seenBy(u"811"_s), start, 2s);
        ::_exit(1);
    }
    while (::waitpid(-1, nullptr, 0) > 0)
        continue;
    ::prctl(PR_SET_CHILD_SUBREAPER, 0);
    QFETCH(const bool, givesWay);
    QCOMPARE(has(u"report"_s), givesWay);
    QCOMPARE(current(), givesWay ? u"811"_s : u"812"_s);
    QCOMPARE(has(u"trial.json"_s), !givesWay);
}

void VersionTrialTest::aConfirmedVersionIsNotWatched()
{
    ::prctl(PR_SET_CHILD_SUBREAPER, 1); // so that the watcher becomes a child of this process
    const pid_t program = ::fork();
    if (program == 0)
        live(Fate::isConfirmed);
    QCOMPARE(::waitpid(program, nullptr, 0), program);
    int status = -1;
    QVERIFY(::waitpid(-1, &status, 0) > 0);
    ::prctl(PR_SET_CHILD_SUBREAPER, 0);
    QCOMPARE(status, 0);
    QCOMPARE(current(), u"812"_s);
    QVERIFY(!has(u"trial.json"_s));
}

QTEST_GUILESS_MAIN(VersionTrialTest)
#include "version_trial_test.moc"
