// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/calendars/CalendarsFixture.h"

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QRegularExpression>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

using State = SourceHealth::State;

QVariant accountRole(CalendarChoices &choices, int row, AccountList::Role role)
{
    return choices.accounts()->index(row).data(role);
}

CalendarList *calendarsOf(CalendarChoices &choices, int row)
{
    return accountRole(choices, row, AccountList::Calendars).value<CalendarList *>();
}

/// Names of the accounts with those of their calendars.
QStringList listed(CalendarChoices &choices)
{
    QStringList lines;
    for (int row = 0; row < choices.accounts()->count(); ++row) {
        QString line = accountRole(choices, row, AccountList::Name).toString() + u':';
        const CalendarList &calendars = *calendarsOf(choices, row);
        for (int place = 0; place < calendars.count(); ++place)
            line += u' ' + calendars.index(place).data(CalendarList::FullName).toString() + u';';
        lines.append(line);
    }
    return lines;
}

CalendarOption calendar(const QString &id, const QString &account)
{
    return {.id = id, .name = id.toUpper(), .account = account};
}

} // namespace

class CalendarsPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void calendarsStandBelowTheirAccounts();
    void anAccountSaysHowItIs_data();
    void anAccountSaysHowItIs();
    void timePassesWithoutAReset();
    void listsChangeInPlace();
    void aFailingAccountStaysListed();
    void aSwitchShowsTheChoiceAtOnce();
    void whatTheSecondSourceSaysIsSaidOnce();
    void theKeyboardWorksTheSwitches();
    void failingAccountsAndFoldersOfferWhatHelps();
    void everySwitchIsNamedInFull();
    void manyCalendarsAreShownInTime();
};

void CalendarsPageTest::initTestCase()
{
    // Some minutes before the test's noon are of the same day there.
    qputenv("TZ", "UTC");
}

void CalendarsPageTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"\\.qml"_s));
}

void CalendarsPageTest::calendarsStandBelowTheirAccounts()
{
    CalendarsFixture page;
    page.start(AppModel::Mode::preview);
    PreviewContent content;
    content.calendars = {calendar(u"a"_s, u"Work"_s), calendar(u"b"_s, u"Home"_s),
                         calendar(u"c"_s, u"Work"_s), calendar(u"d"_s, QString())};
    content.fantasticalConnected = true;
    content.fantasticalCalendars = {calendar(u"e"_s, u"Work"_s), calendar(u"f"_s, u"Fantastical"_s)};
    content.sources = {{.account = u"Fantastical"_s, .isFantastical = true}, {.account = u"Work"_s}};
    page.model->showPreview(content);
    CalendarChoices choices(*page.model);
    const QStringList expected{u"Other calendars: D;"_s, u"Home: B;"_s, u"Work: A; C;"_s,
                               u"Fantastical: E, Work; F;"_s};
    QCOMPARE(listed(choices), expected);
}

void CalendarsPageTest::anAccountSaysHowItIs_data()
{
    QTest::addColumn<SourceHealth>("health");
    QTest::addColumn<QString>("text");
    const auto row = [](const QString &text, State state, double secondsAgo) {
        QTest::newRow(qPrintable(text)) << CalendarsFixture::account(u"Work"_s, state, secondsAgo) << text;
    };
    const QDateTime noon = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(ModelFixture::noon));
    const QLocale locale = QLocale::system();
    QTest::newRow("not read") << SourceHealth{.account = u"Work"_s} << u"Not read yet"_s;
    row(u"Refreshing…"_s, State::refreshing, 70);
    row(u"Up to date · just now"_s, State::upToDate, 59);
    row(u"Up to date · 1 min ago"_s, State::upToDate, 60);
    row(u"Up to date · 59 min ago"_s, State::upToDate, 3599);
    row(u"Not answering · last refresh "_s + noon.addSecs(-120).toString(u"H:mm"_s), State::failing, 120);
    row(u"Not answering · last refresh Yesterday "_s + noon.toString(u"H:mm"_s), State::failing, 86400);
    row(u"Up to date · "_s + locale.dayName(noon.date().addDays(-3).dayOfWeek()) + u' ' +
            noon.toString(u"H:mm"_s),
        State::upToDate, 3 * 86400);
}

