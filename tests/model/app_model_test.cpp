// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "model/AppModel.h"
#include "model/Launch.h"
#include "tests/support/AlertFixture.h"
#include "tests/support/ManualTime.h"
#include "tests/support/ScriptedStore.h"

#include <QFile>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

class NoActivities final : public ProcessActivities
{
public:
    [[nodiscard]] std::unique_ptr<ActivityToken> beginLatencyCritical(const QString &) override
    {
        return std::make_unique<ActivityToken>();
    }
};

} // namespace

class AppModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void anAlertComesSixtySecondsBeforeTheStart();
    void theFirstReadingShowsWhatIsDueAlready();
    void aMeetingThatMayNotInterruptStaysSilent();
    void anAcknowledgedMeetingStaysSilentAfterARestart();
    void aShownMeetingReturnsAfterARestart();
    void aSnoozedAlertReturns_data();
    void aSnoozedAlertReturns();
    void meetingsAtTheSameMinuteAlertOneAfterTheOther();
    void acknowledgingAnotherMeetingLeavesTheAlert();
    void aPauseHoldsAlertsForFiveMinutes();
    void resumingShowsWhatIsDue();
    void anAlertThatIsNoLongerDueIsTakenAway_data();
    void anAlertThatIsNoLongerDueIsTakenAway();
    void aMovedMeetingAlertsAtItsNewTimeOnly();
    void aFailingStoreKeepsTheMeetings();
    void aHangingStoreDelaysNoAlert();
    void twoRefreshesTogetherRunOnce();
    void changesWakesAndClockChangesLeadToARefresh();
    void aRefreshIsDueEveryThirtySeconds();
    void aClockSetBackDoesNotStretchAPauseOrASnooze();
    void aClockSetForwardAlertsAtOnce();
    void theUsersChoicesAndExclusionsAreObeyed();
    void aDamagedLedgerIsReportedAndAlertsGoOn();
    void aFullDiskIsReportedAndAlertsGoOn();
    void theSampleAlertRecordsNothingAndGivesWayToARealOne();
    void previewModeTouchesNothing();
    void withoutACalendarStoreTheStatusSaysSo();

private:
    void startModel(AppModel::Mode mode = AppModel::Mode::live);
    void restart()
    {
        model.reset();
        alert->overlay.close();
        startModel();
    }
    void tickAt(double time)
    {
        clock.time = time;
        Q_EMIT ticks.tick();
    }
    [[nodiscard]] QString shown() const { return alert->overlay.eventID().value_or(QString()); }
    [[nodiscard]] static QString idOf(const QString &uid, double start)
    {
        return Meeting::identity(uid, start);
    }
    void setSetting(const QString &line)
    {
        QFile file(dir->filePath(u"settings.ini"_s));
        QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
        file.write(line.toUtf8() + '\n');
    }

    static constexpr double noon = 1'800'000'000;
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<AlertFixture> alert;
    std::unique_ptr<CalendarReader> reader;
    ScriptedStore *store = nullptr;
    ManualClock clock;
    ManualTicks ticks;
    ManualWakes wakes;
    NoActivities activities;
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<AppModel> model;
};

void AppModelTest::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(u"software"_s);
}

void AppModelTest::init()
{
    dir = std::make_unique<QTemporaryDir>();
    alert = std::make_unique<AlertFixture>();
    auto owned = std::make_unique<ScriptedStore>();
    store = owned.get();
    std::vector<std::unique_ptr<CalendarStore>> stores;
    stores.push_back(std::move(owned));
    reader = std::make_unique<CalendarReader>(std::move(stores));
    preferences = std::make_unique<Preferences>(dir->filePath(u"settings.ini"_s));
    clock.time = noon;
}

void AppModelTest::cleanup()
{
    model.reset();
}

void AppModelTest::startModel(AppModel::Mode mode)
{
    const AppModelServices services{
        *reader, alert->overlay, *preferences, clock,
        ticks,   wakes,          activities,   dir->filePath(u"data/acknowledgments.json"_s)};
    model = std::make_unique<AppModel>(mode, services);
}

