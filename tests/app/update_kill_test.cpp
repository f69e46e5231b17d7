// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/UpdateFixture.h"

#include "updates/linux/VersionTrial.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// Kills updates. There is no application object here, so that processes can be made by fork(2).
class UpdateKillTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aKilledUpdateLeavesTheOldOrTheNewVersion();

private:
    [[nodiscard]] static bool update(const UpdateFixture &f, const UpdateItem &item,
                                     const QByteArray &archive);
    [[nodiscard]] static pid_t startUpdate(const UpdateFixture &f, const UpdateItem &item,
                                           const QByteArray &archive);
    [[nodiscard]] static QByteArray whatRuns(const UpdateFixture &f);
    static void backToTheOldVersion(const UpdateFixture &f);
};

bool UpdateKillTest::update(const UpdateFixture &f, const UpdateItem &item, const QByteArray &archive)
{
    VersionedInstaller installer(f.setup());
    return (installer.isPrepared(item) || UpdateFixture::prepared(installer, item, archive)) &&
           installer.activate(item, {});
}

pid_t UpdateKillTest::startUpdate(const UpdateFixture &f, const UpdateItem &item, const QByteArray &archive)
{
    const pid_t process = ::fork();
    if (process != 0)
        return process;
    char name[] = "update";
    char *arguments[] = {name, nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments);
    ::_exit(update(f, item, archive) ? 0 : 1);
}

QByteArray UpdateKillTest::whatRuns(const UpdateFixture &f)
{
    const auto outcome = PosixProcessRunner().run({.program = f.tree.path(u"current/bin/quorvane"_s)});
    return outcome ? outcome->output.trimmed() : QByteArray("nothing");
}

void UpdateKillTest::backToTheOldVersion(const UpdateFixture &f)
{
    QFile::remove(f.tree.path(u"trial.json"_s));
    f.tree.makeCurrent(u"811"_s);
    QDir(f.tree.path(u"versions/812"_s)).removeRecursively();
}

void UpdateKillTest::aKilledUpdateLeavesTheOldOrTheNewVersion()
{
    const UpdateFixture f;
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    const UpdateItem item = itemFor(archive, u"812"_s, f.key);
    QElapsedTimer timer;
    timer.start();
    int status = 0;
    ::waitpid(startUpdate(f, item, archive), &status, 0);
    QCOMPARE(status, 0);
    const auto whole = static_cast<quint32>(timer.nsecsElapsed() / 1000);

    int updated = 0;
    for (int round = 0; round < 100; ++round) {
        backToTheOldVersion(f);
        const pid_t process = startUpdate(f, item, archive);
        // Every other one near the end, where versions are moved.
        const quint32 earliest = round % 2 == 0 ? 0 : whole * 3 / 4;
        ::usleep(QRandomGenerator::global()->bounded(earliest, whole + whole / 8));
        ::kill(process, SIGKILL);
        ::waitpid(process, nullptr, 0);
        const QByteArray left = whatRuns(f);
        QVERIFY2(left == "811" || left == "812", left.constData());
        updated += left == "812" ? 1 : 0;
        ::waitpid(startUpdate(f, item, archive), &status, 0);
        QCOMPARE(status, 0);
        QCOMPARE(whatRuns(f), QByteArray("812"));
        QCOMPARE(VersionTrial::begin(f.tree.seenBy(u"812"_s)).outcome(), VersionTrial::Outcome::onTrial);
    }
    qInfo("an update takes %u ms; %d of 100 were in place when they were killed", whole / 1000, updated);
}

QTEST_APPLESS_MAIN(UpdateKillTest)
#include "update_kill_test.moc"
