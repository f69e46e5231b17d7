// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/FantasticalReader.h"
#include "calendars/records/FantasticalCache.h"
#include "calendars/records/FantasticalReadError.h"
#include "process/linux/PosixProcessRunner.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <semaphore>

#include <sys/resource.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;
using Error = FantasticalReadError;

/// Comes back only when it is let go, as when the system cannot end a killed program.
class StuckRunner final : public ProcessRunner
{
public:
    mutable std::counting_semaphore<> letGo{0};
    mutable std::atomic<int> calls = 0;

    Result<ProcessOutcome> run(const ProcessRequest &request) const override
    {
        ++calls;
        letGo.acquire();
        return PosixProcessRunner().run(request);
    }
};

/// The reader executable is a script that a test writes for the occasion; it finds its files in $HOME.
class FantasticalReaderTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theReaderIsToldWhatTheContractSays_data();
    void theReaderIsToldWhatTheContractSays();
    void anAnswerIsTakenAsItIs_data();
    void anAnswerIsTakenAsItIs();
    void aReaderThatCannotBeStartedIsAnError_data();
    void aReaderThatCannotBeStartedIsAnError();
    void aReaderThatMisbehavesIsEnded_data();
    void aReaderThatMisbehavesIsEnded();
    void readingsAreIndependentOfEachOther();
    void aReadingOutlivesItsReader();
    void readingsThatHangDoNotPileUp();
    void fifteenSecondsAreEnough();

private:
    QCoro::Task<Result<FantasticalSnapshot>> readSlowest(FantasticalReader::Configuration given);
    FantasticalReader::Configuration configuration(const QString &script) const;
    QString write(const QString &name, const QByteArray &content) const;
    QByteArray content(const QString &name) const;
    static std::error_code errorOf(const Result<FantasticalSnapshot> &reading)
    {
        return reading ? std::error_code() : reading.error();
    }

    QTemporaryDir m_home;
    QString m_folder;
    FantasticalSnapshot m_snapshot{.events = {{.id = u"a"_s, .title = u"Plan “B”"_s, .start = 1, .end = 2}},
                                   .calendars = {{u"c"_s, u"Work"_s, u"Mail"_s}},
                                   .skipped = 1,
                                   .checkedAt = 3,
                                   .cacheModifiedAt = 4};
    qint64 m_slowestTook = 0; // ms
    std::optional<QCoro::Task<Result<FantasticalSnapshot>>> m_slowest;
};

void FantasticalReaderTest::initTestCase()
{
    QVERIFY(m_home.isValid());
    const QByteArray json = m_snapshot.toJson();
    write(u"valid"_s, json);
    write(u"longest"_s, json + QByteArray(8'000'000 - json.size(), ' '));
    write(u"longer"_s, json + QByteArray(8'000'001 - json.size(), '\n'));
    // Runs out while the other tests go on; looked at by the last one.
    FantasticalReader::Configuration slow = configuration(u"sleep 1000"_s);
    slow.timeLimit = FantasticalReader::Configuration{}.timeLimit;
    m_slowest = readSlowest(slow);
}

QCoro::Task<Result<FantasticalSnapshot>>
FantasticalReaderTest::readSlowest(FantasticalReader::Configuration given)
{
    QElapsedTimer elapsed;
    elapsed.start();
    const FantasticalReader reader(given);
    const QStringList none;
    auto reading = co_await reader.read(none);
    m_slowestTook = elapsed.elapsed();
    co_return reading;
}

