// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/TimeZoneResolver.h"

#include <QTest>

#include <atomic>
#include <thread>

using namespace quorvane;

class TimeZonesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void twoStoresMayLookForZonesAtTheSameTime();
};

// Each thread as a store has it. The library takes each of these names into its list when it is asked for it.
void TimeZonesTest::twoStoresMayLookForZonesAtTheSameTime()
{
    QList<QByteArray> names;
    for (int hours = 1; hours <= 12; ++hours)
        names << "Etc/GMT+" + QByteArray::number(hours) << "Etc/GMT-" + QByteArray::number(hours);
    std::atomic<int> begun = 0;
    const auto look = [&names, &begun](int *found) {
        ++begun;
        while (begun < 2)
            ; // for the other one
        TimeZoneResolver zones({}, "Europe/Berlin");
        for (const QByteArray &name : names)
            *found += zones.zone(name.constData()) != nullptr;
    };
    int first = 0;
    int second = 0;
    std::thread other(look, &second);
    look(&first);
    other.join();
    QCOMPARE(first, names.size());
    QCOMPARE(second, names.size());
}

QTEST_GUILESS_MAIN(TimeZonesTest)

#include "time_zones_test.moc"
