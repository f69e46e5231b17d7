// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SettingsFile.h"

#include "tests/support/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <atomic>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quorvane;

using Condition = SettingsFile::Condition;

Q_DECLARE_METATYPE(quorvane::SettingsFile::Condition)

namespace {

/// How long the disk takes to keep what was written, in milliseconds.
std::atomic<unsigned> slowness{0};

} // namespace

/// Stands in for the C library's: disks are as slow as that where much else is going on.
extern "C" int fdatasync(int file)
{
    ::usleep(1000 * slowness);
    return static_cast<int>(::syscall(SYS_fdatasync, file));
}

class SettingsFileTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void whatCannotBeUsedIsSetAside_data();
    void whatCannotBeUsedIsSetAside();
    void aFolderInItsPlaceIsSetAside();
    void aFullDiskLeavesTheDamagedFileInItsPlace();
    void aKilledWriterLeavesTheOldOrTheNewFile();
    void copiesThatWriteAtOnceLoseNothing();
    void aStoppedCopyHoldsNobodyUp();

private:
    void write(const QByteArray &bytes) const
    {
        QFile out(file->path());
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(bytes);
    }
    [[nodiscard]] QStringList setAside() const { return QDir(dir->path()).entryList({u"*.damaged-*"_s}); }
    [[nodiscard]] pid_t fork(const std::function<void()> &child) const
    {
        const pid_t id = ::fork();
        if (id == 0) {
            child();
            ::_exit(0);
        }
        return id;
    }

    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<SettingsFile> file;
};

void SettingsFileTest::init()
{
    dir = std::make_unique<QTemporaryDir>();
    file = std::make_unique<SettingsFile>(dir->filePath(u"settings.ini"_s));
}

void SettingsFileTest::whatCannotBeUsedIsSetAside_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Condition>("condition");
    QTest::addColumn<QString>("kept");
    const QByteArray good = "[General]\nserverURL=https://a.example\n";
    QTest::newRow("empty") << QByteArray() << Condition::sound << QString();
    QTest::newRow("good") << good + "; a comment\n" << Condition::sound << u"https://a.example"_s;
    QTest::newRow("zeros after a power cut") << QByteArray(4096, '\0') << Condition::unusable << QString();
    QTest::newRow("zeros in the middle") << good + QByteArray(8, '\0') << Condition::unusable << QString();
    QTest::newRow("no UTF-8") << good + "a=B\xFCro\n" << Condition::unusable << QString();
    QTest::newRow("huge") << good + QByteArray(SettingsFile::largest, '\n') << Condition::unusable
                          << QString();
    QTest::newRow("a line that is none") << good + "hello\n" << Condition::partly << u"https://a.example"_s;
    QTest::newRow("cut off") << good + "meetingChoices=\"{\\\"a\\\":tr" << Condition::partly
                             << u"https://a.example"_s;
    QTest::newRow("choices of another kind") << good + "meetingChoices=\"{\\\"a\\\":1}\"\n"
                                             << Condition::partly << u"https://a.example"_s;
}

void SettingsFileTest::whatCannotBeUsedIsSetAside()
{
    QFETCH(QByteArray, content);
    QFETCH(Condition, condition);
    QFETCH(QString, kept);
    write(content);
    QCOMPARE(file->condition(), condition);
    QVERIFY(file->edit([] { return SettingsFile::Changes{{u"new"_s, 1}}; }));
    QCOMPARE(file->condition(), Condition::sound);
    QCOMPARE(file->value(u"new"_s), QVariant(u"1"_s));
    QCOMPARE(file->value(u"serverURL"_s).toString(), kept);
    QVERIFY(!file->value(u"meetingChoices"_s).isValid());
    QCOMPARE(setAside().size(), condition == Condition::sound ? 0 : 1);
    if (condition == Condition::sound)
        return;
    QFile aside(dir->filePath(setAside().constFirst()));
    QVERIFY(aside.open(QIODevice::ReadOnly));
    QVERIFY(aside.readAll() == content);
}

void SettingsFileTest::aFolderInItsPlaceIsSetAside()
{
    QVERIFY(QDir().mkpath(file->path() + u"/something of the user's"_s));
    QCOMPARE(file->condition(), Condition::unusable);
    QVERIFY(file->edit([] { return SettingsFile::Changes{{u"new"_s, 1}}; }));
    QCOMPARE(file->value(u"new"_s).toInt(), 1);
    QVERIFY(QDir(dir->filePath(setAside().constFirst())).exists(u"something of the user's"_s));
}

