// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ModelFixture.h"

#include <QDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

class ModelAlertsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { f = std::make_unique<ModelFixture>(); }

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
    void aClockSetBackDoesNotStretchAPauseOrASnooze();
    void aClockSetForwardAlertsAtOnce();
    void aDamagedLedgerIsReportedAndAlertsGoOn();
    void aFullDiskIsReportedAndAlertsGoOn();
    void theSampleAlertRecordsNothingAndGivesWayToARealOne();

private:
    static constexpr double noon = ModelFixture::noon;
    static QString idOf(const QString &uid, double start) { return Meeting::identity(uid, start); }

    std::unique_ptr<ModelFixture> f;
};

void ModelAlertsTest::anAlertComesSixtySecondsBeforeTheStart()
{
    const double start = noon + 200;
    f->store->add(u"a"_s, start);
    f->start();
    QCOMPARE(f->model->status(), u"1 meetings scheduled for alerts"_s);
    QCOMPARE(f->model->cloudStatus(), u"Local only. Phone delivery stops while this Mac sleeps."_s);
    f->tickAt(start - 61);
    QCOMPARE(f->shown(), QString());
    f->tickAt(start - 60);
    QCOMPARE(f->shown(), idOf(u"a"_s, start));
    QCOMPARE(f->model->records().value(f->shown()).shownAt, start - 60);
    QCOMPARE(f->alert.chime.played, QStringList{u"Glass"_s});
}

void ModelAlertsTest::theFirstReadingShowsWhatIsDueAlready()
{
    f->store->add(u"a"_s, noon - 119);
    f->start();
    QCOMPARE(f->shown(), idOf(u"a"_s, noon - 119));
}

void ModelAlertsTest::aMeetingThatMayNotInterruptStaysSilent()
{
    f->store->add(u"no link"_s, noon + 30, u"https://example.org/"_s);
    f->store->add(u"begun too long ago"_s, noon - 121);
    f->store->add(u"declined"_s, noon + 30);
    f->store->reading.events.back().declinedByUser = true;
    f->start();
    f->tickAt(noon + 1);
    QCOMPARE(f->shown(), QString());
    QCOMPARE(f->model->calendarEvents().size(), std::size_t(1));
    QVERIFY(f->model->meetings().empty());
}

void ModelAlertsTest::anAcknowledgedMeetingStaysSilentAfterARestart()
{
    f->store->add(u"a"_s, noon + 30);
    f->start();
    launch(f->model->acknowledge(f->shown()));
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + 1);
    QCOMPARE(f->shown(), QString());
    f->restart();
    f->tickAt(noon + 2);
    QCOMPARE(f->shown(), QString());
}

void ModelAlertsTest::aShownMeetingReturnsAfterARestart()
{
    f->store->add(u"a"_s, noon + 30);
    f->start();
    f->restart();
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 30));
}

void ModelAlertsTest::aSnoozedAlertReturns_data()
{
    QTest::addColumn<double>("beforeStart");
    QTest::addColumn<double>("returnsAfter");
    QTest::newRow("40 s before") << 40.0 << 30.0;
    QTest::newRow("12 s before") << 12.0 << 12.0;
    QTest::newRow("after the start") << -10.0 << 5.0;
}

void ModelAlertsTest::aSnoozedAlertReturns()
{
    QFETCH(double, beforeStart);
    QFETCH(double, returnsAfter);
    f->store->add(u"a"_s, noon + beforeStart);
    f->start();
    const Meeting meeting = f->model->scheduledMeetings().front();
    f->model->snooze(meeting);
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + returnsAfter - 1);
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + returnsAfter);
    QCOMPARE(f->shown(), meeting.id);
}

