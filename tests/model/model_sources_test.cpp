// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "model/SourceList.h"
#include "tests/support/ModelFixture.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

class ModelSourcesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { f->fantastical->release(); }

    void aFailureIsToldInItsOwnWords_data();
    void aFailureIsToldInItsOwnWords();
    void aConnectionIsToldWithItsShortcomings_data();
    void aConnectionIsToldWithItsShortcomings();
    void beforeTheFirstRefreshEndsTheTextsSaySo();
    void aMeetingInBothSourcesIsShownOnce_data();
    void aMeetingInBothSourcesIsShownOnce();
    void aFailingSourceKeepsItsMeetings();
    void aCalendarThatIsSwitchedOffFallsSilentAtOnce();
    void aHangingReaderDelaysNoAlert();
    void aChangeDuringARefreshLeadsToOneMore();
    void choosingAFolderReadsIt();
    void aCacheThatNobodyChoseIsExpectedToo();

private:
    static constexpr double noon = ModelFixture::noon;
    static FantasticalSnapshot snapshot(const std::vector<Meeting> &events);
    static Meeting meeting(const QString &uid, double start);
    void refresh();

    std::unique_ptr<ModelFixture> f;
};

void ModelSourcesTest::init()
{
    f = std::make_unique<ModelFixture>();
    f->installReader();
}

Meeting ModelSourcesTest::meeting(const QString &uid, double start)
{
    return {.id = Meeting::identity(uid, start),
            .title = uid,
            .start = start,
            .end = start + 1800,
            .calendar = u"Second"_s,
            .joinURL = u"https://zoom.us/j/1"_s,
            .source = Meeting::systemSource};
}

FantasticalSnapshot ModelSourcesTest::snapshot(const std::vector<Meeting> &events)
{
    return {.events = events,
            .calendars = {{u"second"_s, u"Second"_s, u"Account"_s}},
            .checkedAt = noon,
            .cacheModifiedAt = noon};
}

void ModelSourcesTest::refresh()
{
    launch(f->model->refresh());
    QTRY_VERIFY(!f->model->isRefreshing());
}

void ModelSourcesTest::aFailureIsToldInItsOwnWords_data()
{
    QTest::addColumn<int>("exitStatus");
    QTest::addColumn<QByteArray>("said");
    QTest::addColumn<QString>("text");
    QTest::newRow("access denied")
        << 1 << QByteArray("access_denied\n")
        << u"Fantastical access was denied. Connect Apple Calendar to read your meetings."_s;
    QTest::newRow("no database")
        << 1 << QByteArray("database_unavailable")
        << u"Fantastical’s calendar cache cannot be opened. Check Quorvane’s access in macOS "
           "Privacy & Security, then refresh."_s;
    QTest::newRow("another format") << 1 << QByteArray("unsupported_format")
                                    << u"Fantastical’s calendar format changed. Connect Apple Calendar."_s;
    QTest::newRow("a failure") << 1 << QByteArray("out of order")
                               << u"The Fantastical reader could not run. Connect Apple Calendar or retry."_s;
    QTest::newRow("garbage")
        << 0 << QByteArray()
        << u"Fantastical returned an unreadable calendar. Retry or connect Apple Calendar."_s;
    QTest::newRow("not started") << -1 << QByteArray()
                                 << u"Calendar read failed. Retry or connect Apple Calendar."_s;
    QTest::newRow("not there")
        << -2 << QByteArray()
        << u"Calendar reader is missing. Reinstall Quorvane or connect Apple Calendar."_s;
}

