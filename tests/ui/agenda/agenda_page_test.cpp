// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ViewPicture.h"
#include "tests/ui/agenda/AgendaScene.h"

#include "ui/agenda/Agenda.h"
#include "ui/agenda/AgendaView.h"

#include <QAccessible>
#include <QRegularExpression>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The page in a window. With QUORVANE_PICTURES it leaves pictures of what it saw in that folder.
class AgendaPageTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everyWindowHoldsEveryWord_data();
    void everyWindowHoldsEveryWord();
    void tabGoesFromTheActionToTheSources();
    void keysMoveBetweenRows();
    void theFocusSurvivesARefresh();
    void theFocusGoesOnWhenItsRowGoes();
    void aRefreshLeavesWhatIsSeenWhereItIs_data();
    void aRefreshLeavesWhatIsSeenWhereItIs();
    void onlyRowsInSightHaveItems();
    void whatStaysIsNeitherDrawnOverNorClickedThrough();
    void aTrashedMeetingIsAskedForInPlace();
    void whatIsPressedHappens();
    void rowsAreReadOut();

private:
    void open(QSize size, Switch dark = Switch::on);
    void addMany(int count);
    void keepPicture();
    /// Has everything laid out and drawn.
    void settle() { (void)picture->image(); }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void click(const QQuickItem *item);
    [[nodiscard]] QString focused() const;
    [[nodiscard]] QQuickItem *rowOf(const QString &title) const;
    [[nodiscard]] QQuickItem *inRow(const QString &title, const char *name) const;
    [[nodiscard]] double yOf(const QString &title) const;
    [[nodiscard]] static QString titleOf(const QQuickItem *row);
    [[nodiscard]] std::vector<QQuickItem *> rows() const;

    std::unique_ptr<ModelFixture> f;
    std::unique_ptr<AgendaScene> scene;
    std::unique_ptr<Agenda> agenda;
    std::unique_ptr<ViewPicture> picture;
};

void AgendaPageTest::initTestCase()
{
    AgendaView::registerTypes();
}

void AgendaPageTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"\\.qml"_s));
    f = std::make_unique<ModelFixture>();
    scene = std::make_unique<AgendaScene>();
}

void AgendaPageTest::cleanup()
{
    picture.reset();
    agenda.reset();
    f.reset();
}

void AgendaPageTest::open(QSize size, Switch dark)
{
    if (!f->model)
        scene->show(*f);
    agenda = std::make_unique<Agenda>(*f->model);
    picture = std::make_unique<ViewPicture>(dark);
    picture->view.setColor(dark == Switch::on ? QColor(0x12, 0x10, 0x0d) : QColor(0xfa, 0xf7, 0xf2));
    QVERIFY(picture->show(QUrl(u"qrc:/Quorvane/Agenda/AgendaPage.qml"_s), size,
                          {{u"agenda"_s, QVariant::fromValue(agenda.get())}}));
    picture->view.rootObject()->forceActiveFocus();
}

void AgendaPageTest::addMany(int count)
{
    for (int number = 0; number < count; ++number)
        scene->add(QString::number(number), AgendaScene::morning() + 600 * (number + 1), 30, "Platform");
}

void AgendaPageTest::keepPicture()
{
    const QString folder = qEnvironmentVariable("QUORVANE_PICTURES");
    if (!folder.isEmpty())
        picture->image().save(u"%1/agenda-%2.png"_s.arg(folder, QLatin1StringView(QTest::currentDataTag())));
}

void AgendaPageTest::press(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(&picture->view, static_cast<Qt::Key>(key), modifiers);
}

void AgendaPageTest::click(const QQuickItem *item)
{
    QVERIFY(item);
    QTest::mouseClick(&picture->view, Qt::LeftButton, {}, ViewPicture::area(item).center().toPoint());
}

/// "row title/control", or the control's name alone.
QString AgendaPageTest::focused() const
{
    const QQuickItem *active = picture->view.activeFocusItem();
    for (const QQuickItem *row : rows()) {
        if (row == active)
            return titleOf(row);
        if (active && row->isAncestorOf(active))
            return titleOf(row) + u'/' + active->objectName();
    }
    return active ? active->objectName() : QString();
}