void AppModelTest::anAlertComesSixtySecondsBeforeTheStart()
{
    const double start = noon + 200;
    store->add(u"a"_s, start);
    startModel();
    QCOMPARE(model->status(), u"1 meetings scheduled for alerts"_s);
    QCOMPARE(model->cloudStatus(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
    tickAt(start - 61);
    QCOMPARE(shown(), QString());
    tickAt(start - 60);
    QCOMPARE(shown(), idOf(u"a"_s, start));
    QCOMPARE(model->records().value(shown()).shownAt, start - 60);
    QCOMPARE(alert->chime.played, QStringList{u"Glass"_s});
}

void AppModelTest::theFirstReadingShowsWhatIsDueAlready()
{
    store->add(u"a"_s, noon - 119);
    startModel();
    QCOMPARE(shown(), idOf(u"a"_s, noon - 119));
}

void AppModelTest::aMeetingThatMayNotInterruptStaysSilent()
{
    store->add(u"no link"_s, noon + 30, u"https://example.org/"_s);
    store->add(u"begun too long ago"_s, noon - 121);
    store->add(u"declined"_s, noon + 30);
    store->reading.events.back().declinedByUser = true;
    startModel();
    tickAt(noon + 1);
    QCOMPARE(shown(), QString());
    QCOMPARE(model->calendarEvents().size(), std::size_t(1));
    QVERIFY(model->meetings().empty());
}

void AppModelTest::anAcknowledgedMeetingStaysSilentAfterARestart()
{
    store->add(u"a"_s, noon + 30);
    startModel();
    launch(model->acknowledge(shown()));
    QCOMPARE(shown(), QString());
    tickAt(noon + 1);
    QCOMPARE(shown(), QString());
    restart();
    tickAt(noon + 2);
    QCOMPARE(shown(), QString());
}

void AppModelTest::aShownMeetingReturnsAfterARestart()
{
    store->add(u"a"_s, noon + 30);
    startModel();
    restart();
    QCOMPARE(shown(), idOf(u"a"_s, noon + 30));
}

void AppModelTest::aSnoozedAlertReturns_data()
{
    QTest::addColumn<double>("beforeStart");
    QTest::addColumn<double>("returnsAfter");
    QTest::newRow("40 s before") << 40.0 << 30.0;
    QTest::newRow("12 s before") << 12.0 << 12.0;
    QTest::newRow("after the start") << -10.0 << 5.0;
}

void AppModelTest::aSnoozedAlertReturns()
{
    QFETCH(double, beforeStart);
    QFETCH(double, returnsAfter);
    store->add(u"a"_s, noon + beforeStart);
    startModel();
    const Meeting meeting = model->scheduledMeetings().front();
    model->snooze(meeting);
    QCOMPARE(shown(), QString());
    tickAt(noon + returnsAfter - 1);
    QCOMPARE(shown(), QString());
    tickAt(noon + returnsAfter);
    QCOMPARE(shown(), meeting.id);
}

void AppModelTest::meetingsAtTheSameMinuteAlertOneAfterTheOther()
{
    store->add(u"a"_s, noon + 30);
    store->add(u"b"_s, noon + 30);
    store->add(u"c"_s, noon + 40);
    startModel();
    QStringList seen;
    for (int i = 0; i < 3; ++i) {
        seen.append(shown());
        launch(model->acknowledge(shown()));
        tickAt(noon + 1 + i);
    }
    QCOMPARE(shown(), QString());
    QStringList sameStart = seen.first(2);
    sameStart.sort();
    QStringList expected{idOf(u"a"_s, noon + 30), idOf(u"b"_s, noon + 30)};
    expected.sort();
    QCOMPARE(sameStart, expected);
    QCOMPARE(seen.last(), idOf(u"c"_s, noon + 40));
}

void AppModelTest::acknowledgingAnotherMeetingLeavesTheAlert()
{
    store->add(u"a"_s, noon + 30);
    startModel();
    launch(model->acknowledge(u"another"_s));
    QCOMPARE(shown(), idOf(u"a"_s, noon + 30));
    QVERIFY(model->records().value(u"another"_s).acknowledged);
}

void AppModelTest::aPauseHoldsAlertsForFiveMinutes()
{
    store->add(u"a"_s, noon + 260);
    store->add(u"b"_s, noon + 59);
    startModel();
    QCOMPARE(shown(), idOf(u"b"_s, noon + 59));
    model->pauseAlerts();
    QCOMPARE(shown(), QString());
    tickAt(noon + 299);
    QCOMPARE(shown(), QString());
    tickAt(noon + 300);
    QVERIFY(!model->pausedUntil());
    QCOMPARE(shown(), idOf(u"a"_s, noon + 260));
}

void AppModelTest::resumingShowsWhatIsDue()
{
    store->add(u"a"_s, noon + 30);
    startModel();
    model->pauseAlerts();
    model->resumeAlerts();
    tickAt(noon + 1);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 30));
}