QString FantasticalReaderTest::write(const QString &name, const QByteArray &content) const
{
    QFile file(m_home.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("Cannot write %s.", qPrintable(name));
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return file.fileName();
}

QByteArray FantasticalReaderTest::content(const QString &name) const
{
    QFile file(m_home.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?");
}

FantasticalReader::Configuration FantasticalReaderTest::configuration(const QString &script) const
{
    static int number = 0;
    QString program = write(u"reader-%1"_s.arg(++number), "#!/bin/sh\n" + script.toUtf8() + '\n');
    return {.program = [program] { return program; },
            .home = m_home.path(),
            .folder = [this] { return m_folder; },
            .runner = std::make_shared<PosixProcessRunner>(),
            .timeLimit = 60s};
}

void FantasticalReaderTest::theReaderIsToldWhatTheContractSays_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("arguments");
    const QString chosen = m_home.filePath(u"Chosen “folder”"_s);
    QVERIFY(QDir().mkpath(chosen));
    const QString path = chosen + u"/Fantastical-8.fcdata"_s;
    QTest::newRow("no folder chosen") << QString() << u"0:"_s;
    QTest::newRow("a folder that is gone") << m_home.filePath(u"gone"_s) << u"0:"_s;
    QTest::newRow("a file instead of a folder") << m_home.filePath(u"valid"_s) << u"0:"_s;
    QTest::newRow("no full path") << u"tmp"_s << u"0:"_s;
    QTest::newRow("a folder, also without the cache in it") << chosen << u"1:"_s + path;
    QTest::newRow("a folder with a slash") << chosen + u'/' << u"1:"_s + path;
}

void FantasticalReaderTest::theReaderIsToldWhatTheContractSays()
{
    QFETCH(QString, folder);
    QFETCH(QString, arguments);
    m_folder = folder;
    const FantasticalReader reader(configuration(
        u"tr '\\0' '\\n' </proc/$$/environ | sort >$HOME/environment; printf %s \"$#:$1\" >$HOME/arguments\n"
        "nice >$HOME/nice; cat >$HOME/input; cat $HOME/valid"_s));
    const auto reading = QCoro::waitFor(reader.read({u"a"_s, u"“b”\"\n"_s}));
    m_folder.clear();
    QVERIFY(reading);
    QCOMPARE(content(u"environment"_s),
             "HOME=" + m_home.path().toUtf8() + "\nPATH=/usr/bin:/bin\nTZ=Asia/Jerusalem\n");
    QCOMPARE(QString::fromUtf8(content(u"arguments"_s)), arguments);
    QCOMPARE(content(u"input"_s), QByteArray(R"(["a","“b”\"\n"])"));
    QVERIFY(content(u"nice"_s).toInt() > 0);
}

void FantasticalReaderTest::anAnswerIsTakenAsItIs_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<std::error_code>("error");
    const auto row = [](const char *name, const QString &script, const std::error_code &error = {}) {
        QTest::newRow(name) << script << error;
    };
    row("a snapshot", u"cat $HOME/valid"_s);
    row("a snapshot, input unread", u"exec <&-; cat $HOME/valid"_s);
    row("the longest snapshot", u"cat $HOME/longest"_s);
    row("a byte too long", u"cat $HOME/longer"_s, Error::invalidData);
    row("far too long", u"head -c 100000000 /dev/zero"_s, Error::invalidData);
    row("nothing", u":"_s, Error::invalidData);
    row("garbage", u"echo garbage"_s, Error::invalidData);
    row("two snapshots", u"cat $HOME/valid $HOME/valid"_s, Error::invalidData);
    row("without the cache's age", u"sed s/cacheModifiedAt/other/ $HOME/valid"_s, Error::invalidData);
    row("a snapshot and a word", u"cat $HOME/valid; echo access_denied >&2"_s);
    row("a snapshot and a failure", u"cat $HOME/valid; exit 1"_s, Error::helperFailed);
    row("denied", u"echo access_denied >&2; exit 1"_s, Error::accessDenied);
    row("denied, with blanks", u"printf ' \\n\\taccess_denied\\302\\240\\r\\n' >&2; exit 255"_s,
        Error::accessDenied);
    row("no database", u"printf database_unavailable >&2; exit 2"_s, Error::databaseUnavailable);
    row("another format", u"printf unsupported_format >&2; exit 3"_s, Error::unsupportedFormat);
    row("two words", u"echo access_denied unsupported_format >&2; exit 1"_s, Error::helperFailed);
    row("a word on the wrong stream", u"echo access_denied; exit 1"_s, Error::helperFailed);
    row("no UTF-8", u"printf 'access_denied \\377' >&2; exit 1"_s, Error::helperFailed);
    row("cut UTF-8", u"printf 'access_denied \\303' >&2; exit 1"_s, Error::helperFailed);
    row("silence", u"exit 1"_s, Error::helperFailed);
    row("a crash", u"kill -SEGV $$"_s, Error::helperFailed);
    row("a snapshot, then a crash", u"cat $HOME/valid; kill -SEGV $$"_s, Error::helperFailed);
}