std::vector<QQuickItem *> AgendaPageTest::rows() const
{
    std::vector<QQuickItem *> result;
    for (QQuickItem *item : picture->item("list")->childItems()) {
        if (item->isVisible())
            result.push_back(item);
    }
    return result;
}

QString AgendaPageTest::titleOf(const QQuickItem *row)
{
    return row->property("row").value<MeetingRow>().title();
}

QQuickItem *AgendaPageTest::rowOf(const QString &title) const
{
    const auto all = rows();
    const auto found = std::ranges::find(all, title, &AgendaPageTest::titleOf);
    return found == all.end() ? nullptr : *found;
}

QQuickItem *AgendaPageTest::inRow(const QString &title, const char *name) const
{
    QQuickItem *row = rowOf(title);
    return row ? row->findChild<QQuickItem *>(QLatin1StringView(name)) : nullptr;
}

double AgendaPageTest::yOf(const QString &title) const
{
    const QQuickItem *row = rowOf(title);
    return row ? ViewPicture::area(row).bottom() : -1;
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
        scene->content.calendars.clear();
        scene->content.sources.clear();
        scene->content.phoneHealth = {.state = PhoneHealth::State::notSetUp};
    } else if (kind == u"no meetings") {
        scene->content.records.insert(u"an earlier one"_s, AlertRecord{});
    } else if (kind == u"long words") {
        scene->content.calendars[1].name = words;
        scene->content.sources[0].account = words;
        for (int number = 0; number < 8; ++number)
            scene
                ->add(words.repeated(14), AgendaScene::at(number, 23, 10), 60 * 23, words.toUtf8(),
                      u"https://zoom.us/j/1"_s)
                .source = Meeting::manualSource;
    } else {
        scene->addMorning();
    }
    if (kind == u"scrolled")
        addMany(300);
    if (kind == u"trouble") {
        scene->content.phoneHealth.state = PhoneHealth::State::failed;
        scene->content.sources[1].state = SourceHealth::State::failing;
        scene->content.sources[1].lastRead = QDateTime(QDate(2026, 7, 14), QTime(6, 48));
        scene->content.status =
            u"Microsoft 365 did not answer; its saved meetings are retained. 6 meetings scheduled for alerts"_s;
    }
    open(size, dark);
    if (kind == u"third step") {
        scene->addMorning();
        scene->show(*f);
    } else if (kind == u"paused") {
        f->model->pauseAlerts();
    } else if (kind == u"begun") {
        AgendaScene::passTo(*f, AgendaScene::at(0, 10, 1));
    } else if (kind == u"alert off") {
        agenda->next()->toggleAlert();
    }
    if (kind == u"question") {
        agenda->meetings()->askToDelete(agenda->meetings()->at(3).id());
        rowOf(u"Stand-up"_s)->forceActiveFocus();
    } else if (kind == u"scrolled") {
        picture->item("scroll")->setProperty("contentY", 8000);
    }
    QTest::qWait(600);
    keepPicture();
    for (const QQuickItem *item : picture->view.rootObject()->findChildren<QQuickItem *>()) {
        const QString text = item->property("text").toString();
        if (!item->isVisible() || text.isEmpty() || item->opacity() == 0)
            continue;
        const QRectF area = ViewPicture::area(item);
        QVERIFY2(area.left() >= 0 && area.right() <= size.width(), qPrintable(text));
    }
}

void AgendaPageTest::tabGoesFromTheActionToTheSources()
{
    scene->addMorning();
    open({884, 780});
    QStringList order;
    for (int turn = 0; turn < 9; ++turn) {
        press(Qt::Key_Tab);
        order.append(focused());
    }
    QCOMPARE(order.join(u' '), u"addMeeting heroJoin heroAlert Stand-up Stand-up/join Stand-up/alert pause "
                               "refresh addMeeting"_s);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(focused(), u"refresh"_s);
}

