// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "posix/FileDescriptor.h"
#include "process/linux/PosixProcessRunner.h"

#include <QDir>
#include <QTest>

#include <atomic>
#include <csignal>
#include <optional>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

class ProcessRunnerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aProgramInheritsNothing();
    void everyByteArrives_data();
    void everyByteArrives();
    void closedStandardStreamsHereDoNotMatter();
    void aSignalEndsAProgramWithItsNumber();
    void theTimeLimitCountsFromTheEndOfTheInput();
    void anOverdueProgramIsAskedBeforeItIsKilled();
    void whatAProgramLeavesBehindGoesWithIt();
    void aClosedInputIsAnErrorAndNoSignal();
    void runningOutOfDescriptorsLeavesNothingBehind();
    void tenThousandRunsLeaveNothingBehind();

private:
    static ProcessRequest shell(const QString &script)
    {
        return {.program = u"/bin/sh"_s, .arguments = {u"-c"_s, script}};
    }
    Result<ProcessOutcome> run(const ProcessRequest &request) const { return m_runner.run(request); }
    QByteArray output(const QString &program, const QStringList &arguments) const
    {
        const ProcessRequest request{
            .program = program, .arguments = arguments, .environment = {{"A", "1"}, {"B", "two words"}}};
        return run(request).value_or(ProcessOutcome{}).output;
    }
    static qsizetype entries(const QString &folder)
    {
        return QDir(folder).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
    }
    static qsizetype openFiles() { return entries(u"/proc/self/fd"_s); }
    static qsizetype threads() { return entries(u"/proc/self/task"_s); }
    static bool hasChildren() { return ::waitid(P_ALL, 0, nullptr, WEXITED | WNOHANG | WNOWAIT) == 0; }

    PosixProcessRunner m_runner;
};

void ProcessRunnerTest::aProgramInheritsNothing()
{
    const FileDescriptor inheritable(::open("/dev/null", O_RDONLY)); // a careless library's
    sigset_t blocked;
    sigset_t former;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &former);
    const auto formerAction = ::signal(SIGUSR1, SIG_IGN);
    const QByteArray signalSets =
        output(u"/bin/grep"_s, {u"-E"_s, u"^Sig(Blk|Ign)"_s, u"/proc/self/status"_s});
    ::signal(SIGUSR1, formerAction);
    ::pthread_sigmask(SIG_SETMASK, &former, nullptr);

    // The C library keeps two signals to itself, 32 and 33.
    QCOMPARE(signalSets.simplified().replace("18", "00"),
             QByteArray("SigBlk: 0000000000000000 SigIgn: 0000000000000000"));
    QCOMPARE(output(u"/bin/cat"_s, {u"/proc/self/environ"_s}).replace('\0', '|'),
             QByteArray("A=1|B=two words|"));
    QCOMPARE(output(u"/bin/cat"_s, {u"/proc/self/cmdline"_s, u"/dev/null"_s, u"–"_s}).replace('\0', '|'),
             QByteArray("/bin/cat|/proc/self/cmdline|/dev/null|–|"));
    QCOMPARE(output(u"/bin/ls"_s, {u"/proc/self/fd"_s}), QByteArray("0\n1\n2\n3\n")); // 3: the folder listed
    QCOMPARE(output(u"/bin/readlink"_s, {u"/proc/self/cwd"_s}), QByteArray("/\n"));
    const QByteArrayList state = output(u"/bin/cat"_s, {u"/proc/self/stat"_s}).split(' ');
    QCOMPARE(state.value(4), state.value(0)); // leads its process group
}

void ProcessRunnerTest::everyByteArrives_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("limit");
    QTest::newRow("nothing") << 0 << 10;
    QTest::newRow("as much as is kept") << 10 << 10;
    QTest::newRow("a byte more") << 11 << 10;
    QTest::newRow("a pipe full") << 65'536 << 100'000;
    QTest::newRow("many pipes full, both ways at once") << 10'000'000 << 10'000'000;
    QTest::newRow("most of it thrown away") << 10'000'000 << 1'000;
}

void ProcessRunnerTest::everyByteArrives()
{
    QFETCH(int, length);
    QFETCH(int, limit);
    ProcessRequest request = shell(u"/usr/bin/tee /dev/stderr"_s);
    for (int i = 0; i < length; ++i)
        request.input.append(static_cast<char>(i % 251));
    request.outputLimit = limit;
    request.errorLimit = limit / 2;
    const auto outcome = run(request);
    QVERIFY(outcome);
    QCOMPARE(outcome->exitStatus, 0);
    QVERIFY(outcome->output == request.input.first(std::min(length, limit)));
    QVERIFY(outcome->errorOutput == request.input.first(std::min(length, limit / 2)));
    QCOMPARE(outcome->isOutputCut, length > limit);
}

