// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/LaunchSupervisor.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

using Process = Result<std::optional<qint32>>;

const auto failure = Failure(make_error_code(std::errc::timed_out));
constexpr qint32 ownId = 4242;

/// A service manager that says what the test lets it say; the real one is in systemd_manager_test and
/// system.supervision.
class ScriptedManager final : public ServiceManager
{
public:
    bool hasAgent() const override
    {
        asked.append(u"file"_s);
        return isInstalled;
    }
    Process agentProcess() const override
    {
        asked.append(u"process"_s);
        return process;
    }
    Result<void> startAgent() const override
    {
        asked.append(u"start"_s);
        return started;
    }

    bool isInstalled = true;
    Process process = std::optional<qint32>();
    Result<void> started;
    mutable QStringList asked;
};

} // namespace

Q_DECLARE_METATYPE(Process)

class LaunchSupervisorTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyACopyBesideTheAgentHandsOver_data();
    void onlyACopyBesideTheAgentHandsOver();
    void aPreviewIsNobodysCopy_data();
    void aPreviewIsNobodysCopy();
};

void LaunchSupervisorTest::onlyACopyBesideTheAgentHandsOver_data()
{
    QTest::addColumn<bool>("isInstalled");
    QTest::addColumn<Process>("process");
    QTest::addColumn<bool>("starts");
    QTest::addColumn<bool>("handedOver");
    QTest::addColumn<QString>("asked");
    const Process nobody = std::optional<qint32>();
    QTest::newRow("no agent") << false << nobody << true << false << "file";
    QTest::newRow("not loaded, or no answer") << true << Process(failure) << true << false << "file process";
    QTest::newRow("this is the agent") << true << Process(ownId) << true << false << "file process";
    QTest::newRow("the agent runs") << true << Process(12) << true << true << "file process start";
    QTest::newRow("the agent is stopped") << true << nobody << true << true << "file process start";
    QTest::newRow("the agent does not start") << true << nobody << false << false << "file process start";
}

void LaunchSupervisorTest::onlyACopyBesideTheAgentHandsOver()
{
    QFETCH(bool, isInstalled);
    QFETCH(Process, process);
    QFETCH(bool, starts);
    QFETCH(QString, asked);
    ScriptedManager manager;
    manager.isInstalled = isInstalled;
    manager.process = process;
    if (!starts)
        manager.started = failure;
    QTEST(LaunchSupervisor(manager, {}, ownId).redirectToRegisteredAgent(), "handedOver");
    QCOMPARE(manager.asked.join(u' '), asked);
}

void LaunchSupervisorTest::aPreviewIsNobodysCopy_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("isPreview");
    QTest::newRow("among others") << QStringList{u"--preview-overlay"_s, u"--preview"_s} << true;
    QTest::newRow("another option") << QStringList{u"--preview-overlay"_s} << false;
    QTest::newRow("a longer word") << QStringList{u"--previews"_s, u"x --preview"_s} << false;
}

void LaunchSupervisorTest::aPreviewIsNobodysCopy()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, isPreview);
    const ScriptedManager manager;
    QCOMPARE(LaunchSupervisor(manager, arguments, ownId).redirectToRegisteredAgent(), !isPreview);
    QCOMPARE(manager.asked.isEmpty(), isPreview);
}

QTEST_GUILESS_MAIN(LaunchSupervisorTest)

#include "launch_supervisor_test.moc"
