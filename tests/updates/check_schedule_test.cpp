// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/CheckSchedule.h"

#include <QTest>

#include <limits>

using namespace quorvane;

namespace {

constexpr double midnight = 1'795'219'200; // 2026-11-21, UTC
constexpr double day = 86'400;
constexpr double noon = midnight + day / 2;

quint32 first(quint32)
{
    return 0;
}

quint32 last(quint32 bound)
{
    return bound - 1;
}

} // namespace

class CheckScheduleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theNextDayHasOneCheckAtARandomMinute();
    void whatIsOverdueWaitsSomeMinutes();
};

void CheckScheduleTest::theNextDayHasOneCheckAtARandomMinute()
{
    for (const double lastCheck : {midnight, noon, midnight + day - 1}) {
        const double earliest = CheckSchedule::next(lastCheck, lastCheck, first);
        const double latest = CheckSchedule::next(lastCheck, lastCheck, last);
        QVERIFY(earliest >= midnight + day && earliest < midnight + day + 60);
        QVERIFY(latest >= midnight + 2 * day - 60 && latest < midnight + 2 * day);
    }
}

void CheckScheduleTest::whatIsOverdueWaitsSomeMinutes()
{
    const auto longestWait = [](quint32 bound) { return bound == 1'440 ? first(bound) : last(bound); };
    const std::optional<double> never;
    const std::optional<double> clockSetBack = noon + 2 * day + 1;
    const std::optional<double> noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const auto lastCheck :
         {never, std::optional(noon - 7 * day), std::optional(noon - day), clockSetBack, noNumber}) {
        QCOMPARE(CheckSchedule::next(lastCheck, noon, first), noon + 60);
        QCOMPARE(CheckSchedule::next(lastCheck, noon, longestWait), noon + 600);
    }
    QVERIFY(CheckSchedule::next(noon + 2 * day, noon, first) > noon + 2 * day);
}

QTEST_GUILESS_MAIN(CheckScheduleTest)
#include "check_schedule_test.moc"
