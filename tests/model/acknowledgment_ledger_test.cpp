// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/StrictJson.h"
#include "model/AcknowledgmentLedger.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;

class AcknowledgmentLedgerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void recordsSurviveInAFileOfTheirOwner();
    void aMissingFileIsAnEmptyTable();
    void aFileThatCannotBeUsedIsSetAside_data();
    void aFileThatCannotBeUsedIsSetAside();
    void aFullDiskLeavesTheOldFile();
    void aKilledWriterLeavesTheOldOrTheNewFile();
    void aLinkInTheWayIsNotWrittenThrough();
    void pruningKeepsTheRecentAndTheNeverShown();

private:
    static AlertRecords manyRecords(int count)
    {
        AlertRecords records;
        for (int i = 0; i < count; ++i)
            records.insert(QString::number(i), {.acknowledged = true, .shownAt = 1e9 + i});
        return records;
    }

    static QByteArray content(const QString &name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    std::unique_ptr<QTemporaryDir> dir;
    QString path;
};

void AcknowledgmentLedgerTest::init()
{
    dir = std::make_unique<QTemporaryDir>();
    path = dir->filePath(u"a/b/acknowledgments.json"_s);
}

void AcknowledgmentLedgerTest::recordsSurviveInAFileOfTheirOwner()
{
    AcknowledgmentLedger ledger(path);
    QVERIFY(ledger.load().has_value());
    const AlertRecords records{{u"1"_s, {.acknowledged = true, .shownAt = 1.5}},
                               {u"2"_s, {.snoozedUntil = 7, .phoneSent = true, .receipt = u"r"_s}}};
    ::umask(0);
    QVERIFY(!ledger.save(records));
    QCOMPARE(AcknowledgmentLedger(path).load().value(), records);
    struct stat info{};
    QCOMPARE(::stat(QFile::encodeName(path).constData(), &info), 0);
    QCOMPARE(info.st_mode & 0777, mode_t(0600));
    QCOMPARE(QDir(dir->filePath(u"a/b"_s)).entryList(QDir::Files), QStringList{u"acknowledgments.json"_s});
}

void AcknowledgmentLedgerTest::aMissingFileIsAnEmptyTable()
{
    QVERIFY(AcknowledgmentLedger(path).load().value().isEmpty());
    QVERIFY(!QFile::exists(path));
}

void AcknowledgmentLedgerTest::aFileThatCannotBeUsedIsSetAside_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray("");
    QTest::newRow("cut") << QByteArray(R"({"1":{"acknowledged":true,)");
    QTest::newRow("binary") << QByteArray("\0\xff\xfe", 3);
    QTest::newRow("another kind") << QByteArray("[]");
    QTest::newRow("no record") << QByteArray(R"({"1":true})");
    QTest::newRow("record without a key")
        << QByteArray(R"({"1":{"acknowledged":true,"snoozedUntil":0,"phoneSent":false}})");
}

void AcknowledgmentLedgerTest::aFileThatCannotBeUsedIsSetAside()
{
    QFETCH(QByteArray, bytes);
    QDir().mkpath(dir->filePath(u"a/b"_s));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();

    AcknowledgmentLedger ledger(path);
    QVERIFY(!ledger.load());
    QVERIFY(!ledger.save(manyRecords(1)));
    QCOMPARE(AcknowledgmentLedger(path).load().value(), manyRecords(1));
    const auto aside = QDir(dir->filePath(u"a/b"_s)).entryList({u"*.unreadable-*"_s}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QCOMPARE(content(dir->filePath(u"a/b/"_s + aside.front())), bytes);
}

void AcknowledgmentLedgerTest::aFullDiskLeavesTheOldFile()
{
    const QByteArray disk = QFile::encodeName(dir->path());
    if (::geteuid() != 0 || ::mount("none", disk.constData(), "tmpfs", 0, "size=64k") != 0)
        QSKIP("a small disk of one's own takes root");
    AcknowledgmentLedger ledger(path);
    QVERIFY(ledger.load().has_value());
    QVERIFY(!ledger.save(manyRecords(10)));
    const std::error_code error = ledger.save(manyRecords(2000));
    const auto kept = AcknowledgmentLedger(path).load();
    ::umount2(disk.constData(), MNT_DETACH);
    QVERIFY(error == std::errc::no_space_on_device);
    QCOMPARE(kept.value(), manyRecords(10));
}

void AcknowledgmentLedgerTest::aKilledWriterLeavesTheOldOrTheNewFile()
{
    AcknowledgmentLedger ledger(path);
    QVERIFY(ledger.load().has_value());
    QVERIFY(!ledger.save(manyRecords(500)));
    for (int round = 0; round < 60; ++round) {
        const pid_t writer = ::fork();
        if (writer == 0) {
            for (int count = 500;; count = 1500 - count)
                (void)ledger.save(manyRecords(count));
        }
        ::usleep(QRandomGenerator::global()->bounded(1000u, 15000u));
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        const auto left = AcknowledgmentLedger(path).load();
        QVERIFY2(left.has_value(), "a killed writer left a damaged file");
        QVERIFY(left->size() == 500 || left->size() == 1000);
    }
}

void AcknowledgmentLedgerTest::aLinkInTheWayIsNotWrittenThrough()
{
    const QString victim = dir->filePath(u"victim"_s);
    QFile file(victim);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("precious");
    file.close();
    AcknowledgmentLedger ledger(path);
    QVERIFY(ledger.load().has_value());
    QVERIFY(QFile::link(victim, path + u".new"_s));
    QVERIFY(!ledger.save(manyRecords(3)));
    QCOMPARE(content(victim), QByteArray("precious"));
    QCOMPARE(AcknowledgmentLedger(path).load().value(), manyRecords(3));
}

void AcknowledgmentLedgerTest::pruningKeepsTheRecentAndTheNeverShown()
{
    constexpr double now = 2e9;
    AlertRecords records = manyRecords(1997); // all shown long ago
    records.insert(u"never"_s, {});
    records.insert(u"at the limit"_s, {.shownAt = now - 2'592'000});
    records.insert(u"recent"_s, {.shownAt = now - 2'591'999});
    QCOMPARE(records.size(), 2000);
    QCOMPARE(AcknowledgmentLedger::pruned(records, now), records);
    records.insert(u"one more"_s, {});
    const AlertRecords kept = AcknowledgmentLedger::pruned(records, now);
    QStringList ids = kept.keys();
    ids.sort();
    QCOMPARE(ids, (QStringList{u"never"_s, u"one more"_s, u"recent"_s}));
}

QTEST_GUILESS_MAIN(AcknowledgmentLedgerTest)
#include "acknowledgment_ledger_test.moc"
