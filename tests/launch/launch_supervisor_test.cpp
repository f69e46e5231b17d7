// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/LaunchSupervisor.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

using Process = Result<std::optional<qint32>>;
Q_DECLARE_METATYPE(Process)

namespace {

const auto failure = Failure(make_error_code(std::errc::timed_out));

/// A service manager that says what the test lets it say; the real one is in systemd_manager_test and
/// system.supervision.
class ScriptedManager final : public ServiceManager
{
public:
    bool hasAgent() const override
    {
        asked += 'f';
        return isInstalled;
    }
    Process agentProcess() const override
    {
        asked += 'p';
        return process;
    }
    Result<void> startAgent() const override
    {
        asked += 's';
        return started;
    }

    bool isInstalled = true;
    Process process = std::optional<qint32>(12);
    Result<void> started;
    mutable QByteArray asked;
};

} // namespace

class LaunchSupervisorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyACopyBesideTheAgentHandsOver_data();
    void onlyACopyBesideTheAgentHandsOver();
    void aPreviewAsksNobody();
};

void LaunchSupervisorTest::onlyACopyBesideTheAgentHandsOver_data()
{
    QTest::addColumn<bool>("isInstalled");
    QTest::addColumn<Process>("process");
    QTest::addColumn<bool>("starts");
    QTest::addColumn<bool>("handedOver");
    QTest::addColumn<QByteArray>("asked");
    const Process nobody = std::optional<qint32>();
    QTest::newRow("no agent") << false << nobody << true << false << QByteArray("f");
    QTest::newRow("not loaded, or no answer")
        << true << Process(failure) << true << false << QByteArray("fp");
    QTest::newRow("this is the agent") << true << Process(4242) << true << false << QByteArray("fp");
    QTest::newRow("the agent runs") << true << Process(12) << true << true << QByteArray("fps");
    QTest::newRow("the agent is stopped") << true << nobody << true << true << QByteArray("fps");
    QTest::newRow("the agent does not start") << true << nobody << false << false << QByteArray("fps");
}

void LaunchSupervisorTest::onlyACopyBesideTheAgentHandsOver()
{
    ScriptedManager manager;
    QFETCH(bool, isInstalled);
    QFETCH(Process, process);
    QFETCH(bool, starts);
    manager.isInstalled = isInstalled;
    manager.process = process;
    if (!starts)
        manager.started = failure;
    const LaunchSupervisor supervisor(manager, {u"--preview-overlay"_s}, 4242);
    QTEST(supervisor.redirectToRegisteredAgent(), "handedOver");
    QTEST(manager.asked, "asked");
}

void LaunchSupervisorTest::aPreviewAsksNobody()
{
    const ScriptedManager manager;
    const QStringList arguments{u"--preview-overlay"_s, u"--preview"_s};
    QVERIFY(!LaunchSupervisor(manager, arguments, 4242).redirectToRegisteredAgent());
    QCOMPARE(manager.asked, QByteArray());
}

QTEST_GUILESS_MAIN(LaunchSupervisorTest)

#include "launch_supervisor_test.moc"