void ModelAlertsTest::meetingsAtTheSameMinuteAlertOneAfterTheOther()
{
    f->store->add(u"a"_s, noon + 30);
    f->store->add(u"b"_s, noon + 30);
    f->store->add(u"c"_s, noon + 40);
    f->start();
    QStringList seen;
    for (int i = 0; i < 3; ++i) {
        seen.append(f->shown());
        launch(f->model->acknowledge(f->shown()));
        f->tickAt(noon + 1 + i);
    }
    QCOMPARE(f->shown(), QString());
    QStringList sameStart = seen.first(2);
    sameStart.sort();
    QStringList expected{idOf(u"a"_s, noon + 30), idOf(u"b"_s, noon + 30)};
    expected.sort();
    QCOMPARE(sameStart, expected);
    QCOMPARE(seen.last(), idOf(u"c"_s, noon + 40));
}

void ModelAlertsTest::acknowledgingAnotherMeetingLeavesTheAlert()
{
    f->store->add(u"a"_s, noon + 30);
    f->start();
    launch(f->model->acknowledge(u"another"_s));
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 30));
    QVERIFY(f->model->records().value(u"another"_s).acknowledged);
}

void ModelAlertsTest::aPauseHoldsAlertsForFiveMinutes()
{
    f->store->add(u"a"_s, noon + 260);
    f->store->add(u"b"_s, noon + 59);
    f->start();
    QCOMPARE(f->shown(), idOf(u"b"_s, noon + 59));
    f->model->pauseAlerts();
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + 299);
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + 300);
    QVERIFY(!f->model->pausedUntil());
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 260));
}

void ModelAlertsTest::resumingShowsWhatIsDue()
{
    f->store->add(u"a"_s, noon + 30);
    f->start();
    f->model->pauseAlerts();
    f->model->resumeAlerts();
    f->tickAt(noon + 1);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 30));
}

void ModelAlertsTest::aClockSetBackDoesNotStretchAPauseOrASnooze()
{
    f->store->add(u"a"_s, noon + 30);
    f->start();
    f->model->snooze(f->model->scheduledMeetings().front());
    f->clock.time = noon - 20;
    Q_EMIT f->ticks.clockChanged();
    f->tickAt(noon + 9);
    QCOMPARE(f->shown(), QString());
    f->tickAt(noon + 10);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 30));

    f->model->pauseAlerts();
    f->clock.time -= 3600;
    Q_EMIT f->ticks.clockChanged();
    f->tickAt(f->clock.time + 300);
    QVERIFY(!f->model->pausedUntil());
}

void ModelAlertsTest::aClockSetForwardAlertsAtOnce()
{
    f->store->add(u"a"_s, noon + 7200);
    f->start();
    f->clock.time = noon + 7200 - 10;
    Q_EMIT f->ticks.clockChanged();
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 7200));
}

void ModelAlertsTest::aDamagedLedgerIsReportedAndAlertsGoOn()
{
    QDir().mkpath(f->dir.filePath(u"data"_s));
    QFile file(f->dir.filePath(u"data/acknowledgments.json"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("garbage");
    file.close();
    f->store->add(u"a"_s, noon + 30);
    f->start();
    QVERIFY(f->model->notice());
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 30));
}

void ModelAlertsTest::aFullDiskIsReportedAndAlertsGoOn()
{
    f->store->add(u"a"_s, noon + 100);
    f->start();
    // A folder in the file's place stands for any disk that takes no file.
    QVERIFY(QDir().mkpath(f->dir.filePath(u"data/acknowledgments.json/x"_s)));
    f->tickAt(noon + 40);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 100));
    QCOMPARE(f->model->notice().value_or(QString()),
             u"Cannot save acknowledgments. Check disk space and app permissions."_s);
    launch(f->model->acknowledge(f->shown()));
    f->tickAt(noon + 41);
    QCOMPARE(f->shown(), QString());
}

void ModelAlertsTest::theSampleAlertRecordsNothingAndGivesWayToARealOne()
{
    f->store->add(u"a"_s, noon + 100);
    f->start();
    f->model->previewAlert();
    QCOMPARE(f->shown(), u"preview"_s);
    launch(f->model->refresh());
    QCOMPARE(f->shown(), u"preview"_s);
    QVERIFY(f->model->records().isEmpty());
    f->tickAt(noon + 40);
    QCOMPARE(f->shown(), idOf(u"a"_s, noon + 100));
}

QTEST_MAIN(ModelAlertsTest)
#include "model_alerts_test.moc"