void AgendaPageTest::keysMoveBetweenRows()
{
    addMany(300);
    open({884, 780});
    rowOf(u"0"_s)->forceActiveFocus();
    press(Qt::Key_Up);
    QCOMPARE(focused(), u"0"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    QCOMPARE(focused(), u"1/alert"_s);
    press(Qt::Key_Down);
    QCOMPARE(focused(), u"2"_s);
    press(Qt::Key_End);
    QCOMPARE(focused(), u"299"_s);
    QVERIFY(yOf(u"299"_s) <= 780);
    press(Qt::Key_PageUp);
    const int above = focused().toInt();
    QVERIFY(above < 299 && above > 280);
    press(Qt::Key_PageDown);
    press(Qt::Key_Home);
    QCOMPARE(focused(), u"0"_s);
    QCOMPARE(picture->item("scroll")->property("contentY").toReal(), 0);
    press(Qt::Key_Space);
    QTRY_VERIFY(!agenda->meetings()->at(0).alerts);
}

void AgendaPageTest::theFocusSurvivesARefresh()
{
    addMany(40);
    open({884, 780});
    rowOf(u"5"_s)->forceActiveFocus();
    press(Qt::Key_Tab);
    QCOMPARE(focused(), u"5/join"_s);
    auto &events = scene->content.calendarEvents;
    events.erase(events.begin(), events.begin() + 3);
    scene->show(*f);
    events.front().title = u"renamed"_s;
    scene->show(*f);
    QCOMPARE(focused(), u"5/join"_s);
    settle();
    QCOMPARE(focused(), u"5/join"_s);
}

void AgendaPageTest::theFocusGoesOnWhenItsRowGoes()
{
    addMany(3);
    open({884, 780});
    auto &events = scene->content.calendarEvents;
    rowOf(u"1"_s)->forceActiveFocus();
    events.erase(events.begin() + 1);
    scene->show(*f);
    QTRY_COMPARE(focused(), u"2"_s);
    events.pop_back();
    scene->show(*f);
    QTRY_COMPARE(focused(), u"0"_s);
    events.clear();
    scene->show(*f);
    QTRY_VERIFY(focused() != u"0"_s);
    press(Qt::Key_Tab);
    QCOMPARE(focused(), u"addMeeting"_s);
}

void AgendaPageTest::aRefreshLeavesWhatIsSeenWhereItIs_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : {"rows above come", "rows above go", "the first row in sight goes",
                               "rows below go", "rows in sight are renamed", "time passes"})
        QTest::newRow(change) << QString::fromLatin1(change);
}

