// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/AgentState.h"
#include "launch/linux/SystemdManager.h"
#include "process/linux/PosixProcessRunner.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

using Process = Result<std::optional<qint32>>;
Q_DECLARE_METATYPE(Process)

class SystemdManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theAgentIsWhatTheMostImportantFolderSays_data();
    void theAgentIsWhatTheMostImportantFolderSays();
    void unitsAreLookedForWhereTheServiceManagerDoes();
    void onlyAPlainNumberOfALoadedAgentIsAProcess_data();
    void onlyAPlainNumberOfALoadedAgentIsAProcess();
    void withoutAServiceManagerEveryQuestionFailsAtOnce();
};

void SystemdManagerTest::theAgentIsWhatTheMostImportantFolderSays_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("system");
    QTest::addColumn<bool>("hasAgent");
    QTest::newRow("nowhere") << "" << "" << false;
    QTest::newRow("the package's") << "" << "file" << true;
    QTest::newRow("a link to elsewhere") << "/bin/sh" << "" << true;
    QTest::newRow("masked by a link") << "/dev/null" << "file" << false;
    QTest::newRow("masked by an empty file") << "empty" << "file" << false;
    QTest::newRow("a link to what is gone") << "/nowhere" << "file" << true;
    QTest::newRow("the user's own over a mask") << "file" << "/dev/null" << true;
}

void SystemdManagerTest::theAgentIsWhatTheMostImportantFolderSays()
{
    const QTemporaryDir folder;
    const auto place = [&folder](const char *level) {
        const QString kind = *static_cast<QString *>(QTest::qData(level, QMetaType::QString));
        const QString unit = folder.filePath(QLatin1StringView(level)) + u"/me.tarnel.quorvane-app.service"_s;
        QVERIFY(QDir().mkpath(QFileInfo(unit).path()));
        if (kind.startsWith(u'/'))
            QVERIFY(QFile::link(kind, unit));
        QFile file(unit);
        if (kind == "file"_L1 || kind == "empty"_L1)
            QVERIFY(file.open(QIODevice::WriteOnly) &&
                    file.write(kind == "file"_L1 ? "[Service]\n" : "") >= 0);
    };
    place("user");
    place("system");
    const SystemdManager manager(nullptr, {folder.filePath(u"user"_s), folder.filePath(u"system"_s)});
    QTEST(manager.hasAgent(), "hasAgent");
}

// Against systemd-analyze(1), which knows; without the folders of generators and of its own state.
void SystemdManagerTest::unitsAreLookedForWhereTheServiceManagerDoes()
{
    qputenv("HOME", "/h");
    qputenv("XDG_RUNTIME_DIR", "/r");
    qputenv("XDG_CONFIG_DIRS", "/c1:relative:/c2");
    for (const char *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_DATA_DIRS"})
        qunsetenv(variable);
    const ProcessRequest request{
        .program = u"/usr/bin/systemd-analyze"_s,
        .arguments = {u"--user"_s, u"unit-paths"_s},
        .environment = {{"HOME", "/h"}, {"XDG_RUNTIME_DIR", "/r"}, {"XDG_CONFIG_DIRS", "/c1:/c2"}}};
    const auto outcome = PosixProcessRunner().run(request);
    if (!outcome)
        QSKIP("systemd is not installed (./dev deps installs it)");
    QStringList expected;
    for (const QString &folder : QString::fromUtf8(outcome->output).split(u'\n', Qt::SkipEmptyParts)) {
        if (folder.endsWith("/systemd/user"_L1))
            expected.append(folder);
    }
    QCOMPARE(SystemdManager::systemUnitFolders(), expected);
}

void SystemdManagerTest::onlyAPlainNumberOfALoadedAgentIsAProcess_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::addColumn<Process>("process");
    const Process failure = Failure(make_error_code(std::errc::no_such_process));
    const Process none = std::optional<qint32>();
    QTest::newRow("runs") << QByteArray("MainPID=2147483647\nLoadState=loaded\n") << Process(2147483647);
    QTest::newRow("does not run") << QByteArray("MainPID=0\nLoadState=loaded\n") << none;
    QTest::newRow("too large") << QByteArray("MainPID=2147483648\nLoadState=loaded\n") << none;
    QTest::newRow("more than a number") << QByteArray("MainPID=12 (running)\nLoadState=loaded\n") << none;
    QTest::newRow("no number") << QByteArray("LoadState=loaded\n") << none;
    QTest::newRow("masked") << QByteArray("MainPID=0\nLoadState=masked\n") << failure;
    QTest::newRow("unknown") << QByteArray("MainPID=12\n") << failure;
    QTest::newRow("no text") << QByteArray("MainPID=12\nLoadState=loaded\xff\n") << failure;
}

void SystemdManagerTest::onlyAPlainNumberOfALoadedAgentIsAProcess()
{
    QFETCH(QByteArray, said);
    QFETCH(Process, process);
    QVERIFY(AgentState::processFrom(said) == process);
}

void SystemdManagerTest::withoutAServiceManagerEveryQuestionFailsAtOnce()
{
    const QTemporaryDir runtime;
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + runtime.path().toUtf8() + "/bus");
    const SystemdManager manager(std::make_shared<PosixProcessRunner>(), {});
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!manager.agentProcess());
    QVERIFY(!manager.startAgent());
    QVERIFY(timer.elapsed() < 2000);
}

QTEST_GUILESS_MAIN(SystemdManagerTest)

#include "systemd_manager_test.moc"
