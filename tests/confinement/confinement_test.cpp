// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/CallConfinement.h"
#include "confinement/ChildProcess.h"
#include "confinement/FileConfinement.h"
#include "confinement/ResourceLimits.h"

#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

using namespace std::chrono_literals;
using namespace quorvane;

/// Something to try, with a folder that is allowed and the one around it; whether it could be done.
using Attempt = bool (*)(int allowed, int around);
Q_DECLARE_METATYPE(Attempt)

namespace {

bool opens(int folder, const char *name, int flags)
{
    return ::openat(folder, name, flags | O_CLOEXEC, 0600) >= 0;
}

} // namespace

class ConfinementTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whoMakesFilesCanDoNothingElse_data();
    void whoMakesFilesCanDoNothingElse();
    void workThatDoesNotEndIsEnded();
    void aTighterBoundStays();
};

void ConfinementTest::whoMakesFilesCanDoNothingElse_data()
{
    QTest::addColumn<Attempt>("attempt");
    QTest::addColumn<bool>("isAllowed");
    const auto row = [](const char *name, Attempt attempt, bool isAllowed = false) {
        QTest::newRow(name) << attempt << isAllowed;
    };
    constexpr bool allowed = true;
    row("make a file", [](int in, int) { return opens(in, "new", O_WRONLY | O_CREAT | O_EXCL); }, allowed);
    row("make a folder", [](int in, int) { return ::mkdirat(in, "new", 0700) == 0; }, allowed);
    row("make a link", [](int in, int) { return ::symlinkat("file", in, "new") == 0; }, allowed);
    row("read", [](int in, int) { return opens(in, "file", O_RDONLY); }, allowed);
    row("make a file outside", [](int, int out) { return opens(out, "new", O_WRONLY | O_CREAT); });
    row("make a file by way of the folder",
        [](int in, int) { return opens(in, "../new", O_WRONLY | O_CREAT); });
    row("make a folder outside", [](int, int out) { return ::mkdirat(out, "new", 0700) == 0; });
    row("make a link outside", [](int, int out) { return ::symlinkat("file", out, "new") == 0; });
    row("read outside", [](int, int out) { return opens(out, "file", O_RDONLY); });
    row("read the system's", [](int, int) { return opens(AT_FDCWD, "/etc/passwd", O_RDONLY); });
    row("empty a file", [](int in, int) { return opens(in, "file", O_WRONLY | O_TRUNC); });
    row("remove", [](int in, int) { return ::unlinkat(in, "file", 0) == 0; });
    row("rename", [](int in, int) { return ::renameat(in, "file", in, "new") == 0; });
    row("a hard link", [](int in, int) { return ::linkat(in, "file", in, "new", 0) == 0; });
    row("a pipe", [](int in, int) { return ::mknodat(in, "new", S_IFIFO | 0600, 0) == 0; });
    row("a mode", [](int in, int) { return ::fchmodat(in, "file", 04755, 0) == 0; });
    row("a socket", [](int, int) { return ::socket(AF_UNIX, SOCK_STREAM, 0) >= 0; });
    row("a process", [](int, int) { return ::fork() >= 0; });
    row("another program", [](int, int) { return ::execl("/bin/true", "true", nullptr) == 0; });
    row("a signal", [](int, int) { return ::kill(::getppid(), 0) == 0; });
}

void ConfinementTest::whoMakesFilesCanDoNothingElse()
{
    QFETCH(Attempt, attempt);
    QFETCH(bool, isAllowed);
    if (::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) < 3)
        QSKIP("This kernel confines less.");
    const QTemporaryDir folder;
    const FileDescriptor around(::open(qPrintable(folder.path()), O_RDONLY | O_DIRECTORY));
    QCOMPARE(::mkdirat(around.value(), "allowed", 0700), 0);
    const FileDescriptor allowed(::openat(around.value(), "allowed", O_RDONLY | O_DIRECTORY));
    QVERIFY(opens(around.value(), "file", O_CREAT | O_WRONLY) &&
            opens(allowed.value(), "file", O_CREAT | O_WRONLY));

    ChildProcess process([&] {
        confineToMaking(allowed);
        denySystemCalls(FileCalls::make);
        return attempt(allowed.value(), around.value()) ? 1 : 0;
    });
    QVERIFY(process.isOverWithin(60s));
    QCOMPARE(process.finish(), std::optional<int>(isAllowed ? 1 : 0));
}

void ConfinementTest::workThatDoesNotEndIsEnded()
{
    ChildProcess process([] { return ::pause(); });
    QVERIFY(process.id() != 0 && !process.isOverWithin(20ms));
    QCOMPARE(process.finish(), std::nullopt);
}

void ConfinementTest::aTighterBoundStays()
{
    ChildProcess process([] {
        limitResources({.processorTime = 5s, .memory = 1 << 30, .fileSize = 10});
        limitResources({.processorTime = 50s, .memory = 1 << 30, .fileSize = 20});
        std::signal(SIGXFSZ, SIG_IGN);
        const QTemporaryDir folder;
        const FileDescriptor file(
            ::open(qPrintable(folder.filePath(QStringLiteral("a"))), O_CREAT | O_WRONLY, 0600));
        return static_cast<int>(::write(file.value(), "twenty characters...", 20));
    });
    QVERIFY(process.isOverWithin(60s));
    QCOMPARE(process.finish(), std::optional<int>(10));
}

QTEST_APPLESS_MAIN(ConfinementTest)
#include "confinement_test.moc"