void AppModelTest::anAlertThatIsNoLongerDueIsTakenAway_data()
{
    QTest::addColumn<QString>("what");
    for (const char *what : {"cancelled", "deleted", "moved", "over", "switched off"})
        QTest::newRow(what) << QString::fromLatin1(what);
}

void AppModelTest::anAlertThatIsNoLongerDueIsTakenAway()
{
    QFETCH(QString, what);
    store->add(u"a"_s, noon + 30);
    startModel();
    QVERIFY(!shown().isEmpty());
    if (what == u"cancelled"_s)
        store->reading.events.front().status = EventStatus::cancelled;
    else if (what == u"deleted"_s)
        store->reading.events.clear();
    else if (what == u"moved"_s)
        store->reading.events.front().start += 3600, store->reading.events.front().end += 3600;
    else if (what == u"over"_s)
        clock.time = noon + 30 + 121;
    else
        setSetting(u"excludedCalendars=c"_s);
    launch(model->refresh());
    QCOMPARE(shown(), QString());
}

void AppModelTest::aMovedMeetingAlertsAtItsNewTimeOnly()
{
    store->add(u"a"_s, noon + 100);
    startModel();
    store->reading.events.clear();
    store->add(u"a"_s, noon + 1000);
    launch(model->refresh());
    tickAt(noon + 40);
    tickAt(noon + 100);
    QCOMPARE(shown(), QString());
    tickAt(noon + 940);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 1000));
}

void AppModelTest::aFailingStoreKeepsTheMeetings()
{
    store->add(u"a"_s, noon + 100);
    startModel();
    store->failure = CalendarError::timedOut;
    launch(model->refresh());
    QCOMPARE(
        model->status(),
        u"Test store did not answer; its saved meetings are retained. 1 meetings scheduled for alerts"_s);
    tickAt(noon + 40);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 100));
}

void AppModelTest::aHangingStoreDelaysNoAlert()
{
    store->add(u"a"_s, noon + 160);
    startModel();
    store->hangs = true;
    tickAt(noon + 99); // a refresh is due and begins to hang
    QVERIFY(model->isRefreshing());
    tickAt(noon + 100);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 160));
    store->hangs = false;
    Q_EMIT store->released();
    QTRY_VERIFY(!model->isRefreshing());
    QCOMPARE(shown(), idOf(u"a"_s, noon + 160));
}

void AppModelTest::twoRefreshesTogetherRunOnce()
{
    startModel();
    store->hangs = true;
    const int before = store->listings;
    launch(model->refresh());
    launch(model->refresh());
    store->hangs = false;
    Q_EMIT store->released();
    QCOMPARE(store->listings, before + 1);
}

void AppModelTest::changesWakesAndClockChangesLeadToARefresh()
{
    startModel();
    QCOMPARE(store->listings, 1);
    Q_EMIT wakes.woke();
    QCOMPARE(store->listings, 2);
    Q_EMIT ticks.clockChanged();
    QCOMPARE(store->listings, 3);
    for (int i = 0; i < 50; ++i)
        Q_EMIT store->changed();
    QTRY_COMPARE(store->listings, 4);
    // A change while a reading is under way is not lost.
    store->hangs = true;
    launch(model->refresh());
    Q_EMIT wakes.woke();
    store->hangs = false;
    Q_EMIT store->released();
    QTRY_COMPARE(store->listings, 6);
}

void AppModelTest::aRefreshIsDueEveryThirtySeconds()
{
    startModel();
    tickAt(noon + 30);
    QCOMPARE(store->listings, 1);
    tickAt(noon + 31);
    QCOMPARE(store->listings, 2);
    tickAt(noon - 5000); // set back
    QCOMPARE(store->listings, 3);
}

void AppModelTest::aClockSetBackDoesNotStretchAPauseOrASnooze()
{
    store->add(u"a"_s, noon + 30);
    startModel();
    model->snooze(model->scheduledMeetings().front());
    clock.time = noon - 20;
    Q_EMIT ticks.clockChanged();
    tickAt(noon + 9);
    QCOMPARE(shown(), QString());
    tickAt(noon + 10);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 30));

    model->pauseAlerts();
    clock.time -= 3600;
    Q_EMIT ticks.clockChanged();
    tickAt(clock.time + 300);
    QVERIFY(!model->pausedUntil());
}

