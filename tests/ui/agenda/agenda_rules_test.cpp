// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/AgendaRows.h"
#include "ui/agenda/AgendaText.h"
#include "ui/agenda/HeroRules.h"

#include <QDateTime>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

double at(int day, int hour, int minute)
{
    return static_cast<double>(QDateTime(QDate(2026, 7, day), QTime(hour, minute)).toSecsSinceEpoch());
}

const double now = at(14, 9, 48);

Meeting meeting(const QString &id, double start, int minutes = 30)
{
    return {.id = id, .title = id, .start = start, .end = start + 60 * minutes};
}

QString dayMarks(const std::vector<MeetingRow> &rows)
{
    QString marks;
    for (const MeetingRow &row : rows) {
        marks += row.isFirstOfDay ? u'[' + row.dayTitle + u'|' + row.dayDate + u"] "_s : QString();
        marks += row.meeting.id + (row.isNow ? u"*"_s : QString()) + (row.isLastOfDay ? u"; "_s : u" "_s);
    }
    return marks.trimmed();
}

} // namespace

class AgendaRulesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rowsStandByDay();
    void rowsHoldUntilSomethingBeginsOrEnds_data();
    void rowsHoldUntilSomethingBeginsOrEnds();
    void theHeroShowsWhatComesNext_data();
    void theHeroShowsWhatComesNext();
    void theDialShowsTheWayToTheStart_data();
    void theDialShowsTheWayToTheStart();
    void theLightTellsWhetherAnAlertWillCome_data();
    void theLightTellsWhetherAnAlertWillCome();
    void calendarsHaveDotsByTurn();
    void agesAreShort_data();
    void agesAreShort();
};

void AgendaRulesTest::rowsStandByDay()
{
    const AgendaContent content{
        .events = {meeting(u"yesterday's"_s, at(13, 23, 0), 700), meeting(u"over"_s, at(14, 9, 0)),
                   meeting(u"stand-up"_s, at(14, 9, 30)), meeting(u"review"_s, at(14, 10, 0)),
                   meeting(u"review"_s, at(14, 10, 0)), meeting(u"priya"_s, at(15, 9, 0)),
                   meeting(u"roadmap"_s, at(16, 16, 0)), meeting(u"late"_s, at(16, 23, 59)),
                   meeting(u"never"_s, 1e300)}};
    QCOMPARE(dayMarks(AgendaRows::of(content, now)),
             u"[Yesterday|Monday 13 July] yesterday's*; [Today|Tuesday 14 July] stand-up* review; "
             "[Tomorrow|Wednesday 15 July] priya; [Thursday|16 July] roadmap late;"_s);
}

void AgendaRulesTest::rowsHoldUntilSomethingBeginsOrEnds_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("until");
    QTest::newRow("its start") << at(14, 10, 0) << at(14, 10, 0);
    QTest::newRow("its end, once it has begun") << at(14, 9, 40) << at(14, 10, 10);
    QTest::newRow("midnight, which changes the days' titles") << at(15, 9, 0) << at(15, 0, 0);
}

void AgendaRulesTest::rowsHoldUntilSomethingBeginsOrEnds()
{
    QFETCH(double, start);
    const auto rows = AgendaRows::of({.events = {meeting(u"m"_s, start)}}, now);
    QTEST(AgendaRows::validUntil(rows, now), "until");
}

void AgendaRulesTest::theHeroShowsWhatComesNext_data()
{
    using Meetings = std::vector<Meeting>;
    QTest::addColumn<Meetings>("scheduled");
    QTest::addColumn<Meetings>("events");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const Meetings &scheduled, const Meetings &others, const char *kept,
                        const char *shown) {
        Meetings events = scheduled;
        events.insert(events.end(), others.begin(), others.end());
        QTest::newRow(name) << scheduled << events << QString::fromLatin1(kept) << QString::fromLatin1(shown);
    };
    const Meeting a = meeting(u"a"_s, now + 600);
    const Meeting b = meeting(u"b"_s, now + 900);
    const auto begun = [](double ago) { return meeting(u"begun"_s, now - ago); };
    row("nothing", {}, {}, "", "");
    row("the first that alerts", {b}, {a}, "", "b");
    row("the first of all when none alerts", {}, {a, b}, "", "a");
    row("one that has just begun", {begun(119), a}, {}, "", "begun");
    row("not one that began long ago", {begun(121), a}, {}, "", "a");
    row("the next in its last minute", {begun(60), meeting(u"c"_s, now + 59)}, {}, "", "c");
    row("the later of two that have begun", {begun(100), meeting(u"c"_s, now - 5)}, {}, "", "c");
    row("the first of two that begin together", {meeting(u"c"_s, now), meeting(u"d"_s, now)}, {}, "", "c");
    row("not one that has ended", {meeting(u"short"_s, now - 60, 1), a}, {}, "", "a");
    row("the one just switched off", {b}, {a}, "a", "a");
    row("not one switched off that is gone", {b}, {}, "a", "b");
    Meeting allDay = meeting(u"all day"_s, now + 60);
    allDay.allDay = true;
    row("no all-day event", {}, {allDay, b}, "", "b");
}

