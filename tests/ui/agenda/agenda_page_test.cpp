// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/agenda/AgendaWindow.h"

#include <QAccessible>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The page as it is seen and heard. With QUORVANE_PICTURES it leaves pictures of what it saw in that folder.
class AgendaPageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { w.reset(); }

    void everyWindowHoldsEveryWord_data();
    void everyWindowHoldsEveryWord();
    void tabGoesFromTheActionToTheSources();
    void whatIsPressedHappens();
    void rowsAreReadOut();

private:
    void keepPicture();

    std::unique_ptr<AgendaWindow> w;
};

void AgendaPageTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"\\.qml"_s));
    w = std::make_unique<AgendaWindow>();
}

void AgendaPageTest::keepPicture()
{
    const QString folder = qEnvironmentVariable("QUORVANE_PICTURES");
    if (folder.isEmpty())
        return;
    // Colours and switches have come to rest.
    QTest::qWait(600);
    w->picture->image().save(u"%1/agenda-%2.png"_s.arg(folder, QLatin1StringView(QTest::currentDataTag())));
}

void AgendaPageTest::everyWindowHoldsEveryWord_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<Switch>("dark");
    const auto row = [](const char *name, const char *kind, QSize size, Switch dark) {
        QTest::newRow(name) << QString::fromLatin1(kind) << size << dark;
    };
    row("dark", "morning", {884, 780}, Switch::on);
    row("light", "morning", {884, 780}, Switch::off);
    row("paused-dark", "paused", {884, 780}, Switch::on);
    row("paused-light", "paused", {884, 780}, Switch::off);
    row("narrow-dark", "morning", {748, 1120}, Switch::on);
    row("minimum-light", "morning", {648, 620}, Switch::off);
    row("wide-light", "morning", {1224, 900}, Switch::off);
    row("empty-dark", "empty", {884, 780}, Switch::on);
    row("empty-minimum-light", "empty", {648, 620}, Switch::off);
    row("third-step-light", "third step", {884, 780}, Switch::off);
    row("no-meetings-light", "no meetings", {884, 780}, Switch::off);
    row("trouble-dark", "trouble", {884, 718}, Switch::on);
    row("long-words-dark", "long words", {884, 780}, Switch::on);
    row("long-words-minimum-light", "long words", {648, 620}, Switch::off);
    row("question-minimum-light", "question", {648, 720}, Switch::off);
    row("scrolled-dark", "scrolled", {884, 718}, Switch::on);
    row("begun-dark", "begun", {884, 780}, Switch::on);
    row("alert-off-light", "alert off", {884, 780}, Switch::off);
}

void AgendaPageTest::everyWindowHoldsEveryWord()
{
    QFETCH(QString, kind);
    QFETCH(QSize, size);
    QFETCH(Switch, dark);
    const QString words =
        QStringLiteral("Quarterly planning with everybody who was at the last one, and others ");
    if (kind == u"empty" || kind == u"third step") {
        w->scene.content.calendars.clear();
        w->scene.content.sources.clear();
        w->scene.content.phoneHealth = {.state = PhoneHealth::State::notSetUp};
    } else if (kind == u"no meetings") {
        w->scene.content.records.insert(u"an earlier one"_s, AlertRecord{});
    } else if (kind == u"long words") {
        w->scene.content.calendars[1].name = words;
        w->scene.content.sources[0].account = words;
        for (int number = 0; number < 8; ++number) {
            Meeting &meeting = w->scene.add(words.repeated(14), AgendaScene::at(number, 23, 10), 60 * 23, "");
            meeting.calendar = words;
            meeting.source = Meeting::manualSource;
        }
    } else {
        w->scene.addMorning();
    }
    if (kind == u"scrolled")
        w->addMany(300);
    if (kind == u"trouble") {
        w->scene.content.phoneHealth.state = PhoneHealth::State::failed;
        w->scene.content.sources[1].state = SourceHealth::State::failing;
        w->scene.content.sources[1].lastRead = QDateTime(QDate(2026, 7, 14), QTime(6, 48));
        w->scene.content.status =
            u"Microsoft 365 did not answer; its saved meetings are retained. 6 meetings scheduled for alerts"_s;
    }
    w->open(size, dark);
    if (kind == u"third step") {
        w->scene.addMorning();
        w->refresh();
    } else if (kind == u"paused") {
        w->fixture.model->pauseAlerts();
    } else if (kind == u"begun") {
        AgendaScene::passTo(w->fixture, AgendaScene::at(0, 10, 1));
    } else if (kind == u"alert off") {
        w->agenda->next()->toggleAlert();
    }
    if (kind == u"question") {
        w->agenda->meetings()->askToDelete(w->agenda->meetings()->at(3).id());
        w->row(u"Stand-up"_s)->forceActiveFocus();
    } else if (kind == u"scrolled") {
        w->item("scroll")->setProperty("contentY", 8000);
    }
    w->settle();
    keepPicture();
    for (const QQuickItem *item : w->picture->view.rootObject()->findChildren<QQuickItem *>()) {
        const QString text = item->property("text").toString();
        if (!item->isVisible() || text.isEmpty() || item->opacity() == 0)
            continue;
        const QRectF area = ViewPicture::area(item);
        QVERIFY2(area.left() >= 0 && area.right() <= size.width(), qPrintable(text));
    }
}