void FantasticalReaderTest::anAnswerIsTakenAsItIs()
{
    QFETCH(QString, script);
    QFETCH(std::error_code, error);
    const auto reading = QCoro::waitFor(FantasticalReader(configuration(script)).read({}));
    QCOMPARE(errorOf(reading), error);
    QVERIFY(!reading || *reading == m_snapshot);
}

void FantasticalReaderTest::aReaderThatCannotBeStartedIsAnError_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<std::error_code>("error");
    QFile locked(write(u"locked"_s, "#!/bin/sh\n"));
    QVERIFY(locked.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    QTest::newRow("no resources") << QString() << make_error_code(Error::helperMissing);
    QTest::newRow("not there") << m_home.filePath(u"gone"_s) << make_error_code(Error::helperMissing);
    QTest::newRow("a folder") << m_home.path() << make_error_code(Error::helperMissing);
    QTest::newRow("not executable") << locked.fileName() << make_error_code(Error::helperMissing);
    QTest::newRow("no program") << write(u"text"_s, "text")
                                << std::make_error_code(std::errc::executable_format_error);
    QTest::newRow("without its interpreter")
        << write(u"orphan"_s, "#!/gone\n") << std::make_error_code(std::errc::no_such_file_or_directory);
}

void FantasticalReaderTest::aReaderThatCannotBeStartedIsAnError()
{
    QFETCH(QString, program);
    QFETCH(std::error_code, error);
    FantasticalReader::Configuration broken = configuration({});
    broken.program = [program] { return program; };
    QCOMPARE(errorOf(QCoro::waitFor(FantasticalReader(broken).read({}))), error);
}

void FantasticalReaderTest::aReaderThatMisbehavesIsEnded_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<int>("excluded");
    QTest::addColumn<std::chrono::milliseconds>("timeLimit");
    QTest::addColumn<std::error_code>("error");
    const int much = 10'000; // more than a pipe holds
    const auto row = [](const char *name, const QString &script, const std::error_code &error,
                        int excluded = 0) {
        const bool endsByItself = error != Error::helperFailed && error != std::errc::timed_out;
        QTest::newRow(name) << script << excluded << (endsByItself ? std::chrono::milliseconds(60s) : 300ms)
                            << error;
    };
    const auto snapshot = std::error_code();
    row("never ends", u"sleep 1000"_s, Error::helperFailed);
    row("will not be asked to end", u"trap '' TERM; while :; do sleep 1000; done"_s, Error::helperFailed);
    row("stops itself", u"kill -STOP $$"_s, Error::helperFailed);
    row("answers and stays", u"cat $HOME/valid; exec >&- 2>&-; sleep 1000"_s, Error::helperFailed);
    row("writes without end", u"exec yes"_s, Error::helperFailed);
    row("complains without end", u"exec yes >&2"_s, Error::helperFailed);
    row("never reads", u"sleep 1000"_s, std::make_error_code(std::errc::timed_out), much);
    row("will not read", u"exec <&-; sleep 1000"_s, std::make_error_code(std::errc::broken_pipe), much);
    row("ends without reading", u"cat $HOME/valid"_s, std::make_error_code(std::errc::broken_pipe), much);
    row("leaves a child behind", u"sleep 1000 & cat $HOME/valid"_s, snapshot);
    row("leaves a child in another session", u"setsid sleep 8 & cat $HOME/valid"_s, snapshot);
}

