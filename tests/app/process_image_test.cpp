// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProcessImage.h"
#include "app/Relaunch.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr const char *successor = "successor";

/// A copy of the program that has done to its process whatever such a program does, and then gives way.
int giveWay(int argc, char **argv)
{
    const ProcessImage image(argc, argv);
    const QString next = QString::fromLocal8Bit(argv[1]);
    const auto kind = static_cast<StartKind>(std::atoi(argv[2]));
    ::unsetenv("NOTIFY_SOCKET");
    ::setenv("LATER", "1", 1);
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGUSR1, SIG_DFL);
    std::signal(SIGHUP, [](int) {});
    sigset_t held;
    ::sigemptyset(&held);
    ::sigaddset(&held, SIGTERM);
    ::pthread_sigmask(SIG_SETMASK, &held, nullptr);
    for (int i = 0; i < 20; ++i)
        static_cast<void>(::open("/dev/null", O_RDONLY));
    static_cast<void>(::fcntl(0, F_DUPFD, 900));
    std::thread([] { ::pause(); }).detach();
    return relaunch(image, next, kind).value();
}

/// What a program finds that was started in its place: a line for each thing.
int tellSurroundings(int argc, char **argv)
{
    std::printf("pid %d\n", ::getpid());
    for (int i = 2; i < argc; ++i)
        std::printf("argument %s\n", argv[i]);
    for (const auto &entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const auto target = std::filesystem::read_symlink(entry, gone);
        if (target.filename() != "fd") // the one that lists
            std::printf("file %s\n", entry.path().filename().c_str());
    }
    for (char **variable = environ; *variable; ++variable)
        std::printf("variable %s\n", *variable);
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("SigBlk") || line.starts_with("SigIgn"))
            std::printf("%s\n", line.c_str());
    }
    return EXIT_SUCCESS;
}

QByteArray mask(std::initializer_list<int> signalNumbers)
{
    quint64 bits = 0;
    for (const int number : signalNumbers)
        bits |= quint64(1) << (number - 1);
    return QByteArray::number(bits, 16).rightJustified(16, '0');
}

} // namespace

class ProcessImageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theNextProgramFindsWhatThisOneFound_data();
    void theNextProgramFindsWhatThisOneFound();
    void aProgramThatCannotBeStartedChangesNothing();
};

void ProcessImageTest::theNextProgramFindsWhatThisOneFound_data()
{
    QTest::addColumn<StartKind>("kind");
    QTest::addColumn<QByteArrayList>("said");
    const QByteArrayList login{"variable QUORVANE_START=login"};
    const QByteArrayList agent{"variable QUORVANE_START=agent"};
    QTest::newRow("a person's") << StartKind::person << login;
    QTest::newRow("the session's") << StartKind::login << login;
    QTest::newRow("the service manager's") << StartKind::agent << agent;
}

void ProcessImageTest::theNextProgramFindsWhatThisOneFound()
{
    QFETCH(StartKind, kind);
    QFETCH(QByteArrayList, said);
    const QTemporaryDir folder;
    const QString next = folder.filePath(QString::fromLatin1(successor));
    QVERIFY(QFile::link(QCoreApplication::applicationFilePath(), next));

    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"NOTIFY_SOCKET"_s, u"XDG_ACTIVATION_TOKEN"_s, u"DESKTOP_STARTUP_ID"_s})
        environment.insert(name, u"given at the start"_s);
    environment.insert(u"QUORVANE_START"_s, u"something"_s);
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {
        std::signal(SIGUSR1, SIG_IGN);
        sigset_t held;
        ::sigemptyset(&held);
        ::sigaddset(&held, SIGUSR2);
        ::sigprocmask(SIG_SETMASK, &held, nullptr);
    });
    process.start(QCoreApplication::applicationFilePath(),
                  {next, QString::number(int(kind)), u"--preview-overlay"_s, u"two words"_s});
    QVERIFY(process.waitForStarted());
    const QByteArray pid = QByteArray::number(process.processId());
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);

    const QByteArrayList lines = process.readAll().split('\n');
    const auto linesOf = [&lines](const QByteArray &kindOfLine) {
        QByteArrayList found;
        std::ranges::copy_if(lines, std::back_inserter(found),
                             [&](const QByteArray &line) { return line.startsWith(kindOfLine); });
        std::ranges::sort(found);
        return found;
    };
    QCOMPARE(linesOf("pid"), QByteArrayList{"pid " + pid});
    QCOMPARE(linesOf("argument").last(), QByteArray("argument two words"));
    QVERIFY(!lines.contains("argument --preview-overlay"));
    QCOMPARE(linesOf("file"), (QByteArrayList{"file 0", "file 1", "file 2"}));
    QCOMPARE(linesOf("variable NOTIFY_SOCKET"), QByteArrayList{"variable NOTIFY_SOCKET=given at the start"});
    for (const char *gone :
         {"variable XDG_ACTIVATION_TOKEN", "variable DESKTOP_STARTUP_ID", "variable LATER"})
        QCOMPARE(linesOf(gone), QByteArrayList());
    QCOMPARE(linesOf("variable QUORVANE_START"), said);
    QCOMPARE(linesOf("Sig"), (QByteArrayList{"SigBlk:\t" + mask({SIGUSR2}), "SigIgn:\t" + mask({SIGUSR1})}));
}

void ProcessImageTest::aProgramThatCannotBeStartedChangesNothing()
{
    char name[] = "quorvane";
    char *arguments[] = {name, nullptr};
    const ProcessImage image(1, arguments);
    std::signal(SIGPIPE, SIG_IGN);
    QCOMPARE(image.replaceBy(u"/nowhere/quorvane"_s, {}),
             std::make_error_code(std::errc::no_such_file_or_directory));
    QVERIFY(std::signal(SIGPIPE, SIG_DFL) == SIG_IGN);
}

int main(int argc, char **argv)
{
    if (QByteArrayView(argv[0]).endsWith(successor))
        return tellSurroundings(argc, argv);
    if (argc > 4 && QByteArrayView(argv[1]).endsWith(successor))
        return giveWay(argc, argv);
    const QCoreApplication application(argc, argv);
    ProcessImageTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "process_image_test.moc"