void SettingsFileTest::aFullDiskLeavesTheDamagedFileInItsPlace()
{
    const auto edit = [this] { return file->edit([] { return SettingsFile::Changes{{u"new"_s, 1}}; }); };
    const QByteArray damaged = "[General]\nserverURL=https://a.example\nhello\n";
    write(damaged);
    int told = 0;
    file->whenSetAside([&told] { ++told; });
    {
        const FullDisk full;
        QVERIFY(!edit());
    }
    QFile still(file->path());
    QVERIFY(still.open(QIODevice::ReadOnly));
    QCOMPARE(still.readAll(), damaged);
    QCOMPARE(QDir(dir->path()).entryList(QDir::Files), QStringList(u"settings.ini"_s));
    QCOMPARE(told, 0);
    QVERIFY(edit());
    QCOMPARE(told, 1);
    QCOMPARE(file->value(u"serverURL"_s).toString(), u"https://a.example"_s);
    QCOMPARE(file->value(u"new"_s).toInt(), 1);
}

void SettingsFileTest::aKilledWriterLeavesTheOldOrTheNewFile()
{
    const QStringList all{QString(20'000, u'a'), QString(30'000, u'b')};
    QVERIFY(file->edit([&] { return SettingsFile::Changes{{u"long"_s, all[0]}, {u"other"_s, u"kept"_s}}; }));
    for (int round = 0; round < 60; ++round) {
        const pid_t writer = fork([&] {
            for (int i = 0;; ++i)
                (void)file->edit([&] { return SettingsFile::Changes{{u"long"_s, all[i % 2]}}; });
        });
        ::usleep(QRandomGenerator::global()->bounded(1000u, 25'000u));
        ::kill(writer, SIGKILL);
        ::waitpid(writer, nullptr, 0);
        QCOMPARE(file->condition(), Condition::sound);
        QVERIFY(all.contains(file->value(u"long"_s).toString()));
        QCOMPARE(file->value(u"other"_s).toString(), u"kept"_s);
    }
    QVERIFY(file->edit([&] { return SettingsFile::Changes{{u"long"_s, all[0]}}; })); // no lock is left behind
}

void SettingsFileTest::copiesThatWriteAtOnceLoseNothing()
{
    constexpr int rounds = 20;
    slowness = 20;
    std::array<pid_t, 3> copies{};
    for (std::size_t copy = 0; copy < copies.size(); ++copy) {
        copies[copy] = fork([&] {
            SettingsFile own(file->path());
            for (int i = 0; i < rounds; ++i) {
                (void)own.edit([&] {
                    const QStringList list = own.value(u"list"_s).toStringList();
                    return SettingsFile::Changes{
                        {u"list"_s, list + QStringList(u"%1-%2"_s.arg(copy).arg(i))}};
                });
                ::usleep(3000);
            }
        });
    }
    for (const pid_t copy : copies)
        ::waitpid(copy, nullptr, 0);
    slowness = 0;
    QCOMPARE(file->value(u"list"_s).toStringList().size(), int(copies.size()) * rounds);
}

void SettingsFileTest::aStoppedCopyHoldsNobodyUp()
{
    const pid_t copy = fork([this] {
        (void)file->edit([]() -> SettingsFile::Changes {
            ::pause();
            return {};
        });
    });
    const int folder = ::open(QFile::encodeName(dir->path()).constData(), O_RDONLY | O_DIRECTORY);
    const auto isFree = [folder] {
        return ::flock(folder, LOCK_EX | LOCK_NB) == 0 && ::flock(folder, LOCK_UN) == 0;
    };
    QTRY_VERIFY(!isFree());
    for (const int value : {1, 2}) {
        QVERIFY(file->edit([value] { return SettingsFile::Changes{{u"new"_s, value}}; }));
        QCOMPARE(file->value(u"new"_s).toInt(), value);
    }
    ::kill(copy, SIGKILL);
    ::waitpid(copy, nullptr, 0);
    QTRY_VERIFY(isFree()); // also by those who waited
    ::close(folder);
}

QTEST_GUILESS_MAIN(SettingsFileTest)

#include "settings_file_test.moc"