void CalendarsPageTest::anAccountSaysHowItIs()
{
    QFETCH(SourceHealth, health);
    CalendarsFixture page;
    page.start(AppModel::Mode::preview);
    PreviewContent content;
    content.sources = {health};
    page.model->showPreview(content);
    CalendarChoices choices(*page.model);
    QTEST(accountRole(choices, 0, AccountList::StateText).toString(), "text");
}

void CalendarsPageTest::timePassesWithoutAReset()
{
    CalendarsFixture page;
    page.start();
    QTRY_COMPARE(page.model->sources().size(), 1U);
    QTRY_VERIFY(!page.model->isRefreshing());
    CalendarChoices choices(*page.model);
    QCOMPARE(accountRole(choices, 0, AccountList::StateText).toString(), u"Up to date · just now"_s);
    const QSignalSpy changes(choices.accounts(), &AccountList::dataChanged);
    page.tickAt(ModelFixture::noon + 1);
    QCOMPARE(changes.count(), 0);
    page.store->hangs = true;
    page.tickAt(ModelFixture::noon + 61);
    QTRY_COMPARE(accountRole(choices, 0, AccountList::StateText).toString(), u"Up to date · 1 min ago"_s);
    Q_EMIT page.store->released();
    QTRY_VERIFY(!page.model->isRefreshing());
}

void CalendarsPageTest::listsChangeInPlace()
{
    CalendarsFixture page;
    page.start();
    QTRY_VERIFY(!page.model->isRefreshing());
    CalendarChoices choices(*page.model);
    const QAbstractItemModelTester accountsTester(choices.accounts());
    CalendarList *calendars = calendarsOf(choices, 0);
    const QAbstractItemModelTester calendarsTester(calendars);
    const QSignalSpy accountResets(choices.accounts(), &AccountList::modelReset);
    const QSignalSpy calendarResets(calendars, &CalendarList::modelReset);
    const QSignalSpy kept(calendars, &CalendarList::rowsRemoved);

    page.store->options = {calendar(u"b"_s, u"Another"_s),
                           {u"a"_s, u"Above"_s, u"Account"_s},
                           {u"c"_s, u"Calendar"_s, u"Account"_s}};
    QCoro::waitFor(page.model->refresh());
    const QStringList more{u"Account: Above; Calendar;"_s, u"Another: B;"_s};
    QCOMPARE(listed(choices), more);
    QCOMPARE(calendarsOf(choices, 0), calendars);
    QCOMPARE(kept.count(), 0);

    page.store->options = {calendar(u"b"_s, u"Another"_s),
                           {u"a"_s, u"Late"_s, u"Account"_s},
                           {u"c"_s, u"Calendar"_s, u"Account"_s}};
    QCoro::waitFor(page.model->refresh());
    QCOMPARE(listed(choices).first(), u"Account: Calendar; Late;"_s);
    QCOMPARE(accountResets.count() + calendarResets.count(), 0);
}

void CalendarsPageTest::aFailingAccountStaysListed()
{
    CalendarsFixture page;
    page.start();
    QTRY_VERIFY(!page.model->isRefreshing());
    CalendarChoices choices(*page.model);
    page.store->failure = std::make_error_code(std::errc::io_error);
    QCoro::waitFor(page.model->refresh());
    QCOMPARE(listed(choices), QStringList{u"Account: Calendar;"_s});
    QCOMPARE(accountRole(choices, 0, AccountList::State).value<AccountList::Mood>(),
             AccountList::Mood::failing);
    QVERIFY(choices.status().contains(u"retained"_s));
}

void CalendarsPageTest::aSwitchShowsTheChoiceAtOnce()
{
    CalendarsFixture page;
    page.start();
    QTRY_VERIFY(!page.model->isRefreshing());
    CalendarChoices choices(*page.model);
    const QModelIndex row = calendarsOf(choices, 0)->index(0);
    page.store->hangs = true;
    choices.switchCalendar(u"c"_s);
    QCOMPARE(row.data(CalendarList::IsRead).toBool(), false);
    QCOMPARE(page.model->excludedCalendars(), QStringList{u"c"_s});
    choices.switchCalendar(u"c"_s);
    QCOMPARE(row.data(CalendarList::IsRead).toBool(), true);
    page.store->hangs = false;
    Q_EMIT page.store->released();
    QTRY_VERIFY(!page.model->isRefreshing());
}

