// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/components/ShownControl.h"

#include <QRegularExpression>
#include <QSignalSpy>

using namespace quorvane;
using namespace Qt::StringLiterals;

namespace {

const QByteArray button = "ActionButton { objectName: 'it'; text: 'Save'; onClicked: root.say('') ";
const QByteArray iconButton =
    "IconButton { objectName: 'it'; icon: Icons.trash; name: 'Delete Stand-up'; onClicked: root.say('') ";
const QByteArray toggle = "ToggleSwitch { objectName: 'it'; name: 'Alert for Stand-up, 10:00'; "
                          "checked: true; onToggled: on => root.say(on) ";

} // namespace

class ControlsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u"\\.qml"_s)); }
    void whatIsPressedAnswersOnce_data();
    void whatIsPressedAnswersOnce();
    void aDisabledControlIsDeafAndPassedOver_data();
    void aDisabledControlIsDeafAndPassedOver();
    void aSwitchShowsWhatItIsToldOnly();
    void theRingIsForTheKeyboard();
    void aNoticeComesAndGoes();
    void aNameIsShownWhereOnePointsAt();
    void nothingMovesAtRest();
};

void ControlsTest::whatIsPressedAnswersOnce_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<QAccessible::Role>("role");
    QTest::addColumn<QString>("name");
    QTest::newRow("a button") << button + "}" << QAccessible::Button << u"Save"_s;
    QTest::newRow("an icon") << iconButton + "}" << QAccessible::Button << u"Delete Stand-up"_s;
    QTest::newRow("a switch") << toggle + "}" << QAccessible::CheckBox << u"Alert for Stand-up, 10:00"_s;
}

void ControlsTest::whatIsPressedAnswersOnce()
{
    QFETCH(QByteArray, control);
    QFETCH(QAccessible::Role, role);
    QFETCH(QString, name);
    ShownControl shown;
    QVERIFY(shown.showControl(control));
    QCOMPARE(ShownControl::assistive(shown.it()).role(), role);
    QCOMPARE(ShownControl::assistive(shown.it()).text(QAccessible::Name), name);
    QVERIFY(ShownControl::assistive(shown.it()).state().focusable);
    QVERIFY(shown.it()->width() >= 32 && shown.it()->height() >= 32);

    shown.press(Qt::Key_Tab);
    QVERIFY(shown.hasFocus(shown.it()));
    int expected = 0;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        shown.press(key);
        QCOMPARE(shown.answers(), ++expected);
    }
    shown.press(Qt::Key_A);
    QTest::keyClick(&shown.view, Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(shown.answers(), expected);
    shown.click(shown.it());
    QCOMPARE(shown.answers(), ++expected);
    QAccessibleActionInterface *actions = ShownControl::assistive(shown.it()).actionInterface();
    actions->doAction(role == QAccessible::CheckBox ? QAccessibleActionInterface::toggleAction()
                                                    : QAccessibleActionInterface::pressAction());
    QCOMPARE(shown.answers(), ++expected);
    QTest::mouseDClick(&shown.view, Qt::LeftButton, {}, ShownControl::middle(shown.it()));
    expected += 2;
    QCOMPARE(shown.answers(), expected);
    // Thought better of: let go elsewhere, by pointer and by keyboard.
    QTest::mousePress(&shown.view, Qt::LeftButton, {}, ShownControl::middle(shown.it()));
    QTest::mouseRelease(&shown.view, Qt::LeftButton, {}, {390, 290});
    QTest::keyPress(&shown.view, Qt::Key_Space);
    shown.it()->setFocus(false);
    QTest::keyRelease(&shown.view, Qt::Key_Space);
    QCOMPARE(shown.answers(), expected);
}

void ControlsTest::aDisabledControlIsDeafAndPassedOver_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("a button") << button;
    QTest::newRow("an icon") << iconButton;
    QTest::newRow("a switch") << toggle;
}

void ControlsTest::aDisabledControlIsDeafAndPassedOver()
{
    QFETCH(QByteArray, control);
    ShownControl shown;
    QVERIFY(shown.showControl(control + "; enabled: false }"
                                        "TextBox { objectName: 'other'; y: 100; label: 'Other' }"));
    shown.press(Qt::Key_Tab);
    QVERIFY(shown.hasFocus(shown.item("other")));
    shown.click(shown.it());
    QVERIFY(shown.hasFocus(shown.item("other")));
    QAccessibleActionInterface *actions = ShownControl::assistive(shown.it()).actionInterface();
    for (const QString &name : actions->actionNames())
        actions->doAction(name);
    QCOMPARE(shown.answers(), 0);
}

