// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/linux/SecondTicker.h"
#include "model/linux/SystemClock.h"

#include <QSignalSpy>
#include <QTest>

#include <cmath>

using namespace quorvane;

class SecondTickerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticksComeRightAfterTheFullSecondAndNeverBefore();
};

void SecondTickerTest::ticksComeRightAfterTheFullSecondAndNeverBefore()
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

QTEST_GUILESS_MAIN(SecondTickerTest)
#include "second_ticker_test.moc"
