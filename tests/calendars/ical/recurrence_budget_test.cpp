// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/FileEvents.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr time_t monday = 1'795'392'000; // 2026-11-23 00:00 UTC
constexpr time_t day = 86'400;

FileEvents readWeek(const QByteArray &lines, const QByteArray &zone = {})
{
    const QByteArray text = "BEGIN:VCALENDAR\n" + zone + "BEGIN:VEVENT\nUID:a\n" + lines +
                            "\nEND:VEVENT\nBEGIN:VEVENT\nUID:b\nDTSTART:20261124T100000Z\nDURATION:PT1H\n"
                            "END:VEVENT\nEND:VCALENDAR\n";
    ZoneDefinitions definitions;
    const FileContext context{u"c"_s, u"C"_s, {}, "Europe/Paris", monday, monday + 7 * day};
    return FileEvents::read(text.toStdString(), "a.ics", context, definitions);
}

} // namespace

/// What series may cost. A rule that is walked for hours would hang the test.
class RecurrenceBudgetTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rulesOfRealCalendarsAreExpanded_data();
    void rulesOfRealCalendarsAreExpanded();
    void aSeriesBeyondMeasureCostsOnlyItself_data();
    void aSeriesBeyondMeasureCostsOnlyItself();
    void aZoneBeyondMeasureIsUnknown();
};

void RecurrenceBudgetTest::rulesOfRealCalendarsAreExpanded_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, const char *start, const char *rule, int expected) {
        QTest::newRow(name) << QByteArray("DTSTART") + start + "\nDURATION:PT30M\n" + rule << expected;
    };
    row("daily since long ago", ":19700101T090000Z", "RRULE:FREQ=DAILY", 7);
    row("hourly at work", ";TZID=Europe/Paris:20200106T090000",
        "RRULE:FREQ=HOURLY;INTERVAL=2;BYHOUR=9,11,13;BYDAY=MO,TU", 6);
    row("hourly for years", ":20180101T000000Z", "RRULE:FREQ=HOURLY;INTERVAL=12", 14);
    row("once a day, oddly written", ":20261101T080000Z", "RRULE:FREQ=MINUTELY;INTERVAL=1440", 7);
    row("working days, so many times", ":20261123T080000Z", "RRULE:FREQ=DAILY;COUNT=3;BYDAY=MO,TU,WE,TH,FR",
        3);
    row("days of January, so many times", ":20261124T080000Z", "RRULE:FREQ=DAILY;COUNT=3;BYMONTH=11", 3);
    row("last working day of the month", ":20200131T080000Z",
        "RRULE:FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-5", 1);
    row("a year of exceptions", ":20260101T080000Z", "RRULE:FREQ=DAILY\nEXDATE:20261125T080000Z", 6);
    row("ends in the span", ":20200101T080000Z", "RRULE:FREQ=DAILY;UNTIL=20261124T080000Z", 2);
    row("days", ";VALUE=DATE:20200101", "RRULE:FREQ=DAILY\nDURATION:P1D", 8);
    row("a rule without any day", ":20261101T080000Z", "RRULE:FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", 0);
}

void RecurrenceBudgetTest::rulesOfRealCalendarsAreExpanded()
{
    QFETCH(QByteArray, lines);
    QFETCH(int, expected);
    const FileEvents read = readWeek(lines);
    QCOMPARE(read.unusable, 0);
    QCOMPARE(static_cast<int>(read.events.size()), expected + 1);
}

void RecurrenceBudgetTest::aSeriesBeyondMeasureCostsOnlyItself_data()
{
    QTest::addColumn<QByteArray>("lines");
    const QByteArray now = "DTSTART:20261101T000000Z\nDURATION:PT30M\n";
    for (const char *rule :
         {"FREQ=SECONDLY", "FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30", "FREQ=SECONDLY;BYSECOND=60",
          "FREQ=MINUTELY;BYMONTH=2;BYMONTHDAY=30", "FREQ=SECONDLY;BYSETPOS=5",
          "FREQ=MINUTELY;COUNT=2000000000", "FREQ=HOURLY;COUNT=5;BYMONTH=2;BYMONTHDAY=30",
          "FREQ=DAILY;BYHOUR=0,1,2,3,4,5,6,7,8,9,10,11;BYMINUTE=0,1,2,3,4,5,6,7,8,9;BYSECOND=0,1,2,3,4,5,6",
          "FREQ=MONTHLY;BYDAY=1MO,2MO,3MO,4MO,5MO,1TU,2TU,3TU,4TU,5TU,1WE;BYSETPOS=300"})
        QTest::newRow(rule) << now + "RRULE:" + rule;
    QTest::newRow("hourly since the year 1") << QByteArray("DTSTART:00010101T000000Z\nRRULE:FREQ=HOURLY");
    QTest::newRow("another calendar")
        << QByteArray("DTSTART:16010101T000000Z\nRRULE:RSCALE=CHINESE;FREQ=DAILY;BYMONTH=5L;BYMONTHDAY=30");
    QTest::newRow("too long") << QByteArray(
        "DTSTART:00010101T000000Z\nDURATION:P999999999D\nRRULE:FREQ=WEEKLY");
    QTest::newRow("an end in another age") << QByteArray(
        "DTSTART:20260105T093000Z\nDTEND:42012500T094500Z\nRRULE:FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR");
    QTest::newRow("an end in no month")
        << QByteArray("DTSTART:20260105T093000\nDTEND:20268203T150000Z\nRRULE:FREQ=WEEKLY");
    QTest::newRow("an end before the start")
        << QByteArray("DTSTART:20261101T093000\nDURATION:-P20000D\nRRULE:FREQ=WEEKLY");
    QTest::newRow("many rules") << now + QByteArray("RRULE:FREQ=YEARLY\n").repeated(5).trimmed();
    QTest::newRow("many dates") << now + QByteArray("RDATE:20261124T000000Z\n").repeated(2'000).trimmed();
    QTest::newRow("no start") << QByteArray("RRULE:FREQ=DAILY");
    QTest::newRow("a start that is none") << QByteArray("DTSTART:tomorrow");
}

void RecurrenceBudgetTest::aSeriesBeyondMeasureCostsOnlyItself()
{
    QFETCH(QByteArray, lines);
    const FileEvents read = readWeek(lines);
    QCOMPARE(read.unusable, 1);
    QCOMPARE(read.events.size(), std::size_t(1));
    QCOMPARE(read.events.front().externalIdentifier, u"b"_s);
}

void RecurrenceBudgetTest::aZoneBeyondMeasureIsUnknown()
{
    const QByteArray zone =
        "BEGIN:VTIMEZONE\nTZID:Odd\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
        "TZOFFSETFROM:+0500\nTZOFFSETTO:+0500\nRRULE:FREQ=%1\nEND:STANDARD\nEND:VTIMEZONE\n";
    const auto startingIn = [&zone](const char *frequency) {
        const FileEvents read = readWeek("DTSTART;TZID=Odd:20261123T120000\nDURATION:PT1H",
                                         QByteArray(zone).replace("%1", frequency));
        return static_cast<time_t>(read.events.front().start) - monday;
    };
    QCOMPARE(startingIn("YEARLY;BYMONTH=1;BYDAY=1SU"), time_t(7 * 3600));
    QCOMPARE(startingIn("SECONDLY"), time_t(11 * 3600)); // as in the user's own zone
}

QTEST_GUILESS_MAIN(RecurrenceBudgetTest)
#include "recurrence_budget_test.moc"