void AgendaRulesTest::theHeroShowsWhatComesNext()
{
    QFETCH(std::vector<Meeting>, scheduled);
    QFETCH(std::vector<Meeting>, events);
    QFETCH(QString, kept);
    const CalendarDots dots;
    const HeroFace face = HeroRules::face(
        {.scheduled = scheduled, .events = events, .dots = dots, .pausedUntil = {}, .kept = kept}, now);
    QTEST(face.title, "shown");
    QCOMPARE(face.exists, !face.title.isEmpty());
}

void AgendaRulesTest::theDialShowsTheWayToTheStart_data()
{
    QTest::addColumn<double>("left");
    QTest::addColumn<double>("sweep");
    QTest::newRow("12 minutes") << 720.0 << 72.0;
    QTest::newRow("an hour, all the way round") << 3600.0 << 360.0;
    QTest::newRow("more than an hour") << 3601.0 << 0.0;
    QTest::newRow("across the full hour") << 1800.0 << 180.0;
    QTest::newRow("a second: never nothing before the start") << 1.0 << 0.1;
    QTest::newRow("begun") << 0.0 << 0.0;
}

void AgendaRulesTest::theDialShowsTheWayToTheStart()
{
    QFETCH(double, left);
    const std::vector<Meeting> meetings{meeting(u"m"_s, now + left)};
    const CalendarDots dots;
    const HeroFace face = HeroRules::face(
        {.scheduled = meetings, .events = meetings, .dots = dots, .pausedUntil = {}, .kept = {}}, now);
    QCOMPARE(face.vane, 288.0);
    QTEST(face.sweep, "sweep");
}

void AgendaRulesTest::theLightTellsWhetherAnAlertWillCome_data()
{
    QTest::addColumn<bool>("alerts");
    QTest::addColumn<bool>("paused");
    QTest::addColumn<QString>("chip");
    QTest::newRow("it alerts") << true << false << QString();
    QTest::newRow("paused") << true << true << u"Alerts paused until 9:53"_s;
    QTest::newRow("alert off") << false << false << u"Alert off"_s;
    QTest::newRow("alert off says more than the pause") << false << true << u"Alert off"_s;
}

void AgendaRulesTest::theLightTellsWhetherAnAlertWillCome()
{
    QFETCH(bool, alerts);
    QFETCH(bool, paused);
    const std::vector<Meeting> events{meeting(u"m"_s, now + 720)};
    const std::vector<Meeting> none;
    const CalendarDots dots;
    HeroSituation situation{
        .scheduled = alerts ? events : none, .events = events, .dots = dots, .pausedUntil = {}, .kept = {}};
    if (paused)
        situation.pausedUntil = QDateTime(QDate(2026, 7, 14), QTime(9, 53));
    const HeroFace face = HeroRules::face(situation, now);
    QTEST(face.chip, "chip");
    QCOMPARE(face.isLit, face.chip.isEmpty());
    QCOMPARE(face.countdown, u"In 12 min"_s);
    QCOMPARE(face.dialTime, u"10:00"_s);
}

void AgendaRulesTest::calendarsHaveDotsByTurn()
{
    const CalendarDots dots(
        {{.id = u"1"_s, .name = u"Work"_s, .color = u"#123456"_s}, {.id = u"2"_s, .name = u"Home"_s}},
        {{.id = u"3"_s, .name = u"Club"_s}, {.id = u"4"_s, .name = u"Work"_s}});
    QCOMPARE(dots.of(u"Work"_s), (CalendarDot{.color = u"#123456"_s, .turn = 0}));
    QCOMPARE(dots.of(u"Club"_s), (CalendarDot{.turn = 2}));
    QCOMPARE(dots.of(u"Added by you"_s), dots.of(u"unheard of"_s));
}

void AgendaRulesTest::agesAreShort_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("ahead, by another clock") << -5.0 << u"just now"_s;
    QTest::newRow("59 s") << 59.9 << u"just now"_s;
    QTest::newRow("1 min") << 60.0 << u"1 min ago"_s;
    QTest::newRow("59 min") << 3599.0 << u"59 min ago"_s;
    QTest::newRow("3 h") << 14399.0 << u"3 h ago"_s;
    QTest::newRow("1 day") << 86400.0 << u"1 day ago"_s;
    QTest::newRow("2 days") << 172800.0 << u"2 days ago"_s;
}

void AgendaRulesTest::agesAreShort()
{
    QFETCH(double, seconds);
    QTEST(AgendaText::ago(seconds), "text");
}

QTEST_GUILESS_MAIN(AgendaRulesTest)
#include "agenda_rules_test.moc"