void CalendarsPageTest::whatTheSecondSourceSaysIsSaidOnce()
{
    CalendarsFixture page;
    page.start(AppModel::Mode::preview);
    PreviewContent content;
    content.fantasticalStatus = u"Fantastical connected"_s;
    page.model->showPreview(content);
    CalendarChoices choices(*page.model);
    QCOMPARE(choices.fantasticalStatus(), content.fantasticalStatus);
    content.sources = {{.account = u"Fantastical"_s, .isFantastical = true}};
    page.model->showPreview(content);
    QCOMPARE(choices.fantasticalStatus(), QString());
    QCOMPARE(accountRole(choices, 0, AccountList::Message).toString(), content.fantasticalStatus);
}

void CalendarsPageTest::theKeyboardWorksTheSwitches()
{
    CalendarsFixture page;
    for (const QChar letter : u"abcdef"_s)
        page.store->options.push_back(calendar(QString(letter), u"Account"_s));
    page.start();
    QTRY_VERIFY(!page.model->isRefreshing());
    QVERIFY(page.open({884, 400}));
    const auto focused = [&page] { return page.picture.view.activeFocusItem()->objectName(); };
    QStringList order;
    for (int turn = 0; turn < 6; ++turn) {
        QTest::keyClick(&page.picture.view, Qt::Key_Tab);
        order.append(focused());
    }
    const QStringList expected{
        u"refresh"_s, u"connectSystem"_s, u"connectFolder"_s, u"connectFantastical"_s, u"a"_s, u"b"_s};
    QCOMPARE(order, expected);
    QTest::keyClick(&page.picture.view, Qt::Key_Down);
    QTest::keyClick(&page.picture.view, Qt::Key_Space);
    const QString switched = focused();
    QCOMPARE(page.model->excludedCalendars(), QStringList{switched});
    QTest::keyClick(&page.picture.view, Qt::Key_Down);
    const QRectF window({}, QSizeF(page.picture.view.size()));
    QVERIFY(window.contains(ViewPicture::area(page.picture.view.activeFocusItem())));
    QTRY_VERIFY(!page.model->isRefreshing());
}

void CalendarsPageTest::failingAccountsAndFoldersOfferWhatHelps()
{
    CalendarsFixture page;
    page.start(AppModel::Mode::preview);
    PreviewContent content;
    content.sources = {CalendarsFixture::account(u"Work"_s, State::upToDate, 0)};
    page.model->showPreview(content);
    QVERIFY(page.open());
    QVERIFY(!page.item(u"again"_s)->isVisible());
    QVERIFY(!page.item(u"disconnect"_s)->isVisible());
    content.sources.front().state = State::failing;
    content.sources.front().folder = u"/home/ada/calendars"_s;
    page.model->showPreview(content);
    QVERIFY(page.item(u"again"_s)->isVisible());
    QVERIFY(page.item(u"disconnect"_s)->isVisible());
    QCOMPARE(page.choices->foldersText(), u"1 folder connected"_s);
}

void CalendarsPageTest::everySwitchIsNamedInFull()
{
    CalendarsFixture page;
    page.start(AppModel::Mode::preview);
    PreviewContent content;
    const QString name = u"A calendar with a name that goes on "_s.repeated(8);
    content.calendars = {{.id = u"long"_s, .name = name, .account = u"Work"_s}};
    content.settings.excludedCalendars = {u"long"_s};
    page.model->showPreview(content);
    QVERIFY(page.open({504, 620}));
    QQuickItem *toggle = page.item(u"long"_s);
    QVERIFY(QRectF(0, 0, 504, 10000).contains(ViewPicture::area(toggle)));
    QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(toggle);
    QCOMPARE(spoken->text(QAccessible::Name), name);
    QCOMPARE(spoken->role(), QAccessible::CheckBox);
    QVERIFY(!spoken->state().checked);
}

void CalendarsPageTest::manyCalendarsAreShownInTime()
{
    CalendarsFixture page;
    page.start(AppModel::Mode::preview);
    PreviewContent content;
    for (int number = 0; number < 200; ++number)
        content.calendars.push_back(calendar(QString::number(number), u"Work"_s));
    page.model->showPreview(content);
    QVERIFY(page.open());
    const QQuickItem *before = page.item(u"150"_s);
    content.settings.excludedCalendars = {u"150"_s};
    page.model->showPreview(content);
    QCOMPARE(page.item(u"150"_s), before);
    QCOMPARE(before->property("checked").toBool(), false);
}

QTEST_MAIN(CalendarsPageTest)
#include "calendars_page_test.moc"
