// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AlertPolicy.h"

#include <QTest>

using namespace quorvane;

Q_DECLARE_METATYPE(quorvane::AlertRecord)

class AlertPolicyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theScreenAlertIsDue_data();
    void theScreenAlertIsDue();
    void thePhoneAlertIsDue_data();
    void thePhoneAlertIsDue();
    void aMeetingThatCannotHappenIsNeverDue_data();
    void aMeetingThatCannotHappenIsNeverDue();
    void aSnoozeEndsAtTheStartWithinItsLimits_data();
    void aSnoozeEndsAtTheStartWithinItsLimits();

private:
    static constexpr double start = 100'000;
    static Meeting meeting() { return {.start = start, .end = start + 1800}; }
};

void AlertPolicyTest::theScreenAlertIsDue_data()
{
    QTest::addColumn<double>("now");
    QTest::addColumn<AlertRecord>("record");
    QTest::addColumn<bool>("due");
    const AlertRecord fresh;
    QTest::newRow("61 s before") << start - 61 << fresh << false;
    QTest::newRow("just before the lead") << start - 60.001 << fresh << false;
    QTest::newRow("at the lead") << start - 60 << fresh << true;
    QTest::newRow("at the start") << start << fresh << true;
    QTest::newRow("120 s after") << start + 120 << fresh << true;
    QTest::newRow("later than 120 s after") << start + 120.001 << fresh << false;
    QTest::newRow("acknowledged") << start << AlertRecord{.acknowledged = true} << false;
    QTest::newRow("snoozed") << start << AlertRecord{.snoozedUntil = start + 0.001} << false;
    QTest::newRow("snooze ends now") << start << AlertRecord{.snoozedUntil = start} << true;
    QTest::newRow("shown before and sent to the phone")
        << start << AlertRecord{.shownAt = start - 60, .phoneSent = true} << true;
}

void AlertPolicyTest::theScreenAlertIsDue()
{
    QFETCH(double, now);
    QFETCH(AlertRecord, record);
    QTEST(AlertPolicy::shouldShow(meeting(), now, 60, record), "due");
}

void AlertPolicyTest::thePhoneAlertIsDue_data()
{
    QTest::addColumn<double>("now");
    QTest::addColumn<AlertRecord>("record");
    QTest::addColumn<bool>("due");
    const AlertRecord fresh;
    QTest::newRow("121 s before") << start - 121 << fresh << false;
    QTest::newRow("120 s before") << start - 120 << fresh << true;
    QTest::newRow("120 s after") << start + 120 << fresh << true;
    QTest::newRow("later than 120 s after") << start + 120.001 << fresh << false;
    QTest::newRow("acknowledged") << start << AlertRecord{.acknowledged = true} << false;
    QTest::newRow("sent") << start << AlertRecord{.phoneSent = true} << false;
    QTest::newRow("snoozed on screen") << start << AlertRecord{.snoozedUntil = start + 30} << true;
}

void AlertPolicyTest::thePhoneAlertIsDue()
{
    QFETCH(double, now);
    QFETCH(AlertRecord, record);
    QTEST(AlertPolicy::shouldPush(meeting(), now, record), "due");
}

void AlertPolicyTest::aMeetingThatCannotHappenIsNeverDue_data()
{
    QTest::addColumn<Meeting>("meeting");
    QTest::newRow("cancelled") << Meeting{.start = start, .end = start + 9, .cancelled = true};
    QTest::newRow("all day") << Meeting{.start = start, .end = start + 9, .allDay = true};
    QTest::newRow("no length") << Meeting{.start = start, .end = start};
    QTest::newRow("ends before it starts") << Meeting{.start = start, .end = start - 1};
}

void AlertPolicyTest::aMeetingThatCannotHappenIsNeverDue()
{
    QFETCH(Meeting, meeting);
    QVERIFY(!AlertPolicy::shouldShow(meeting, start, 60, {}));
    QVERIFY(!AlertPolicy::shouldPush(meeting, start, {}));
}

void AlertPolicyTest::aSnoozeEndsAtTheStartWithinItsLimits_data()
{
    QTest::addColumn<double>("now");
    QTest::addColumn<double>("until");
    QTest::newRow("100 s before") << start - 100 << start - 70;
    QTest::newRow("40 s before") << start - 40 << start - 10;
    QTest::newRow("30 s before") << start - 30 << start;
    QTest::newRow("12 s before") << start - 12 << start;
    QTest::newRow("5 s before") << start - 5 << start;
    QTest::newRow("3 s before") << start - 3 << start + 2;
    QTest::newRow("50 s after") << start + 50 << start + 55;
}

void AlertPolicyTest::aSnoozeEndsAtTheStartWithinItsLimits()
{
    QFETCH(double, now);
    QTEST(AlertPolicy::snoozeUntil(now, meeting()), "until");
}

QTEST_GUILESS_MAIN(AlertPolicyTest)
#include "alert_policy_test.moc"