void ModelSourcesTest::aFailureIsToldInItsOwnWords()
{
    QFETCH(int, exitStatus);
    QFETCH(QByteArray, said);
    QFETCH(QString, text);
    const QString off = u"Calendar access is off. Allow Quorvane in System Settings > Privacy & Security > "
                        "Calendars, then refresh."_s;
    if (exitStatus == -2)
        f->removeReader();
    if (exitStatus == -1)
        f->fantastical->answer(Failure(std::make_error_code(std::errc::executable_format_error)));
    else
        f->fantastical->answer(ProcessOutcome{.exitStatus = exitStatus, .errorOutput = said});
    f->store->failure = CalendarError::unavailable;
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->fantasticalStatus(), text);
    QCOMPARE(f->model->status(), off);
    QVERIFY(!f->model->fantasticalConnected());
    QVERIFY(!f->model->lastSuccessfulRead());

    f->store->failure = {};
    refresh();
    QCOMPARE(f->model->fantasticalStatus(),
             u"Apple Calendar connected. Fantastical access is blocked; saved meetings are retained."_s);
    QCOMPARE(f->model->status(), u"0 meetings scheduled for alerts"_s);
    QVERIFY(f->model->lastSuccessfulRead());
}

void ModelSourcesTest::aConnectionIsToldWithItsShortcomings_data()
{
    QTest::addColumn<int>("age");
    QTest::addColumn<int>("skipped");
    QTest::addColumn<QString>("text");
    QTest::newRow("in order") << 3600 << 0 << u"Fantastical connected"_s;
    QTest::newRow("old") << 3601 << 0
                         << u"Fantastical connected. Its last calendar sync is over an hour old."_s;
    QTest::newRow("from the future") << -3601 << 0 << u"Fantastical connected"_s;
    QTest::newRow("with broken records") << 0 << 3 << u"Fantastical: 3 records could not be read"_s;
    QTest::newRow("old and broken") << 3601 << 1 << u"Fantastical: 1 records could not be read"_s;
}

void ModelSourcesTest::aConnectionIsToldWithItsShortcomings()
{
    QFETCH(int, age);
    QFETCH(int, skipped);
    QFETCH(QString, text);
    FantasticalSnapshot read = snapshot({meeting(u"a"_s, noon + 1000)});
    read.skipped = skipped;
    read.cacheModifiedAt = noon - age;
    f->fantastical->answer(read);
    f->store->failure = CalendarError::unavailable;
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->fantasticalStatus(), text);
    QVERIFY(f->model->fantasticalConnected());
    // A connected source is enough: that the system has no store is not worth a word.
    QCOMPARE(f->model->status(), u"1 meetings scheduled for alerts"_s);
    QCOMPARE(f->model->freshCalendarEventCount(), 1);
    QCOMPARE(f->model->fantasticalCalendars(), read.calendars);
    QVERIFY(f->model->lastSuccessfulRead());
}

void ModelSourcesTest::beforeTheFirstRefreshEndsTheTextsSaySo()
{
    f->fantastical->hold();
    f->store->failure = CalendarError::unavailable;
    f->start();
    QTRY_COMPARE(f->fantastical->runs(), 1);
    QVERIFY(f->model->isRefreshing());
    QCOMPARE(f->model->status(), u"Connect your calendars to begin."_s);
    QCOMPARE(f->model->fantasticalStatus(), u"Connecting Fantastical…"_s);
    f->fantastical->release();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->fantasticalStatus(),
             u"The Fantastical reader could not run. Connect Apple Calendar or retry."_s);
    QVERIFY(f->model->lastRefresh());
}

void ModelSourcesTest::aMeetingInBothSourcesIsShownOnce_data()
{
    QTest::addColumn<QString>("uid");
    QTest::addColumn<QString>("title");
    QTest::newRow("same identifier, other title") << u"a"_s << u"Renamed there"_s;
    QTest::newRow("other identifier, same words") << u"b"_s << u" A "_s;
}

void ModelSourcesTest::aMeetingInBothSourcesIsShownOnce()
{
    QFETCH(QString, uid);
    QFETCH(QString, title);
    f->store->add(u"a"_s, noon + 100);
    Meeting same = meeting(uid, noon + 100);
    same.title = title;
    f->fantastical->answer(snapshot({same, meeting(u"c"_s, noon + 5000)}));
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->calendarEvents().size(), std::size_t(2));
    if (uid == u"a"_s) // the system's store has the first word
        QCOMPARE(f->model->calendarEvents().front().title, u"a"_s);
    QCOMPARE(f->model->status(), u"2 meetings scheduled for alerts"_s);
    QCOMPARE(f->model->freshCalendarEventCount(), 3);
}

