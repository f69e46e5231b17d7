// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/agenda/AgendaWindow.h"

#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The list in the page: by keyboard, and while it changes.
class AgendaListTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { w.reset(); }

    void keysMoveBetweenRows();
    void theFocusSurvivesARefresh();
    void theFocusGoesOnWhenItsRowGoes();
    void aRefreshLeavesWhatIsSeenWhereItIs_data();
    void aRefreshLeavesWhatIsSeenWhereItIs();
    void onlyRowsInSightHaveItems();
    void whatStaysIsNeitherDrawnOverNorClickedThrough();
    void aTrashedMeetingIsAskedForInPlace();

private:
    std::unique_ptr<AgendaWindow> w;
};

void AgendaListTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"\\.qml"_s));
    w = std::make_unique<AgendaWindow>();
}

void AgendaListTest::keysMoveBetweenRows()
{
    w->addMany(300);
    w->open({884, 780});
    w->row(u"0"_s)->forceActiveFocus();
    w->press(Qt::Key_Up);
    QCOMPARE(w->focused(), u"0"_s);
    w->press(Qt::Key_Down);
    w->press(Qt::Key_Tab);
    w->press(Qt::Key_Tab);
    QCOMPARE(w->focused(), u"1/alert"_s);
    w->press(Qt::Key_Down);
    QCOMPARE(w->focused(), u"2"_s);
    w->press(Qt::Key_End);
    QCOMPARE(w->focused(), u"299"_s);
    QVERIFY(w->edgeOf(u"299"_s) <= 780);
    w->press(Qt::Key_PageUp);
    const int above = w->focused().toInt();
    QVERIFY(above < 299 && above > 280);
    w->press(Qt::Key_PageDown);
    w->press(Qt::Key_Home);
    QCOMPARE(w->focused(), u"0"_s);
    QCOMPARE(w->item("scroll")->property("contentY").toReal(), 0);
    w->press(Qt::Key_Space);
    QTRY_VERIFY(!w->agenda->meetings()->at(0).alerts);
}

void AgendaListTest::theFocusSurvivesARefresh()
{
    w->addMany(40);
    w->open({884, 780});
    w->row(u"5"_s)->forceActiveFocus();
    w->press(Qt::Key_Tab);
    QCOMPARE(w->focused(), u"5/join"_s);
    auto &events = w->scene.content.calendarEvents;
    events.erase(events.begin(), events.begin() + 3);
    w->refresh();
    events.front().title = u"renamed"_s;
    w->refresh();
    QCOMPARE(w->focused(), u"5/join"_s);
    w->settle();
    QCOMPARE(w->focused(), u"5/join"_s);
}

void AgendaListTest::theFocusGoesOnWhenItsRowGoes()
{
    w->addMany(3);
    w->open({884, 780});
    auto &events = w->scene.content.calendarEvents;
    w->row(u"1"_s)->forceActiveFocus();
    events.erase(events.begin() + 1);
    w->refresh();
    QTRY_COMPARE(w->focused(), u"2"_s);
    events.pop_back();
    w->refresh();
    QTRY_COMPARE(w->focused(), u"0"_s);
    events.clear();
    w->refresh();
    QTRY_VERIFY(w->focused() != u"0"_s);
    w->press(Qt::Key_Tab);
    QCOMPARE(w->focused(), u"addMeeting"_s);
}

