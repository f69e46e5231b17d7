// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ItemSearch.h"
#include "tests/ui/sheet/SheetFixture.h"

#include <QAccessible>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace quorvane;

class SheetTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void returnAddsWhatIsTyped();
    void returnOnAnInvalidFormDoesNothing();
    void keysOfTheOpenListStayThere();
    void escapeAndTheButtonsCancel_data();
    void escapeAndTheButtonsCancel();
    void tabStaysOnTheSheet();
    void thePointerStaysOnTheSheet();
    void thePickerIsWorkedByTheKeyboard();
    void thePickerIsWorkedByThePointer();
    void thePickerMayBeOpenedAgainAndAgain();
    void everyDayHasItsName();
    void everythingStaysInTheWindow_data();
    void everythingStaysInTheWindow();
    void aLowWindowScrollsToWhatHasTheKeyboard();
};

void SheetTest::init()
{
    QTest::failOnWarning(QRegularExpression(u"\\.qml"_s));
}

void SheetTest::returnAddsWhatIsTyped()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    sheet.type("Coffee");
    sheet.press(Qt::Key_Tab);
    sheet.press(Qt::Key_Tab);
    sheet.press(Qt::Key_Down);
    sheet.press(Qt::Key_Tab);
    sheet.type("https://zoom.us/j/1");
    sheet.press(Qt::Key_Return);
    QTRY_COMPARE(sheet.count("dismissals"), 1);
    const std::vector<Meeting> added = sheet.model->manualMeetings();
    QCOMPARE(added.size(), 1U);
    QCOMPARE(added.front().title, u"Coffee"_s);
    QCOMPARE(added.front().joinURL, u"https://zoom.us/j/1"_s);
    QCOMPARE(added.front().end - added.front().start, 45.0 * 60);
}

void SheetTest::returnOnAnInvalidFormDoesNothing()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    sheet.press(Qt::Key_Return);
    sheet.type("Coffee");
    sheet.form->setLink(u"zoom"_s);
    sheet.press(Qt::Key_Enter);
    QVERIFY(!sheet.form->isSaving());
    QCOMPARE(sheet.count("dismissals"), 0);
    QVERIFY(sheet.model->manualMeetings().empty());
    QCOMPARE(sheet.form->title(), u"Coffee"_s);
}

void SheetTest::keysOfTheOpenListStayThere()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    sheet.type("Coffee");
    sheet.press(Qt::Key_Tab);
    sheet.press(Qt::Key_Tab);
    QCOMPARE(sheet.focused(), u"choice"_s);
    sheet.press(Qt::Key_Space);
    sheet.press(Qt::Key_Down);
    sheet.press(Qt::Key_Return);
    QCOMPARE(sheet.form->duration(), 45);
    sheet.press(Qt::Key_Space);
    sheet.press(Qt::Key_Down);
    sheet.press(Qt::Key_Escape);
    QCOMPARE(sheet.form->duration(), 45);
    QCOMPARE(sheet.count("dismissals"), 0);
    QVERIFY(!sheet.form->isSaving());
    QVERIFY(sheet.model->manualMeetings().empty());
}

void SheetTest::escapeAndTheButtonsCancel_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("Escape") << QString();
    QTest::newRow("Cancel") << u"cancel"_s;
    QTest::newRow("Close") << u"close"_s;
}

void SheetTest::escapeAndTheButtonsCancel()
{
    QFETCH(QString, button);
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    sheet.type("Coffee");
    if (button.isEmpty())
        sheet.press(Qt::Key_Escape);
    else
        sheet.clickOn(button.toLatin1().constData());
    QCOMPARE(sheet.count("dismissals"), 1);
    QVERIFY(sheet.model->manualMeetings().empty());
}

void SheetTest::tabStaysOnTheSheet()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    QStringList order;
    for (int turn = 0; turn < 7; ++turn) {
        order.append(sheet.focused());
        sheet.press(Qt::Key_Tab);
    }
    // Nothing can be added yet.
    const QStringList expected{u"title"_s,  u"starts"_s, u"choice"_s, u"link"_s,
                               u"cancel"_s, u"close"_s,  u"title"_s};
    QCOMPARE(order, expected);
    sheet.form->setTitle(u"Coffee"_s);
    order.clear();
    for (int turn = 0; turn < 8; ++turn) {
        order.append(sheet.focused());
        sheet.press(Qt::Key_Backtab, Qt::ShiftModifier);
    }
    QVERIFY(order.contains(u"add"_s));
    QVERIFY(!order.contains(u"behind"_s));
}

void SheetTest::thePointerStaysOnTheSheet()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    QTest::mouseClick(&sheet.picture.view, Qt::LeftButton, {}, {10, 10});
    QCOMPARE(sheet.count("behind"), 0);
    QCOMPARE(sheet.count("dismissals"), 0);
}