void AgendaPageTest::aRefreshLeavesWhatIsSeenWhereItIs()
{
    QFETCH(QString, change);
    addMany(2000);
    open({884, 780});
    picture->item("scroll")->setProperty("contentY", 40000);
    settle();
    const int first = titleOf(rows()[rows().size() / 2]).toInt();
    const QString watched = QString::number(first);
    const double before = yOf(watched);
    QVERIFY(before > 0);

    auto &events = scene->content.calendarEvents;
    const auto all = rows();
    const QString highest = titleOf(*std::ranges::find_if(
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
        AgendaScene::passTo(*f, AgendaScene::at(1, 0, 0));
    }
    scene->show(*f);
    settle();
    QCOMPARE(yOf(watched), before);
}

void AgendaPageTest::onlyRowsInSightHaveItems()
{
    addMany(2000);
    open({884, 780});
    QQuickItem *scroll = picture->item("scroll");
    for (double y = 0; y < 120000; y += 777) {
        scroll->setProperty("contentY", y);
        settle();
        const auto seen = rows();
        QVERIFY(seen.size() < 16);
        QVERIFY(ViewPicture::area(seen.front()).top() <= ViewPicture::area(scroll).top() + 6);
        QVERIFY(ViewPicture::area(seen.back()).bottom() >= 780);
    }
    QVERIFY(picture->item("list")->childItems().size() < 20);
    QCOMPARE(scroll->property("contentHeight").toReal(), 6 + picture->item("list")->height() + 26);
}

void AgendaPageTest::whatStaysIsNeitherDrawnOverNorClickedThrough()
{
    addMany(100);
    open({884, 718});
    const QRect head(0, 0, 884, 290);
    const QImage before = picture->image().copy(head);
    QQuickItem *scroll = picture->item("scroll");
    for (int y = 10; y < 300; y += 10) {
        scroll->setProperty("contentY", y);
        QSignalSpy drawn(&picture->view, &QQuickWindow::frameSwapped);
        picture->view.update();
        QVERIFY(drawn.wait());
    }
    // What the window shows, and not a picture made for this test.
    const QImage shown = picture->view.screen()->grabWindow(picture->view.winId()).toImage().copy(head);
    QVERIFY(shown.convertToFormat(before.format()) == before);

    const QString hidden = titleOf(rows().front());
    scroll->setProperty("contentY", scroll->property("contentY").toReal() + yOf(hidden) - 280);
    settle();
    QCOMPARE(yOf(hidden), 280);
    click(inRow(hidden, "alert"));
    for (int row = 0; row < agenda->meetings()->count(); ++row)
        QVERIFY(agenda->meetings()->at(row).alerts);
}

void AgendaPageTest::aTrashedMeetingIsAskedForInPlace()
{
    scene->addMorning();
    open({884, 780});
    const QString dentist = u"Dentist – leave the house now"_s;
    click(inRow(dentist, "delete"));
    QCOMPARE(focused(), dentist + u"/deleteKeep"_s);
    press(Qt::Key_Return);
    QCOMPARE(focused(), dentist);
    QCOMPARE(agenda->meetings()->count(), 7);
    press(Qt::Key_Delete);
    QCOMPARE(focused(), dentist + u"/deleteKeep"_s);
    press(Qt::Key_Escape);
    QVERIFY(!agenda->meetings()->at(3).asksDelete);
    press(Qt::Key_Delete);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    press(Qt::Key_Space);
    QTRY_VERIFY(f->model->manualMeetings().empty());
    QTRY_COMPARE(focused(), u"1:1 with Priya"_s);
}

void AgendaPageTest::whatIsPressedHappens()
{
    for (const int minutes : {10, 40, 60})
        f->store->add(QString::number(minutes), ModelFixture::noon + 60 * minutes);
    f->start();
    QTRY_COMPARE(f->model->calendarEvents().size(), 3U);
    open({884, 780});
    const QSignalSpy adding(picture->view.rootObject(), SIGNAL(addMeetingRequested()));
    click(picture->item("addMeeting"));
    QCOMPARE(adding.size(), 1);
    click(picture->item("heroJoin"));
    click(inRow(u"40"_s, "join"));
    QCOMPARE(f->alert.opener.opened.size(), 2);
    click(inRow(u"60"_s, "alert"));
    QTRY_VERIFY(!agenda->meetings()->at(2).alerts);
    click(picture->item("heroAlert"));
    QTRY_VERIFY(!agenda->next()->face().alerts);
    click(picture->item("pause"));
    QTRY_VERIFY(agenda->protection()->isPaused());
    QTRY_VERIFY(!f->model->isRefreshing());
    const int readings = f->store->queries;
    click(picture->item("refresh"));
    QTRY_COMPARE(f->store->queries, readings + 1);
}

void AgendaPageTest::rowsAreReadOut()
{
    scene->addMorning();
    open({884, 780});
    const auto spoken = [](QObject *item) {
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(item);
        return face ? face->text(QAccessible::Name) : QString();
    };
    QCOMPARE(spoken(rowOf(u"Stand-up"_s)), u"Today, Stand-up, Now, 9:30 – 10:00, 30 min, Platform"_s);
    QCOMPARE(spoken(inRow(u"Stand-up"_s, "alert")), u"Alert for Stand-up, 9:30"_s);
    QCOMPARE(spoken(inRow(u"Stand-up"_s, "join")), u"Join Stand-up"_s);
    QCOMPARE(spoken(picture->item("hero")),
             u"Next meeting, In 12 min, Weekly design review, 10:00 – 10:30, Design team"_s);
    QCOMPARE(spoken(picture->item("refresh")), u"Refresh all sources"_s);
    // In the order of the rows.
    QStringList titles;
    for (const QQuickItem *row : rows())
        titles.append(titleOf(row));
    QCOMPARE(titles.front() + u'|' + titles.back(), u"Stand-up|Roadmap office hours"_s);
}

QTEST_MAIN(AgendaPageTest)
#include "agenda_page_test.moc"