void FantasticalReaderTest::aReaderThatMisbehavesIsEnded()
{
    QFETCH(QString, script);
    QFETCH(int, excluded);
    QFETCH(std::chrono::milliseconds, timeLimit);
    QFETCH(std::error_code, error);
    FantasticalReader::Configuration given = configuration(script);
    given.timeLimit = timeLimit;
    const FantasticalReader reader(given);
    rusage before{};
    rusage after{};
    ::getrusage(RUSAGE_SELF, &before);
    int turns = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, &timer, [&turns] { ++turns; });
    timer.start(20ms);
    QElapsedTimer elapsed;
    elapsed.start();
    const auto reading = QCoro::waitFor(reader.read(QStringList(excluded, u"a calendar's name"_s)));
    QCOMPARE(errorOf(reading), error);
    QVERIFY2(elapsed.elapsed() < 6'000, qPrintable(QString::number(elapsed.elapsed())));
    if (elapsed.elapsed() > 200)
        QVERIFY(turns > 3); // the event loop kept turning
    ::getrusage(RUSAGE_SELF, &after);
    QVERIFY(after.ru_maxrss - before.ru_maxrss < 60'000); // kB
}

void FantasticalReaderTest::readingsAreIndependentOfEachOther()
{
    const FantasticalReader good(configuration(u"cat $HOME/valid"_s));
    FantasticalReader::Configuration hanging = configuration(u"sleep 1000"_s);
    hanging.timeLimit = 2s;
    const FantasticalReader bad(hanging);
    auto slow = bad.read({});
    std::vector<QCoro::Task<Result<FantasticalSnapshot>>> quick;
    for (int i = 0; i < 10; ++i)
        quick.push_back(good.read({}));
    for (auto &reading : quick)
        QVERIFY(QCoro::waitFor(reading));
    QVERIFY(!slow.isReady());
    QCOMPARE(errorOf(QCoro::waitFor(slow)), make_error_code(Error::helperFailed));
}

void FantasticalReaderTest::aReadingOutlivesItsReader()
{
    auto reader = std::make_unique<FantasticalReader>(configuration(u"sleep 0.2; cat $HOME/valid"_s));
    auto awaited = reader->read({});
    {
        const auto abandoned = reader->read({});
    }
    reader.reset();
    QVERIFY(QCoro::waitFor(awaited));
}

void FantasticalReaderTest::readingsThatHangDoNotPileUp()
{
    const auto runner = std::make_shared<StuckRunner>();
    FantasticalReader::Configuration given = configuration(u"cat $HOME/valid"_s);
    given.runner = runner;
    given.timeLimit = 500ms;
    given.grace = 0ms;
    const FantasticalReader reader(given);
    const auto failed = make_error_code(Error::helperFailed);
    auto first = reader.read({});
    auto second = reader.read({}); // the first is not overdue yet
    QCOMPARE(errorOf(QCoro::waitFor(first)), failed);
    QCOMPARE(errorOf(QCoro::waitFor(second)), failed);
    for (const int released : {0, 1}) {
        runner->letGo.release(released);
        QTest::qWait(100);
        auto refused = reader.read({});
        QVERIFY(refused.isReady());
        QCOMPARE(errorOf(QCoro::waitFor(refused)), failed);
    }
    QCOMPARE(runner->calls.load(), 2);
    runner->letGo.release(1000);
    const auto isRead = [&reader] { return QCoro::waitFor(reader.read({})).has_value(); };
    QVERIFY(QTest::qWaitFor(isRead, 30'000));
}

void FantasticalReaderTest::fifteenSecondsAreEnough()
{
    QCOMPARE(errorOf(QCoro::waitFor(*m_slowest)), make_error_code(Error::helperFailed));
    QVERIFY2(m_slowestTook >= 15'000 && m_slowestTook < 18'000, qPrintable(QString::number(m_slowestTook)));
}

QTEST_GUILESS_MAIN(FantasticalReaderTest)
#include "fantastical_reader_test.moc"