void ProcessRunnerTest::closedStandardStreamsHereDoNotMatter()
{
    const FileDescriptor kept(::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 10));
    ::close(STDIN_FILENO);
    ProcessRequest request = shell(u"cat; echo error >&2"_s);
    request.input = "input";
    const auto outcome = run(request);
    ::dup2(kept.value(), STDIN_FILENO);
    QVERIFY(outcome);
    QCOMPARE(outcome->output, QByteArray("input"));
    QCOMPARE(outcome->errorOutput, QByteArray("error\n"));
}

void ProcessRunnerTest::aSignalEndsAProgramWithItsNumber()
{
    QCOMPARE(run(shell(u"exit 7"_s))->exitStatus, 7);
    QCOMPARE(run(shell(u"kill -HUP $$"_s))->exitStatus, 128 + SIGHUP);
}

void ProcessRunnerTest::theTimeLimitCountsFromTheEndOfTheInput()
{
    ProcessRequest request = shell(u"sleep 1.8; cat >/dev/null; sleep 1.8"_s);
    request.input = QByteArray(1'000'000, ' ');
    request.timeLimit = 3s;
    const auto outcome = run(request);
    QVERIFY(outcome);
    QCOMPARE(outcome->exitStatus, 0);
}

void ProcessRunnerTest::anOverdueProgramIsAskedBeforeItIsKilled()
{
    ProcessRequest request = shell(u"trap 'echo asked; exit 3' TERM; echo up; while :; do sleep 0.1; done"_s);
    request.timeLimit = 2s;
    const auto outcome = run(request);
    QVERIFY(outcome);
    QCOMPARE(outcome->output, QByteArray("up\nasked\n"));
    QCOMPARE(outcome->exitStatus, 3);
}

void ProcessRunnerTest::whatAProgramLeavesBehindGoesWithIt()
{
    const auto outcome = run(shell(u"sleep 1000 & sleep 1000 >/dev/null 2>&1 <&- & echo $$"_s));
    QVERIFY(outcome);
    QCOMPARE(outcome->exitStatus, 0);
    const pid_t group = outcome->output.trimmed().toInt();
    QVERIFY(group > 1);
    // What init has not reaped yet still counts as a member, but can no longer run.
    QTRY_COMPARE(
        output(u"/bin/sh"_s, {u"-c"_s, u"cat /proc/[0-9]*/stat | grep -c '[RSD] [0-9]* %1 '"_s.arg(group)})
            .trimmed(),
        QByteArray("0"));
}

void ProcessRunnerTest::aClosedInputIsAnErrorAndNoSignal()
{
    ProcessRequest request = shell(u"exec <&-; sleep 1000"_s);
    request.input = QByteArray(1'000'000, ' ');
    const auto outcome = run(request);
    QVERIFY(!outcome);
    QCOMPARE(outcome.error(), std::make_error_code(std::errc::broken_pipe));
    sigset_t now;
    ::pthread_sigmask(SIG_BLOCK, nullptr, &now);
    QCOMPARE(::sigismember(&now, SIGPIPE), 0);
    ::sigpending(&now);
    QCOMPARE(::sigismember(&now, SIGPIPE), 0);
}

void ProcessRunnerTest::runningOutOfDescriptorsLeavesNothingBehind()
{
    const qsizetype before = openFiles();
    rlimit former{};
    ::getrlimit(RLIMIT_NOFILE, &former);
    int failures = 0;
    std::optional<Result<ProcessOutcome>> outcome;
    // Six for the pipes, one for the process: the input is too long for its pipe to be closed by then.
    const ProcessRequest request{.program = u"/bin/true"_s, .input = QByteArray(100'000, ' ')};
    for (int spare = 0; spare < 7; ++spare) {
        const FileDescriptor lowest(::dup(STDIN_FILENO));
        const rlimit scarce{static_cast<rlim_t>(lowest.value() + 1 + spare), former.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &scarce);
        outcome = run(request);
        ::setrlimit(RLIMIT_NOFILE, &former);
        failures += !*outcome && outcome->error() == std::errc::too_many_files_open ? 1 : 0;
    }
    QCOMPARE(failures, 7);
    QVERIFY(run({.program = u"/bin/true"_s}));
    QCOMPARE(openFiles(), before);
    QVERIFY(!hasChildren());
}

void ProcessRunnerTest::tenThousandRunsLeaveNothingBehind()
{
    const qsizetype filesBefore = openFiles();
    const qsizetype threadsBefore = threads();
    std::atomic_int good = 0;
    std::vector<std::thread> callers;
    for (int caller = 0; caller < 8; ++caller) {
        callers.emplace_back([this, &good] {
            for (int i = 0; i < 1'250; ++i) {
                const auto outcome = run({.program = u"/bin/true"_s, .input = "[]"});
                good += outcome && outcome->exitStatus == 0 && outcome->output.isEmpty() ? 1 : 0;
            }
        });
    }
    for (std::thread &caller : callers)
        caller.join();
    QCOMPARE(good.load(), 10'000);
    QCOMPARE(openFiles(), filesBefore);
    QCOMPARE(threads(), threadsBefore);
    QVERIFY(!hasChildren());
}

QTEST_GUILESS_MAIN(ProcessRunnerTest)
#include "process_runner_test.moc"