void ModelSourcesTest::aFailingSourceKeepsItsMeetings()
{
    f->fantastical->answer(snapshot({meeting(u"a"_s, noon + 100)}));
    f->store->add(u"b"_s, noon + 5000);
    f->start();
    QTRY_COMPARE(f->model->meetings().size(), std::size_t(2));
    f->fantastical->answer(ProcessOutcome{.exitStatus = 137});
    refresh();
    QCOMPARE(f->model->meetings().size(), std::size_t(2));
    QCOMPARE(f->model->freshCalendarEventCount(), 1);
    f->store->reading.events.clear(); // what the system's store says still counts
    refresh();
    QCOMPARE(f->model->meetings().size(), std::size_t(1));
    f->store->failure = CalendarError::timedOut;
    refresh();
    QCOMPARE(f->model->meetings().size(), std::size_t(1));
    f->tickAt(noon + 40);
    QCOMPARE(f->shown(), Meeting::identity(u"a"_s, noon + 100));
    QTRY_VERIFY(!f->model->isRefreshing()); // the tick began one
    f->fantastical->answer(snapshot({}));
    refresh();
    QVERIFY(f->model->meetings().empty());
    QCOMPARE(f->shown(), QString());
}

void ModelSourcesTest::aCalendarThatIsSwitchedOffFallsSilentAtOnce()
{
    f->fantastical->answer(snapshot({meeting(u"a"_s, noon + 30)}));
    f->start();
    QTRY_COMPARE(f->shown(), Meeting::identity(u"a"_s, noon + 30));
    f->fantastical->answer(ProcessOutcome{.exitStatus = 1});
    f->addSetting(u"excludedCalendars=second, “third”"_s);
    refresh();
    QCOMPARE(f->shown(), QString());
    QCOMPARE(f->fantastical->lastInput(), QByteArray(R"(["second","“third”"])"));
    QCOMPARE(f->model->fantasticalCalendars().size(), std::size_t(1));
}

void ModelSourcesTest::aHangingReaderDelaysNoAlert()
{
    f->store->add(u"a"_s, noon + 100);
    f->fantastical->hold();
    f->start();
    QTRY_COMPARE(f->fantastical->runs(), 1);
    QCOMPARE(f->model->status(), u"1 meetings scheduled for alerts"_s); // the other source waits for nobody
    f->tickAt(noon + 39);
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + 40);
    QCOMPARE(f->shown(), Meeting::identity(u"a"_s, noon + 100));
    QVERIFY(f->model->isRefreshing());
}

void ModelSourcesTest::aChangeDuringARefreshLeadsToOneMore()
{
    f->fantastical->hold();
    f->start();
    QTRY_COMPARE(f->fantastical->runs(), 1);
    for (int i = 0; i < 3; ++i)
        Q_EMIT f->wakes.woke();
    launch(f->model->refresh());
    f->fantastical->release();
    QTRY_COMPARE(f->fantastical->runs(), 2);
    QTRY_VERIFY(!f->model->isRefreshing());
    QTest::qWait(300); // longer than changes are gathered
    QCOMPARE(f->fantastical->runs(), 2);
}

void ModelSourcesTest::choosingAFolderReadsIt()
{
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    const int before = f->fantastical->runs();
    launch(f->model->connectFantastical()); // dismissed
    QCOMPARE(f->fantastical->runs(), before);
    f->chooser.answer = f->cacheFolder();
    launch(f->model->connectFantastical());
    QTRY_COMPARE(f->fantastical->runs(), before + 1);
    QCOMPARE(f->preferences.fantasticalFolder(), f->cacheFolder());
}

void ModelSourcesTest::aCacheThatNobodyChoseIsExpectedToo()
{
    f->start();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->model->sources().size(), std::size_t(1));
    f->addDefaultCache();
    refresh();
    QTRY_COMPARE(f->model->sources().size(), std::size_t(2));
    QCOMPARE(SourceList::failing(f->model->sources()), 1);
}

QTEST_MAIN(ModelSourcesTest)
#include "model_sources_test.moc"
