// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/DateTimeChoice.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

const QLocale german(QLocale::German, QLocale::Germany);
const QLocale american(QLocale::English, QLocale::UnitedStates);
const QString form = u"yyyy-MM-dd HH:mm"_s;

/// A choice that is made in one place at one moment, both as that place's clocks show them.
struct Place
{
    Place(const char *zoneName, const QString &now, const QString &start, const QLocale &locale = german)
        : zone(zoneName)
        , choice(locale, zone)
    {
        choice.setNow(instant(now));
        choice.setStart(instant(start));
    }

    [[nodiscard]] double instant(const QString &text) const
    {
        QDateTime time = QDateTime::fromString(text, form);
        time.setTimeZone(zone);
        return static_cast<double>(time.toSecsSinceEpoch());
    }
    [[nodiscard]] QString shown() const
    {
        return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(choice.start()), zone).toString(form);
    }

    QTimeZone zone;
    DateTimeChoice choice;
};

using Steps = std::function<void(DateTimeChoice &)>;

} // namespace

Q_DECLARE_METATYPE(Steps)

class DateTimeChoiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTypedTimeIsUnderstood_data();
    void aTypedTimeIsUnderstood();
    void anUnfinishedTimeCountsWhenTheFieldIsLeft();
    void clocksThatChangeAreFollowed_data();
    void clocksThatChangeAreFollowed();
    void moveStaysWithinTheNextFourteenDays_data();
    void moveStaysWithinTheNextFourteenDays();
    void onlyDaysWithinReachCanBeChosen();
    void weeksBeginAsTheLocaleHasThem_data();
    void weeksBeginAsTheLocaleHasThem();
    void theChoiceIsWrittenOut_data();
    void theChoiceIsWrittenOut();
    void aChoiceCanBeTakenBack();
    void midnightMovesTheDaysOn();
};

void DateTimeChoiceTest::aTypedTimeIsUnderstood_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clock");
    const auto row = [](const QLocale &locale, const QString &text, const char *clock) {
        QTest::addRow("%s: %s", qPrintable(locale.name()), qPrintable(text))
            << locale << text << QString::fromLatin1(clock);
    };
    row(german, u"9"_s, "09:15");
    row(german, u"14"_s, "14:15");
    row(german, u"930"_s, "09:30");
    row(german, u"2130"_s, "21:30");
    row(german, u"7:05"_s, "07:05");
    row(german, u" 7.05 "_s, "07:05");
    row(german, u"21h15"_s, "21:15");
    row(german, u"9:30 pm"_s, "21:30");
    row(german, u"٢١:٤٥"_s, "21:45");
    row(american, u"9"_s, "21:15");
    row(american, u"9a"_s, "09:15");
    row(american, u"12:05 am"_s, "00:05");
    row(american, u"12 p.m."_s, "12:15");
    row(american, u"17:20"_s, "17:20");
    for (const char *nonsense : {"24", "9:60", "99", "abc", "9 x", "12345", ":30", "9:3:1"})
        row(german, QString::fromLatin1(nonsense), "13:15");
}

void DateTimeChoiceTest::aTypedTimeIsUnderstood()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    QFETCH(QString, clock);
    Place place("UTC", u"2026-07-14 08:00"_s, u"2026-07-15 13:15"_s, locale);
    const bool taken = place.choice.typeHour(text);
    QCOMPARE(place.shown(), u"2026-07-15 "_s + clock);
    QCOMPARE(taken, clock != "13:15"_L1);
}

void DateTimeChoiceTest::anUnfinishedTimeCountsWhenTheFieldIsLeft()
{
    Place place("UTC", u"2026-07-14 08:00"_s, u"2026-07-15 13:15"_s);
    QVERIFY(!place.choice.typeHour(u"2"_s));
    QVERIFY(!place.choice.typeMinute(u"3"_s));
    QCOMPARE(place.shown(), u"2026-07-15 13:15"_s);
    place.choice.leaveHour(u"2"_s);
    place.choice.leaveMinute(u"3"_s);
    QCOMPARE(place.shown(), u"2026-07-15 02:03"_s);
    QVERIFY(place.choice.typeMinute(u"45"_s));
    place.choice.leaveMinute(QString());
    QCOMPARE(place.shown(), u"2026-07-15 02:45"_s);
    // A digit too many.
    QVERIFY(!place.choice.typeMinute(u"455"_s));
    QVERIFY(place.choice.typeMinute(u":50pm"_s));
    QCOMPARE(place.shown(), u"2026-07-15 14:50"_s);
    QVERIFY(place.choice.typeMinute(u"9:30"_s));
    QCOMPARE(place.shown(), u"2026-07-15 09:30"_s);
}