void AgendaPageTest::tabGoesFromTheActionToTheSources()
{
    w->scene.addMorning();
    w->open({884, 780});
    QStringList order;
    for (int turn = 0; turn < 9; ++turn) {
        w->press(Qt::Key_Tab);
        order.append(w->focused());
    }
    QCOMPARE(order.join(u' '), u"addMeeting heroJoin heroAlert Stand-up Stand-up/join Stand-up/alert pause "
                               "refresh addMeeting"_s);
    w->press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(w->focused(), u"refresh"_s);
}

void AgendaPageTest::whatIsPressedHappens()
{
    for (const int minutes : {10, 40, 60})
        w->fixture.store->add(QString::number(minutes), ModelFixture::noon + 60 * minutes);
    w->fixture.start();
    QTRY_COMPARE(w->fixture.model->calendarEvents().size(), 3U);
    w->open({884, 780});
    const QSignalSpy adding(w->picture->view.rootObject(), SIGNAL(addMeetingRequested()));
    w->click(w->item("addMeeting"));
    QCOMPARE(adding.size(), 1);
    w->click(w->item("heroJoin"));
    w->click(w->inRow(u"40"_s, "join"));
    QCOMPARE(w->fixture.alert.opener.opened.size(), 2);
    w->click(w->inRow(u"60"_s, "alert"));
    QTRY_VERIFY(!w->agenda->meetings()->at(2).alerts);
    w->click(w->item("heroAlert"));
    QTRY_VERIFY(!w->agenda->next()->face().alerts);
    w->click(w->item("pause"));
    QTRY_VERIFY(w->agenda->protection()->isPaused());
    QTRY_VERIFY(!w->fixture.model->isRefreshing());
    const int readings = w->fixture.store->queries;
    w->click(w->item("refresh"));
    QTRY_COMPARE(w->fixture.store->queries, readings + 1);
}

void AgendaPageTest::rowsAreReadOut()
{
    w->scene.addMorning();
    w->scene.add(u"100 %1\nof %2"_s, AgendaScene::at(2, 17, 0), 30, "House\nof many");
    w->open({884, 980});
    const auto spoken = [](QObject *item) {
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(item);
        return face ? face->text(QAccessible::Name) : QString();
    };
    QCOMPARE(spoken(w->row(u"Stand-up"_s)), u"Today, Stand-up, Now, 9:30 – 10:00, 30 min, Platform"_s);
    QCOMPARE(spoken(w->inRow(u"Stand-up"_s, "alert")), u"Alert for Stand-up, 9:30"_s);
    QCOMPARE(spoken(w->inRow(u"Stand-up"_s, "join")), u"Join Stand-up"_s);
    QCOMPARE(spoken(w->row(u"100 %1 of %2"_s)), u"100 %1 of %2, 17:00 – 17:30, 30 min, House of many"_s);
    QCOMPARE(spoken(w->inRow(u"100 %1 of %2"_s, "alert")), u"Alert for 100 %1 of %2, 17:00"_s);
    QCOMPARE(spoken(w->item("hero")),
             u"Next meeting, In 12 min, Weekly design review, 10:00 – 10:30, Design team"_s);
    QCOMPARE(spoken(w->item("refresh")), u"Refresh all sources"_s);
    // In the order of the rows.
    QStringList titles;
    for (const QQuickItem *row : w->rows())
        titles.append(AgendaWindow::titleOf(row));
    QCOMPARE(titles.front() + u'|' + titles.back(), u"Stand-up|100 %1 of %2"_s);
}

QTEST_MAIN(AgendaPageTest)
#include "agenda_page_test.moc"