void ControlsTest::aSwitchShowsWhatItIsToldOnly()
{
    ShownControl shown;
    QVERIFY(shown.showControl(toggle + "}"));
    shown.click(shown.it());
    QCOMPARE(shown.last(), u"false"_s);
    QVERIFY(shown.it()->property("checked").toBool());
    QVERIFY(ShownControl::assistive(shown.it()).state().checkable &&
            ShownControl::assistive(shown.it()).state().checked);
    shown.it()->setProperty("checked", false);
    QVERIFY(!ShownControl::assistive(shown.it()).state().checked);
    QTRY_COMPARE(shown.it()->property("travel").toReal(), 0);
    shown.click(shown.it());
    QCOMPARE(shown.last(), u"true"_s);
}

void ControlsTest::theRingIsForTheKeyboard()
{
    ShownControl shown;
    QVERIFY(shown.showControl(button + "}"));
    const auto showsFocus = [&] { return shown.it()->property("showsFocus").toBool(); };
    shown.click(shown.it());
    QVERIFY(shown.hasFocus(shown.it()) && !showsFocus());
    shown.press(Qt::Key_Shift);
    QVERIFY(showsFocus());
    shown.click(shown.it());
    QVERIFY(!showsFocus());
}

void ControlsTest::aNoticeComesAndGoes()
{
    ShownControl shown;
    QVERIFY(shown.showControl(
        "NoticeBanner { objectName: 'it'; y: 100; width: 400; text: ''; actionText: 'Sign in'; "
        "onAction: root.say('action'); onDismissed: { root.say('dismissed'); text = '' } }"));
    QVERIFY(!shown.it()->isVisible() && shown.it()->implicitHeight() == 0);
    shown.it()->setProperty("text", u"Offline"_s);
    QTRY_COMPARE(shown.it()->implicitHeight(), 48);
    QAccessibleInterface &words = ShownControl::assistive(shown.item("notice"));
    QCOMPARE(words.role(), QAccessible::AlertMessage);
    QCOMPARE(words.text(QAccessible::Name), u"Offline"_s);
    shown.it()->setProperty("narrow", true);
    QTRY_COMPARE(shown.it()->implicitHeight(), 66);
    QVERIFY(!shown.it()->property("attended").toBool());
    shown.press(Qt::Key_Tab);
    QVERIFY(shown.it()->property("attended").toBool());
    shown.press(Qt::Key_Return);
    QCOMPARE(shown.last(), u"action"_s);
    shown.press(Qt::Key_Tab);
    shown.press(Qt::Key_Return);
    QCOMPARE(shown.last(), u"dismissed"_s);
    // It can be read until it has gone.
    QCOMPARE(words.text(QAccessible::Name), u"Offline"_s);
    QTRY_VERIFY(!shown.it()->isVisible());
    QCOMPARE(shown.it()->implicitHeight(), 0);
}

void ControlsTest::aNameIsShownWhereOnePointsAt()
{
    ShownControl shown;
    QVERIFY(shown.showControl(iconButton + "}"));
    const QImage before = shown.image();
    QTest::mouseMove(&shown.view, ShownControl::middle(shown.it()));
    const QRect below(0, 40, 120, 20);
    QTRY_VERIFY(shown.image().copy(below) != before.copy(below));
}

void ControlsTest::nothingMovesAtRest()
{
    ShownControl shown;
    QVERIFY(shown.showControl("Column { " + button + "} " + toggle +
                              "} TextBox { objectName: 'it'; label: 'Name' }"
                              "NoticeBanner { width: 300; text: 'Offline' } }"));
    shown.item("input")->forceActiveFocus();
    shown.appearance.setDark(false);
    QSignalSpy frames(&shown.view, &QQuickWindow::frameSwapped);
    const auto isQuiet = [&] {
        frames.clear();
        QTest::qWait(600);
        return frames.isEmpty();
    };
    QTRY_VERIFY_WITH_TIMEOUT(isQuiet(), 20000);
}

QTEST_MAIN(ControlsTest)
#include "controls_test.moc"