void DateTimeChoiceTest::clocksThatChangeAreFollowed_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QString>("now");
    QTest::addColumn<QString>("start");
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<double>("hoursAhead");
    const auto row = [](const char *name, const char *zone, const char *now, const char *start,
                        const Steps &steps, const char *shown, double hoursAhead) {
        QTest::newRow(name) << QByteArray(zone) << QString::fromLatin1(now) << QString::fromLatin1(start)
                            << steps << QString::fromLatin1(shown) << hoursAhead;
    };
    const Steps halfPastTwo = [](DateTimeChoice &choice) { choice.typeHour(u"2:30"_s); };
    row("a time that is skipped", "Europe/Berlin", "2026-03-29 00:30", "2026-03-29 12:00", halfPastTwo,
        "2026-03-29 03:30", 2);
    row(
        "a day on which the time is skipped", "Europe/Berlin", "2026-03-28 02:30", "2026-03-28 02:31",
        [](DateTimeChoice &choice) { choice.moveDays(1); }, "2026-03-29 03:31", 24 + 1.0 / 60);
    row("a time that comes twice is the first", "Europe/Berlin", "2026-10-25 00:30", "2026-10-25 12:00",
        halfPastTwo, "2026-10-25 02:30", 2);
    row(
        "an hour back in the hour that comes twice", "Europe/Berlin", "2026-10-25 00:30", "2026-10-25 03:30",
        [](DateTimeChoice &choice) { choice.stepHours(-1); }, "2026-10-25 02:30", 3);
    row(
        "clocks that skip half an hour", "Australia/Lord_Howe", "2026-10-04 00:15", "2026-10-04 12:00",
        [](DateTimeChoice &choice) { choice.typeHour(u"2:15"_s); }, "2026-10-04 02:45", 2);
    row(
        "an hour on over the gap", "America/New_York", "2026-03-08 00:00", "2026-03-08 01:40",
        [](DateTimeChoice &choice) { choice.stepHours(1); }, "2026-03-08 03:40", 2 + 40.0 / 60);
}

void DateTimeChoiceTest::clocksThatChangeAreFollowed()
{
    QFETCH(QByteArray, zone);
    QFETCH(QString, now);
    QFETCH(QString, start);
    QFETCH(Steps, steps);
    Place place(zone, now, start);
    steps(place.choice);
    QTEST(place.shown(), "shown");
    QTEST((place.choice.start() - place.instant(now)) / 3600, "hoursAhead");
}

void DateTimeChoiceTest::moveStaysWithinTheNextFourteenDays_data()
{
    QTest::addColumn<Steps>("steps");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const char *shown, const Steps &steps) {
        QTest::newRow(name) << steps << QString::fromLatin1(shown);
    };
    row("a day on", "2026-07-28 15:15", [](DateTimeChoice &choice) { choice.moveDays(1); });
    row("a week on, into the next month", "2026-08-03 15:15",
        [](DateTimeChoice &choice) { choice.moveDays(7); });
    row("the last day has no more than its reach", "2026-08-06 10:20",
        [](DateTimeChoice &choice) { choice.moveDays(30); });
    row("a month on", "2026-08-06 10:20", [](DateTimeChoice &choice) { choice.moveMonths(1); });
    row("a month back", "2026-07-23 15:15", [](DateTimeChoice &choice) { choice.moveMonths(-1); });
    row("the week's first day", "2026-07-27 15:15", [](DateTimeChoice &choice) { choice.moveToWeekBegin(); });
    row("the week's last day", "2026-08-02 15:15", [](DateTimeChoice &choice) { choice.moveToWeekEnd(); });
    row("minutes in fives", "2026-07-27 15:30", [](DateTimeChoice &choice) {
        choice.typeHour(u"15:18"_s);
        choice.stepMinutes(1);
        choice.stepMinutes(2);
    });
    row("minutes back over the hour", "2026-07-27 14:55", [](DateTimeChoice &choice) {
        choice.typeHour(u"15:02"_s);
        choice.stepMinutes(-1);
        choice.stepMinutes(-1);
    });
    row("hours back no further than now", "2026-07-23 10:21",
        [](DateTimeChoice &choice) { choice.stepHours(-500); });
    row("the other half of the day", "2026-07-27 03:15", [](DateTimeChoice &choice) { choice.switchHalf(); });
    row("a time that is past is shown as it is", "2026-07-23 08:00", [](DateTimeChoice &choice) {
        choice.moveMonths(-1);
        choice.typeHour(u"8:00"_s);
    });
}