void AppModelTest::aClockSetForwardAlertsAtOnce()
{
    store->add(u"a"_s, noon + 7200);
    startModel();
    clock.time = noon + 7200 - 10;
    Q_EMIT ticks.clockChanged();
    QCOMPARE(shown(), idOf(u"a"_s, noon + 7200));
}

void AppModelTest::theUsersChoicesAndExclusionsAreObeyed()
{
    store->add(u"video"_s, noon + 100);
    store->add(u"plain"_s, noon + 200, QString());
    setSetting(u"meetingChoices=\"{\\\"%1\\\":false,\\\"%2\\\":true}\""_s.arg(idOf(u"video"_s, noon + 100),
                                                                              idOf(u"plain"_s, noon + 200)));
    startModel();
    QCOMPARE(model->meetings().size(), std::size_t(1));
    QCOMPARE(model->meetings().front().title, u"plain"_s);
    QVERIFY(!model->isScheduled(model->calendarEvents().front()));
    setSetting(u"excludedCalendars=c"_s);
    launch(model->refresh());
    QVERIFY(model->meetings().empty());
    QCOMPARE(model->calendars().size(), std::size_t(1));
}

void AppModelTest::aDamagedLedgerIsReportedAndAlertsGoOn()
{
    QDir().mkpath(dir->filePath(u"data"_s));
    QFile file(dir->filePath(u"data/acknowledgments.json"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("garbage");
    file.close();
    store->add(u"a"_s, noon + 30);
    startModel();
    QVERIFY(model->notice());
    QCOMPARE(shown(), idOf(u"a"_s, noon + 30));
}

void AppModelTest::aFullDiskIsReportedAndAlertsGoOn()
{
    store->add(u"a"_s, noon + 100);
    startModel();
    // A folder in the file's place stands for any disk that takes no file.
    QVERIFY(QDir().mkpath(dir->filePath(u"data/acknowledgments.json/x"_s)));
    tickAt(noon + 40);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 100));
    QCOMPARE(model->notice().value_or(QString()),
             u"Cannot save acknowledgments. Check disk space and app permissions."_s);
    launch(model->acknowledge(shown()));
    tickAt(noon + 41);
    QCOMPARE(shown(), QString());
}

void AppModelTest::theSampleAlertRecordsNothingAndGivesWayToARealOne()
{
    store->add(u"a"_s, noon + 100);
    startModel();
    model->previewAlert();
    QCOMPARE(shown(), u"preview"_s);
    launch(model->refresh());
    QCOMPARE(shown(), u"preview"_s);
    QVERIFY(model->records().isEmpty());
    tickAt(noon + 40);
    QCOMPARE(shown(), idOf(u"a"_s, noon + 100));
}

void AppModelTest::previewModeTouchesNothing()
{
    startModel(AppModel::Mode::preview);
    QVERIFY(!ticks.started || store->listings == 0);
    QCOMPARE(model->status(), u"Preview only. No calendar changes or phone alerts."_s);
    const Meeting &sample = model->meetings().front();
    QCOMPARE(sample.id, u"preview"_s);
    QCOMPARE(sample.title, u"Product planning with the team"_s);
    QCOMPARE(sample.calendar, u"Work"_s);
    QCOMPARE(sample.start, noon + 60);
    QCOMPARE(sample.end, noon + 1860);
    QVERIFY(sample.isVideoMeeting());
    launch(model->refresh());
    launch(model->acknowledge(u"preview"_s));
    tickAt(noon + 60);
    QCOMPARE(store->listings, 0);
    QVERIFY(!QFile::exists(dir->filePath(u"data"_s)));
}

void AppModelTest::withoutACalendarStoreTheStatusSaysSo()
{
    store->failure = CalendarError::unavailable;
    startModel();
    QVERIFY(!model->calendarAccess());
    const QString off = u"Calendar access is off. Allow Quorvane in System Settings > Privacy & Security > "
                        "Calendars, then refresh."_s;
    QCOMPARE(model->status(), off);
    launch(model->connectCalendar());
    QCOMPARE(model->status(), off);
    store->failure = CalendarError::timedOut;
    launch(model->connectCalendar());
    QCOMPARE(model->status(), u"Calendar access failed. Check Privacy & Security > Calendars."_s);
    store->failure = {};
    launch(model->connectCalendar());
    QVERIFY(model->calendarAccess());
    QCOMPARE(model->status(), u"0 meetings scheduled for alerts"_s);
}

QTEST_MAIN(AppModelTest)
#include "app_model_test.moc"
