// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/CheckSchedule.h"

#include <QTest>

#include <limits>

using namespace quorvane;

namespace {

constexpr double midnight = 1'795'219'200; // Sat Nov 21 2026 00:00:00 UTC
constexpr double hour = 3'600;
constexpr double day = 24 * hour;

} // namespace

class CheckScheduleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theNextDayHasOneCheckAtARandomMinute_data();
    void theNextDayHasOneCheckAtARandomMinute();
    void whatIsOverdueWaitsSomeMinutes_data();
    void whatIsOverdueWaitsSomeMinutes();
};

void CheckScheduleTest::theNextDayHasOneCheckAtARandomMinute_data()
{
    QTest::addColumn<double>("lastCheck");
    QTest::newRow("checked at midnight") << midnight;
    QTest::newRow("checked at noon") << midnight + 12 * hour;
    QTest::newRow("checked in the last second") << midnight + day - 1;
}

void CheckScheduleTest::theNextDayHasOneCheckAtARandomMinute()
{
    QFETCH(double, lastCheck);
    quint32 asked = 0;
    const auto first = [&](quint32 bound) {
        asked = bound;
        return 0U;
    };
    const auto last = [](quint32 bound) { return bound - 1; };
    const double earliest = CheckSchedule::next(lastCheck, lastCheck, first);
    const double latest = CheckSchedule::next(lastCheck, lastCheck, last);
    QCOMPARE(asked, 1'440U);
    QVERIFY(earliest >= midnight + day && earliest < midnight + day + 60);
    QVERIFY(latest >= midnight + 2 * day - 60 && latest < midnight + 2 * day);
}

void CheckScheduleTest::whatIsOverdueWaitsSomeMinutes_data()
{
    QTest::addColumn<std::optional<double>>("lastCheck");
    QTest::addColumn<bool>("overdue");
    const double now = midnight + 12 * hour;
    const auto row = [](const char *name, std::optional<double> lastCheck, bool overdue) {
        QTest::newRow(name) << lastCheck << overdue;
    };
    row("never checked", std::nullopt, true);
    row("the machine was off for a week", now - 7 * day, true);
    row("the day before, at a minute that has passed", now - day, true);
    row("the clock was set back by a day", now + day, false);
    row("the clock was set back by two days", now + 2 * day, false);
    row("the clock was set back by more", now + 2 * day + 1, true);
    row("no number", std::numeric_limits<double>::quiet_NaN(), true);
    row("before all time", -std::numeric_limits<double>::infinity(), true);
}

void CheckScheduleTest::whatIsOverdueWaitsSomeMinutes()
{
    QFETCH(std::optional<double>, lastCheck);
    QFETCH(bool, overdue);
    const double now = midnight + 12 * hour;
    const auto first = [](quint32) { return 0U; };
    const double due = CheckSchedule::next(lastCheck, now, first);
    QCOMPARE(due == now + 60, overdue);
    QVERIFY(due <= now + 4 * day);
    const auto laterWait = [](quint32 bound) { return bound == 1'440 ? 0U : bound - 1; };
    if (overdue)
        QCOMPARE(CheckSchedule::next(lastCheck, now, laterWait), now + 600);
}

QTEST_GUILESS_MAIN(CheckScheduleTest)
#include "check_schedule_test.moc"
