// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/UpdatePolicy.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class UpdatePolicyTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anUpdateWaitsForOneMeeting_data();
    void anUpdateWaitsForOneMeeting();
    void everyMeetingIsLookedAt();
    void theAlertOnScreenAlwaysComesFirst();
};

void UpdatePolicyTest::anUpdateWaitsForOneMeeting_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<bool>("waits");
    QTest::newRow("in 300 s") << 300.0 << 2100.0 << true;
    QTest::newRow("in 300.5 s") << 300.5 << 2100.0 << false;
    QTest::newRow("under way") << -600.0 << 1200.0 << true;
    QTest::newRow("ends now") << -1800.0 << 0.0 << true;
    QTest::newRow("over") << -1801.0 << -1.0 << false;
    QTest::newRow("ends when it starts") << 10.0 << 10.0 << true;
}

void UpdatePolicyTest::anUpdateWaitsForOneMeeting()
{
    QFETCH(double, start);
    QFETCH(double, end);
    QFETCH(bool, waits);
    constexpr double now = 1'800'000'000;
    const auto defers = [](const Meeting &meeting, const AlertRecords &records) {
        return UpdatePolicy::shouldDefer({meeting}, records, OverlayVisibility::hidden, now);
    };
    Meeting meeting{.id = u"a"_s, .start = now + start, .end = now + end};
    QCOMPARE(defers(meeting, {}), waits);
    QCOMPARE(defers(meeting, {{u"b"_s, {.acknowledged = true}}}), waits);
    QCOMPARE(defers(meeting, {{u"a"_s, {.snoozedUntil = now + 5, .shownAt = now}}}), waits);
    QVERIFY(!defers(meeting, {{u"a"_s, {.acknowledged = true}}}));
    meeting.cancelled = true;
    QVERIFY(!defers(meeting, {}));
    meeting.cancelled = false;
    meeting.allDay = true;
    QVERIFY(!defers(meeting, {}));
}

void UpdatePolicyTest::everyMeetingIsLookedAt()
{
    const std::vector<Meeting> meetings{{.id = u"answered"_s, .start = 100, .end = 200},
                                        {.id = u"open"_s, .start = 150, .end = 250}};
    AlertRecords records{{u"answered"_s, {.acknowledged = true}}};
    QVERIFY(UpdatePolicy::shouldDefer(meetings, records, OverlayVisibility::hidden, 100));
    records.insert(u"open"_s, {.acknowledged = true});
    QVERIFY(!UpdatePolicy::shouldDefer(meetings, records, OverlayVisibility::hidden, 100));
}

void UpdatePolicyTest::theAlertOnScreenAlwaysComesFirst()
{
    QVERIFY(UpdatePolicy::shouldDefer({}, {}, OverlayVisibility::visible, 0));
    QVERIFY(!UpdatePolicy::shouldDefer({}, {}, OverlayVisibility::hidden, 0));
}

QTEST_APPLESS_MAIN(UpdatePolicyTest)
#include "update_policy_test.moc"
