// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "tests/support/ModelFixture.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

class ModelRefreshTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<ModelFixture>(); }

    void anAlertThatIsNoLongerDueIsTakenAway_data();
    void anAlertThatIsNoLongerDueIsTakenAway();
    void aMovedMeetingAlertsAtItsNewTimeOnly();
    void aFailingStoreKeepsTheMeetings();
    void aHangingStoreDelaysNoAlert();
    void twoRefreshesTogetherRunOnce();
    void changesWakesAndClockChangesLeadToARefresh();
    void aRefreshIsDueEveryThirtySeconds();
    void theUsersChoicesAndExclusionsAreObeyed();
    void previewModeTouchesNothing();
    void withoutACalendarStoreTheStatusSaysSo();

private:
    static constexpr double noon = ModelFixture::noon;
    static QString idOf(const QString &uid, double start) { return Meeting::identity(uid, start); }

    std::unique_ptr<ModelFixture> f;
};

void ModelRefreshTest::anAlertThatIsNoLongerDueIsTakenAway_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"cancelled", "deleted", "moved", "over", "switched off"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void ModelRefreshTest::anAlertThatIsNoLongerDueIsTakenAway()
{
    QFETCH(QString, what);
    f->store->add(u"a"_s, noon + 30);
    f->start();
    QVERIFY(!f->shown().isEmpty());
    if (what == u"cancelled"_s)
        f->store->reading.events.front().status = EventStatus::cancelled;
    else if (what == u"deleted"_s)
        f->store->reading.events.clear();
    else if (what == u"moved"_s)
        f->store->reading.events.front().start += 3600, f->store->reading.events.front().end += 3600;
    else if (what == u"over"_s)
        f->clock.time = noon + 30 + 121;
    else
        f->addSetting(u"excludedCalendars=c"_s);
    launch(f->model->refresh());
    QCOMPARE(f->shown(), QString());
}

void ModelRefreshTest::aMovedMeetingAlertsAtItsNewTimeOnly()
{
    f->store->add(u"a"_s, noon + 100);
    f->start();
    f->store->reading.events.clear();
    f->store->add(u"a"_s, noon + 1000);
    launch(f->model->refresh());
    f->tickAt(noon + 40);
    f->tickAt(noon + 100);
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + 940);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 1000));
}

void ModelRefreshTest::aFailingStoreKeepsTheMeetings()
{
    f->store->add(u"a"_s, noon + 100);
    f->start();
    f->store->failure = CalendarError::timedOut;
    launch(f->model->refresh());
    QCOMPARE(
        f->model->status(),
        u"Test store did not answer; its saved meetings are retained. 1 meetings scheduled for alerts"_s);
    f->tickAt(noon + 40);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 100));
}

void ModelRefreshTest::aHangingStoreDelaysNoAlert()
{
    f->store->add(u"a"_s, noon + 160);
    f->start();
    f->store->hangs = true;
    f->tickAt(noon + 99); // a refresh is due and begins to hang
    QVERIFY(f->model->isRefreshing());
    f->tickAt(noon + 100);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 160));
    f->store->hangs = false;
    Q_EMIT f->store->released();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 160));
}

void ModelRefreshTest::twoRefreshesTogetherRunOnce()
{
    f->start();
    f->store->hangs = true;
    const int before = f->store->listings;
    launch(f->model->refresh());
    launch(f->model->refresh());
    f->store->hangs = false;
    Q_EMIT f->store->released();
    QTRY_VERIFY(!f->model->isRefreshing());
    QCOMPARE(f->store->listings, before + 1);
}

void ModelRefreshTest::changesWakesAndClockChangesLeadToARefresh()
{
    f->start();
    QCOMPARE(f->store->listings, 1);
    Q_EMIT f->wakes.woke();
    QCOMPARE(f->store->listings, 2);
    Q_EMIT f->ticks.clockChanged();
    QCOMPARE(f->store->listings, 3);
    for (int i = 0; i < 50; ++i)
        Q_EMIT f->store->changed();
    QTRY_COMPARE(f->store->listings, 4);
    // A change while a reading is under way is not lost.
    f->store->hangs = true;
    launch(f->model->refresh());
    Q_EMIT f->wakes.woke();
    f->store->hangs = false;
    Q_EMIT f->store->released();
    QTRY_COMPARE(f->store->listings, 6);
}

void ModelRefreshTest::aRefreshIsDueEveryThirtySeconds()
{
    f->start();
    f->tickAt(noon + 30);
    QCOMPARE(f->store->listings, 1);
    f->tickAt(noon + 31);
    QCOMPARE(f->store->listings, 2);
    f->tickAt(noon - 5000); // set back
    QCOMPARE(f->store->listings, 3);
}

void ModelRefreshTest::theUsersChoicesAndExclusionsAreObeyed()
{
    f->store->add(u"video"_s, noon + 100);
    f->store->add(u"plain"_s, noon + 200, QString());
    f->addSetting(u"meetingChoices=\"{\\\"%1\\\":false,\\\"%2\\\":true}\""_s.arg(
        idOf(u"video"_s, noon + 100), idOf(u"plain"_s, noon + 200)));
    f->start();
    QCOMPARE(f->model->meetings().size(), std::size_t(1));
    QCOMPARE(f->model->meetings().front().title, u"plain"_s);
    QVERIFY(!f->model->isScheduled(f->model->calendarEvents().front()));
    f->addSetting(u"excludedCalendars=c"_s);
    launch(f->model->refresh());
    QVERIFY(f->model->meetings().empty());
    QCOMPARE(f->model->calendars().size(), std::size_t(1));
}

void ModelRefreshTest::previewModeTouchesNothing()
{
    f->start(AppModel::Mode::preview);
    QVERIFY(!f->ticks.started);
    QCOMPARE(f->model->status(), u"Preview only. No calendar changes or phone alerts."_s);
    const Meeting &sample = f->model->meetings().front();
    QCOMPARE(sample.id, u"preview"_s);
    QCOMPARE(sample.title, u"Product planning with the team"_s);
    QCOMPARE(sample.calendar, u"Work"_s);
    QCOMPARE(sample.start, noon + 60);
    QCOMPARE(sample.end, noon + 1860);
    QVERIFY(sample.isVideoMeeting());
    launch(f->model->refresh());
    launch(f->model->acknowledge(u"preview"_s));
    f->tickAt(noon + 60);
    QCOMPARE(f->store->listings, 0);
    QVERIFY(!QFile::exists(f->dir.filePath(u"data"_s)));
}

void ModelRefreshTest::withoutACalendarStoreTheStatusSaysSo()
{
    f->store->failure = CalendarError::unavailable;
    f->start();
    QVERIFY(!f->model->calendarAccess());
    const QString off = u"Calendar access is off. Allow Quorvane in System Settings > Privacy & Security > "
                        "Calendars, then refresh."_s;
    QCOMPARE(f->model->status(), off);
    launch(f->model->connectCalendar());
    QCOMPARE(f->model->status(), off);
    f->store->failure = CalendarError::timedOut;
    launch(f->model->connectCalendar());
    QCOMPARE(f->model->status(), u"Calendar access failed. Check Privacy & Security > Calendars."_s);
    f->store->failure = {};
    launch(f->model->connectCalendar());
    QVERIFY(f->model->calendarAccess());
    QCOMPARE(f->model->status(), u"0 meetings scheduled for alerts"_s);
}

QTEST_MAIN(ModelRefreshTest)
#include "model_refresh_test.moc"
