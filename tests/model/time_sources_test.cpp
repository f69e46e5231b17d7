// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/linux/SecondTicker.h"
#include "model/linux/SystemClock.h"
#include "model/linux/SystemWakeSource.h"
#include "tests/support/ManualTime.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>
#include <ctime>

using namespace quorvane;

class TimeSourcesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticksComeRightAfterTheFullSecondAndNeverBefore();
    void aClockThatIsSetIsNoticedAndTicksGoOn();
    void aSleepThatNobodyAnnouncedIsNoticed();
};

void TimeSourcesTest::ticksComeRightAfterTheFullSecondAndNeverBefore()
{
    const SystemClock clock;
    SecondTicker ticker;
    QList<double> times;
    connect(&ticker, &SecondTicker::tick, this, [&] { times.append(clock.now()); });
    QSignalSpy ticks(&ticker, &SecondTicker::tick);
    ticker.start();
    while (ticks.size() < 4)
        QVERIFY(ticks.wait(5000));
    // Half a second of room for a busy machine; a ticker that is not aligned would be off by anything.
    for (const double time : times)
        QVERIFY2(time - std::floor(time) < 0.5, qPrintable(QString::number(time, 'f', 6)));
    for (qsizetype i = 1; i < times.size(); ++i)
        QCOMPARE(std::floor(times.at(i)) - std::floor(times.at(i - 1)), 1.0);
}

void TimeSourcesTest::aClockThatIsSetIsNoticedAndTicksGoOn()
{
    SecondTicker ticker;
    QSignalSpy changes(&ticker, &SecondTicker::clockChanged);
    QSignalSpy ticks(&ticker, &SecondTicker::tick);
    ticker.start();
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    if (::clock_settime(CLOCK_REALTIME, &now) != 0)
        QSKIP("setting the clock, even to what it says, takes root");
    QTRY_COMPARE(changes.size(), 1);
    const qsizetype before = ticks.size();
    QTRY_VERIFY_WITH_TIMEOUT(ticks.size() >= before + 2, 10'000);
    QCOMPARE(changes.size(), 1);
}

void TimeSourcesTest::aSleepThatNobodyAnnouncedIsNoticed()
{
    ManualTicks ticks;
    std::chrono::nanoseconds asleep = std::chrono::hours(5);
    SystemWakeSource source(ticks, [&asleep] { return asleep; });
    QSignalSpy wakes(&source, &SystemWakeSource::woke);
    Q_EMIT ticks.tick();
    asleep += std::chrono::milliseconds(1); // the two clocks are never read at the same instant
    Q_EMIT ticks.tick();
    QCOMPARE(wakes.size(), 0);
    asleep += std::chrono::seconds(2);
    Q_EMIT ticks.tick();
    Q_EMIT ticks.tick();
    QCOMPARE(wakes.size(), 1);
}

QTEST_GUILESS_MAIN(TimeSourcesTest)
#include "time_sources_test.moc"