void SheetTest::thePickerIsWorkedByTheKeyboard()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    const double proposed = sheet.form->start();
    const QDateTime day = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(proposed));
    const auto at = [&day](int days, QTime time) {
        return static_cast<double>(QDateTime(day.date().addDays(days), time).toSecsSinceEpoch());
    };
    sheet.press(Qt::Key_Tab);
    sheet.press(Qt::Key_Space);
    QTRY_COMPARE(sheet.focused(), u"day"_s);
    sheet.press(Qt::Key_Right);
    sheet.press(Qt::Key_Down);
    sheet.press(Qt::Key_Left);
    sheet.press(Qt::Key_Tab);
    QCOMPARE(sheet.focused(), u"hour"_s);
    sheet.type("14:30");
    QCOMPARE(sheet.focused(), u"minute"_s);
    sheet.press(Qt::Key_Return);
    QTRY_COMPARE(sheet.focused(), u"starts"_s);
    QCOMPARE(sheet.form->start(), at(7, {14, 30}));

    sheet.press(Qt::Key_Space);
    QTRY_COMPARE(sheet.focused(), u"day"_s);
    sheet.press(Qt::Key_PageUp);
    QStringList stops;
    do {
        sheet.press(Qt::Key_Tab);
        stops.append(sheet.focused());
    } while (stops.size() < 20 && stops.last() != "day"_L1);
    QVERIFY(stops.contains(u"hour"_s) && stops.contains(u"done"_s) && stops.last() == "day"_L1);
    QVERIFY(!stops.contains(u"title"_s));
    sheet.press(Qt::Key_Tab);
    sheet.press(Qt::Key_Up);
    sheet.type("1");
    sheet.press(Qt::Key_Escape);
    QTRY_COMPARE(sheet.focused(), u"starts"_s);
    QCOMPARE(sheet.form->start(), at(7, {14, 30}));
    QCOMPARE(sheet.count("dismissals"), 0);
    QVERIFY(sheet.model->manualMeetings().empty());
}

void SheetTest::thePickerIsWorkedByThePointer()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    const double proposed = sheet.form->start();
    sheet.clickOn("starts");
    QTRY_COMPARE(sheet.focused(), u"day"_s);
    auto *choice = sheet.form->startChoice();
    const auto cell = [&](int row) {
        return findItem(sheet.picture.item("days"), [row](const QQuickItem &item) {
            return item.objectName() == "day"_L1 && item.property("index").toInt() == row;
        });
    };
    sheet.click(cell(choice->dayRow() + 1));
    QCOMPARE(sheet.form->start(), proposed + 86400);
    sheet.click(cell(0));
    QCOMPARE(sheet.form->start(), proposed + 86400);
    sheet.clickOn("done");
    QTRY_COMPARE(sheet.focused(), u"starts"_s);
    sheet.clickOn("starts");
    QTRY_COMPARE(sheet.focused(), u"day"_s);
    sheet.clickOn("starts");
    QTRY_COMPARE(sheet.focused(), u"starts"_s);
}

// Shapes that come back into a window crash the drawing where memory is used again at once.
void SheetTest::thePickerMayBeOpenedAgainAndAgain()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    for (int times = 0; times < 10; ++times) {
        sheet.clickOn("starts");
        QTRY_COMPARE(sheet.focused(), u"day"_s);
        QVERIFY(!sheet.picture.view.grabWindow().isNull());
        sheet.clickOn("starts");
        QTRY_COMPARE(sheet.focused(), u"starts"_s);
    }
}

void SheetTest::everyDayHasItsName()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open());
    sheet.clickOn("starts");
    QTRY_COMPARE(sheet.focused(), u"day"_s);
    QAccessibleInterface *day = QAccessible::queryAccessibleInterface(sheet.picture.view.activeFocusItem());
    QVERIFY(day);
    const QDate date = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(sheet.form->start())).date();
    QCOMPARE(day->text(QAccessible::Name), QLocale::system().toString(date, QLocale::LongFormat));
    QCOMPARE(day->role(), QAccessible::RadioButton);
    QVERIFY(day->state().checked);
}

void SheetTest::everythingStaysInTheWindow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("the usual window") << QSize(1100, 780);
    QTest::newRow("upright") << QSize(820, 1120);
    QTest::newRow("the smallest window") << QSize(720, 620);
}

void SheetTest::everythingStaysInTheWindow()
{
    QFETCH(QSize, size);
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open(size));
    QTRY_COMPARE(sheet.picture.item("panel")->opacity(), 1.0);
    const QRectF window({}, QSizeF(size));
    QVERIFY(window.contains(ViewPicture::area(sheet.picture.item("panel"))));
    sheet.clickOn("starts");
    QTRY_COMPARE(sheet.focused(), u"day"_s);
    for (const char *name : {"days", "hour", "done"})
        QVERIFY2(window.contains(ViewPicture::area(sheet.picture.item(name))), name);
}

void SheetTest::aLowWindowScrollsToWhatHasTheKeyboard()
{
    SheetFixture sheet;
    sheet.start();
    QVERIFY(sheet.open({720, 400}));
    QTRY_COMPARE(sheet.picture.item("panel")->opacity(), 1.0);
    const QRectF panel = ViewPicture::area(sheet.picture.item("panel"));
    for (int turn = 0; turn < 7; ++turn) {
        const QQuickItem *item = sheet.picture.view.activeFocusItem();
        const QRectF focused = item->mapRectToScene({QPointF(), item->size()});
        QVERIFY2(panel.top() <= focused.top() && focused.bottom() <= panel.bottom(),
                 qPrintable(sheet.focused()));
        sheet.press(Qt::Key_Tab);
    }
}

QTEST_MAIN(SheetTest)
#include "sheet_test.moc"
