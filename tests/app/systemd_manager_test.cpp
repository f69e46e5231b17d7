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

using Process = std::optional<qint32>;
Q_DECLARE_METATYPE(Process)

class SystemdManagerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theAgentIsWhatTheMostImportantFolderSays_data();
    void theAgentIsWhatTheMostImportantFolderSays();
    void unitsAreLookedForWhereTheServiceManagerDoes();
    void onlyAPlainNumberIsAProcess_data();
    void onlyAPlainNumberIsAProcess();
    void anAgentThatIsNotLoadedIsAFailure_data();
    void anAgentThatIsNotLoadedIsAFailure();
    void withoutAServiceManagerEveryQuestionFailsAtOnce();
};

void SystemdManagerTest::theAgentIsWhatTheMostImportantFolderSays_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("system");
    QTest::addColumn<bool>("hasAgent");
    QTest::newRow("nowhere") << "" << "" << false;
    QTest::newRow("the package's") << "" << "file" << true;
    QTest::newRow("a link to elsewhere") << "link" << "" << true;
    QTest::newRow("masked by a link") << "mask" << "file" << false;
    QTest::newRow("masked by an empty file") << "empty" << "file" << false;
    QTest::newRow("a link to what is gone") << "dangling" << "file" << true;
    QTest::newRow("the user's own over a mask") << "file" << "mask" << true;
}

void SystemdManagerTest::theAgentIsWhatTheMostImportantFolderSays()
{
    const QTemporaryDir folder;
    QFile elsewhere(folder.filePath(u"elsewhere"_s));
    QVERIFY(elsewhere.open(QIODevice::WriteOnly) && elsewhere.write("[Service]\n") > 0);
    elsewhere.close();
    const QHash<QString, QString> targets{{u"mask"_s, u"/dev/null"_s},
                                          {u"link"_s, elsewhere.fileName()},
                                          {u"dangling"_s, folder.filePath(u"gone"_s)}};
    QStringList folders;
    for (const QString &level : {u"user"_s, u"system"_s}) {
        folders.append(folder.filePath(level));
        QVERIFY(QDir().mkpath(folders.last()));
        const QString unit = folders.last() + u"/me.tarnel.quorvane-app.service"_s;
        const QString kind =
            *static_cast<const QString *>(QTest::qData(qPrintable(level), QMetaType::QString));
        if (targets.contains(kind))
            QVERIFY(QFile::link(targets.value(kind), unit));
        else if (kind == "file"_L1)
            QVERIFY(elsewhere.copy(unit));
        else if (kind == "empty"_L1)
            QVERIFY(QFile(unit).open(QIODevice::WriteOnly));
    }
    QTEST(SystemdManager(nullptr, folders).hasAgent(), "hasAgent");
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

void SystemdManagerTest::onlyAPlainNumberIsAProcess_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::addColumn<Process>("process");
    QTest::newRow("runs") << QByteArray("4242") << Process(4242);
    QTest::newRow("the largest") << QByteArray("2147483647") << Process(2147483647);
    QTest::newRow("does not run") << QByteArray("0") << Process();
    QTest::newRow("too large") << QByteArray("2147483648") << Process();
    QTest::newRow("negative") << QByteArray("-1") << Process();
    QTest::newRow("more than a number") << QByteArray("12 (running)") << Process();
    QTest::newRow("nothing") << QByteArray() << Process();
}

void SystemdManagerTest::onlyAPlainNumberIsAProcess()
{
    QFETCH(QByteArray, said);
    const auto process = AgentState::processFrom("MainPID=" + said + "\nLoadState=loaded\n");
    QVERIFY(process);
    QTEST(*process, "process");
}

void SystemdManagerTest::anAgentThatIsNotLoadedIsAFailure_data()
{
    QTest::addColumn<QByteArray>("said");
    QTest::newRow("masked") << QByteArray("MainPID=0\nLoadState=masked\n");
    QTest::newRow("unknown") << QByteArray("MainPID=0\nLoadState=not-found\n");
    QTest::newRow("no such line") << QByteArray("MainPID=12\n");
    QTest::newRow("no text") << QByteArray("MainPID=12\nLoadState=loaded\xff\n");
}

void SystemdManagerTest::anAgentThatIsNotLoadedIsAFailure()
{
    QFETCH(QByteArray, said);
    QVERIFY(!AgentState::processFrom(said));
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
