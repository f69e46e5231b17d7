// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/format/MeetingFormat.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class MeetingFormatTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("TZ", "Europe/Berlin"); }
    void theCountdownRoundsMinutesUp_data();
    void theCountdownRoundsMinutesUp();
    void theDurationRoundsMinutesDown_data();
    void theDurationRoundsMinutesDown();
    void theTimeRangeIsInTheUsersZone();
    void aDayIsNamedFromToday();
    void nounsAreCounted();
};

void MeetingFormatTest::theCountdownRoundsMinutesUp_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    const auto row = [](double seconds, const QString &text) {
        QTest::addRow("%.1f s", seconds) << seconds << text;
    };
    row(-5, u"Starting now"_s);
    row(0.9, u"Starting now"_s);
    row(1, u"In 1 min"_s);
    row(60, u"In 1 min"_s);
    row(61, u"In 2 min"_s);
    row(3540, u"In 59 min"_s);
    row(3541, u"In 1 hr"_s);
    row(3601, u"In 1 hr 1 min"_s);
    row(3900, u"In 1 hr 5 min"_s);
    row(7200, u"In 2 hr"_s);
    row(86'340, u"In 23 hr 59 min"_s);
    row(86'341, u"In 1 day"_s);
    row(172'740, u"In 1 day"_s);
    row(172'741, u"In 2 days"_s);
    row(14 * 86'400.0, u"In 14 days"_s);
}

void MeetingFormatTest::theCountdownRoundsMinutesUp()
{
    QFETCH(double, seconds);
    QTEST(MeetingFormat::countdown({.start = 1e9 + seconds}, 1e9), "text");
}

void MeetingFormatTest::theDurationRoundsMinutesDown_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("59:59") << 3599.0 << u"59 min"_s;
    QTest::newRow("90 min") << 5400.0 << u"1 hr 30 min"_s;
    QTest::newRow("120 min") << 7200.0 << u"2 hr"_s;
    QTest::newRow("30 s") << 30.0 << u"0 min"_s;
}

void MeetingFormatTest::theDurationRoundsMinutesDown()
{
    QFETCH(double, seconds);
    QTEST(MeetingFormat::duration({.start = 1e9, .end = 1e9 + seconds}), "text");
}

void MeetingFormatTest::theTimeRangeIsInTheUsersZone()
{
    // 2026-11-21 08:00 to 09:30 UTC, with an en dash between blanks.
    QCOMPARE(MeetingFormat::timeRange({.start = 1'795'248'000, .end = 1'795'253'400}), u"9:00 – 10:30"_s);
}

void MeetingFormatTest::aDayIsNamedFromToday()
{
    const QDate today(2026, 11, 21);
    QCOMPARE(MeetingFormat::dayTitle(today, today), u"Today"_s);
    QCOMPARE(MeetingFormat::dayTitle(today.addDays(1), today), u"Tomorrow"_s);
    QCOMPARE(MeetingFormat::dayTitle(today.addDays(-1), today), u"Yesterday"_s);
    QCOMPARE(MeetingFormat::dayTitle(today.addDays(2), today), u"Monday"_s);
}

void MeetingFormatTest::nounsAreCounted()
{
    QCOMPARE(MeetingFormat::plural(1, u"calendar"_s), u"1 calendar"_s);
    QCOMPARE(MeetingFormat::plural(2, u"calendar"_s), u"2 calendars"_s);
    QCOMPARE(MeetingFormat::plural(0, u"calendar"_s), u"0 calendars"_s);
}

QTEST_GUILESS_MAIN(MeetingFormatTest)
#include "meeting_format_test.moc"
