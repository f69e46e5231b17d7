// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/InstalledTree.h"
#include "updates/linux/TakeoverGuard.h"
#include "updates/linux/VersionTrial.h"

#include <QTest>

#include <climits>
#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

/// The small processes that look after a new version. Version 811 was current, 812 has just been put in its
/// place.
class TrialProcessesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theWatcherBringsTheOldVersionBack_data();
    void theWatcherBringsTheOldVersionBack();
    void aVersionThatDoesNotBeginGivesWay_data();
    void aVersionThatDoesNotBeginGivesWay();
    void aConfirmedVersionIsNotWatched();

private:
    enum class Fate { dies, hangs, isConfirmed };

    void live(Fate fate) const;
    void reportFrom811() const;
    [[nodiscard]] QString current() const
    {
        return tree->seenBy(u"811"_s).currentVersion().value_or(QString());
    }
    [[nodiscard]] bool has(const QString &name) const { return QFileInfo(tree->path(name)).exists(); }

    std::unique_ptr<InstalledTree> tree;
};

void TrialProcessesTest::init()
{
    tree = std::make_unique<InstalledTree>();
    tree->add(u"811"_s);
    tree->add(u"812"_s);
    tree->makeCurrent(u"812"_s);
    InstalledTree::write(tree->path(u"trial.json"_s),
                         R"({"version": "812", "previous": "811", "handover": {"window": true}})");
}

/// The new version's life in this process; what looks after it starts the program like `main` does.
void TrialProcessesTest::live(Fate fate) const
{
    VersionTrial trial = VersionTrial::begin(tree->seenBy(u"812"_s));
    const auto begin = [](const QString &executable) {
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

void TrialProcessesTest::theWatcherBringsTheOldVersionBack_data()
{
    QTest::addColumn<Fate>("fate");
    QTest::newRow("after a crash") << Fate::dies;
    QTest::newRow("after a hang") << Fate::hangs;
}

/// Has the former version write down its argument.
void TrialProcessesTest::reportFrom811() const
{
    const QByteArray report = tree->path(u"report"_s).toUtf8();
    const QByteArray script =
        "#!/bin/sh\necho $1 > " + report + ".new\nmv " + report + ".new " + report + "\n";
    InstalledTree::writeVersion(tree->path(u"versions/811"_s), u"811"_s, script);
}

void TrialProcessesTest::theWatcherBringsTheOldVersionBack()
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

void TrialProcessesTest::aVersionThatDoesNotBeginGivesWay_data()
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

void TrialProcessesTest::aVersionThatDoesNotBeginGivesWay()
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

void TrialProcessesTest::aConfirmedVersionIsNotWatched()
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

QTEST_GUILESS_MAIN(TrialProcessesTest)
#include "trial_processes_test.moc"