void DateTimeChoiceTest::moveStaysWithinTheNextFourteenDays()
{
    QFETCH(Steps, steps);
    Place place("Europe/Paris", u"2026-07-23 10:20"_s, u"2026-07-27 15:15"_s);
    steps(place.choice);
    QTEST(place.shown(), "shown");
    const QModelIndex chosen = place.choice.days()->index(place.choice.dayRow());
    QCOMPARE(chosen.data(MonthDays::Chosen).toBool(), true);
    QCOMPARE(chosen.data(MonthDays::Selectable).toBool(), true);
    QCOMPARE(chosen.data(MonthDays::InMonth).toBool(), true);
}

void DateTimeChoiceTest::onlyDaysWithinReachCanBeChosen()
{
    Place place("Europe/Paris", u"2026-07-23 10:20"_s, u"2026-07-27 15:15"_s);
    const MonthDays &days = *place.choice.days();
    int selectable = 0;
    for (int row = 0; row < days.rowCount(); ++row) {
        const QDate day = days.dayAt(row);
        const bool isSelectable = days.index(row).data(MonthDays::Selectable).toBool();
        selectable += isSelectable ? 1 : 0;
        place.choice.chooseDay(row);
        QCOMPARE(place.shown().first(10), isSelectable ? day.toString(Qt::ISODate) : u"2026-07-27"_s);
        place.choice.setStart(place.instant(u"2026-07-27 15:15"_s));
    }
    // From the 23rd to the end of the last week shown, the 9th of August being out of reach.
    QCOMPARE(selectable, 15);
    QVERIFY(!place.choice.hasEarlierMonth());
    QVERIFY(place.choice.hasLaterMonth());
}

void DateTimeChoiceTest::weeksBeginAsTheLocaleHasThem_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("firstName");
    QTest::addColumn<QDate>("firstDay");
    QTest::newRow("Monday") << german << u"Mo"_s << QDate(2026, 6, 29);
    QTest::newRow("Sunday") << american << u"Sun"_s << QDate(2026, 6, 28);
    QTest::newRow("Saturday") << QLocale(QLocale::English, QLocale::UnitedArabEmirates) << u"Sat"_s
                              << QDate(2026, 6, 27);
}

void DateTimeChoiceTest::weeksBeginAsTheLocaleHasThem()
{
    QFETCH(QLocale, locale);
    Place place("UTC", u"2026-07-14 08:00"_s, u"2026-07-15 13:15"_s, locale);
    QTEST(place.choice.weekdays().first(), "firstName");
    QTEST(place.choice.days()->dayAt(0), "firstDay");
}

void DateTimeChoiceTest::theChoiceIsWrittenOut_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("day");
    QTest::newRow("today") << german << u"2026-07-14 23:59"_s << u"Today, "_s;
    QTest::newRow("tomorrow") << german << u"2026-07-15 00:00"_s << u"Tomorrow, "_s;
    QTest::newRow("later") << german << u"2026-07-21 09:00"_s << u"Di. 21 Juli, "_s;
    QTest::newRow("later, month first") << american << u"2026-07-21 09:00"_s << u"Tue, Jul 21, "_s;
}

void DateTimeChoiceTest::theChoiceIsWrittenOut()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, start);
    QFETCH(QString, day);
    Place place("UTC", u"2026-07-14 08:00"_s, start, locale);
    QVERIFY2(place.choice.text().startsWith(day), qPrintable(place.choice.text()));
}

void DateTimeChoiceTest::aChoiceCanBeTakenBack()
{
    Place place("UTC", u"2026-07-14 08:00"_s, u"2026-07-15 13:15"_s);
    place.choice.begin();
    place.choice.moveDays(3);
    place.choice.stepHours(1);
    place.choice.revert();
    QCOMPARE(place.shown(), u"2026-07-15 13:15"_s);
}

void DateTimeChoiceTest::midnightMovesTheDaysOn()
{
    Place place("UTC", u"2026-07-14 23:59"_s, u"2026-07-15 13:15"_s);
    QSignalSpy changes(&place.choice, &DateTimeChoice::changed);
    QSignalSpy dayChanges(place.choice.days(), &MonthDays::dataChanged);
    place.choice.setNow(place.instant(u"2026-07-14 23:59"_s) + 59);
    QCOMPARE(changes.count() + dayChanges.count(), 0);
    place.choice.setNow(place.instant(u"2026-07-15 00:00"_s));
    QCOMPARE(changes.count(), 1);
    QVERIFY(place.choice.text().startsWith(u"Today, "_s));
    QCOMPARE(place.choice.days()->index(place.choice.dayRow()).data(MonthDays::Today).toBool(), true);
}

QTEST_GUILESS_MAIN(DateTimeChoiceTest)
#include "date_time_choice_test.moc"