void AgendaListTest::aRefreshLeavesWhatIsSeenWhereItIs_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"rows above come", "rows above go", "the first row in sight goes",
                               "rows below go", "rows in sight are renamed", "time passes"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void AgendaListTest::aRefreshLeavesWhatIsSeenWhereItIs()
{
    QFETCH(QString, change);
    w->addMany(2000);
    w->open({884, 780});
    w->item("scroll")->setProperty("contentY", 40000);
    w->settle();
    const int first = AgendaWindow::titleOf(w->rows()[w->rows().size() / 2]).toInt();
    const QString watched = QString::number(first);
    const double before = w->edgeOf(watched);
    QVERIFY(before > 0);

    auto &events = w->scene.content.calendarEvents;
    const auto all = w->rows();
    const QString highest = AgendaWindow::titleOf(*std::ranges::find_if(
        all, [](const QQuickItem *row) { return ViewPicture::area(row).bottom() > 290; }));
    if (change == u"rows above come") {
        for (int number = 0; number < 50; ++number) {
            Meeting extra = events[10];
            extra.id = extra.title = u"extra %1"_s.arg(number);
            events.insert(events.begin() + 11, extra);
        }
    } else if (change == u"rows above go") {
        events.erase(events.begin(), events.begin() + 30);
    } else if (change == u"the first row in sight goes") {
        std::erase_if(events, [&](const Meeting &event) { return event.title == highest; });
    } else if (change == u"rows below go") {
        events.erase(events.begin() + first + 1, events.end() - 50);
    } else if (change == u"rows in sight are renamed") {
        events[static_cast<std::size_t>(first) - 1].title = u"renamed"_s;
    } else {
        // Each second something begins or ends, and at midnight the days change their titles.
        AgendaScene::passTo(w->fixture, AgendaScene::at(1, 0, 0));
    }
    w->refresh();
    w->settle();
    QCOMPARE(w->edgeOf(watched), before);
}

void AgendaListTest::onlyRowsInSightHaveItems()
{
    w->addMany(2000);
    w->open({884, 780});
    QQuickItem *scroll = w->item("scroll");
    for (int y = 0; y < 120000; y += 777) {
        scroll->setProperty("contentY", y);
        w->settle();
        const auto seen = w->rows();
        QVERIFY(seen.size() < 16);
        QVERIFY(ViewPicture::area(seen.front()).top() <= ViewPicture::area(scroll).top() + 6);
        QVERIFY(ViewPicture::area(seen.back()).bottom() >= 780);
    }
    QVERIFY(w->item("list")->childItems().size() < 20);
    QCOMPARE(scroll->property("contentHeight").toReal(), 6 + w->item("list")->height() + 26);
}

void AgendaListTest::whatStaysIsNeitherDrawnOverNorClickedThrough()
{
    w->addMany(100);
    w->open({884, 718});
    const QRect head(0, 0, 884, 290);
    const QImage before = w->picture->image().copy(head);
    QQuickItem *scroll = w->item("scroll");
    for (int y = 10; y < 300; y += 10) {
        scroll->setProperty("contentY", y);
        QSignalSpy drawn(&w->picture->view, &QQuickWindow::frameSwapped);
        w->picture->view.update();
        QVERIFY(drawn.wait());
    }
    // What the window shows, and not a picture made for this test.
    const QImage shown = w->picture->view.screen()->grabWindow(w->picture->view.winId()).toImage().copy(head);
    QVERIFY(shown.convertToFormat(before.format()) == before);

    const QString hidden = AgendaWindow::titleOf(w->rows().front());
    scroll->setProperty("contentY", scroll->property("contentY").toReal() + w->edgeOf(hidden) - 280);
    w->settle();
    QCOMPARE(w->edgeOf(hidden), 280);
    w->click(w->inRow(hidden, "alert"));
    for (int row = 0; row < w->agenda->meetings()->count(); ++row)
        QVERIFY(w->agenda->meetings()->at(row).alerts);
}

void AgendaListTest::aTrashedMeetingIsAskedForInPlace()
{
    w->scene.addMorning();
    w->open({884, 780});
    const QString dentist = u"Dentist – leave the house now"_s;
    w->click(w->inRow(dentist, "delete"));
    QCOMPARE(w->focused(), dentist + u"/deleteKeep"_s);
    w->press(Qt::Key_Return);
    QCOMPARE(w->focused(), dentist);
    QCOMPARE(w->agenda->meetings()->count(), 7);
    w->press(Qt::Key_Delete);
    QCOMPARE(w->focused(), dentist + u"/deleteKeep"_s);
    w->press(Qt::Key_Escape);
    QVERIFY(!w->agenda->meetings()->at(3).asksDelete);
    w->press(Qt::Key_Delete);
    w->press(Qt::Key_Backtab, Qt::ShiftModifier);
    w->press(Qt::Key_Space);
    QTRY_VERIFY(w->fixture.model->manualMeetings().empty());
    QTRY_COMPARE(w->focused(), u"1:1 with Priya"_s);
}

QTEST_MAIN(AgendaListTest)
#include "agenda_list_test.moc"
