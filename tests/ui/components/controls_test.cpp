// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ViewPicture.h"

#include <QAccessible>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace quorvane;
using namespace Qt::StringLiterals;

namespace {

/// One control called "it" in a window; what it says is counted in `answers`, the last word of it is `last`.
struct Shown : ViewPicture
{
    bool showControl(const QByteArray &control, QSize size = {400, 300})
    {
        return showText(
            "import QtQuick\nimport Quorvane.Components\n"
            "Item { id: root; property int answers: 0; property string last; property string draft\n"
            "function say(word) { ++answers; last = word }\n" +
                control + "}",
            size);
    }
    [[nodiscard]] QQuickItem *it() const { return item("it"); }
    [[nodiscard]] int answers() const { return view.rootObject()->property("answers").toInt(); }
    [[nodiscard]] QString last() const { return view.rootObject()->property("last").toString(); }
    [[nodiscard]] static QAccessibleInterface &assistive(QObject *control)
    {
        return *QAccessible::queryAccessibleInterface(control);
    }
    [[nodiscard]] static QPoint middle(const QQuickItem *control) { return area(control).center().toPoint(); }
    void click(const QQuickItem *control) { QTest::mouseClick(&view, Qt::LeftButton, {}, middle(control)); }
    void press(Qt::Key key) { QTest::keyClick(&view, key); }
    void type(const char *letters)
    {
        for (const char *letter = letters; *letter; ++letter)
            QTest::keyClick(&view, *letter);
    }
    [[nodiscard]] bool hasFocus(const QQuickItem *control) const { return control->hasActiveFocus(); }
};

const QByteArray button = "ActionButton { objectName: 'it'; text: 'Save'; onClicked: root.say('') ";
const QByteArray iconButton =
    "IconButton { objectName: 'it'; icon: Icons.trash; name: 'Delete Stand-up'; onClicked: root.say('') ";
const QByteArray toggle = "ToggleSwitch { objectName: 'it'; name: 'Alert for Stand-up, 10:00'; "
                          "checked: true; onToggled: on => root.say(on) ";
const QByteArray secret = "SecretBox { objectName: 'it'; width: 300; label: 'Token'; saved: 'u7Qe'; value: "
                          "root.draft; focus: true; "
                          "onEdited: text => root.say(text); onCleared: root.say('cleared') }";

} // namespace

class ControlsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QAccessible::setActive(true); }
    void init() { QTest::failOnWarning(QRegularExpression(u"\\.qml"_s)); }
    void whatIsPressedAnswersOnce_data();
    void whatIsPressedAnswersOnce();
    void aDisabledControlIsDeafAndPassedOver_data();
    void aDisabledControlIsDeafAndPassedOver();
    void aSwitchShowsWhatItIsToldOnly();
    void theRingIsForTheKeyboard();
    void aFieldSaysWhatIsTypedAndWhatIsWrong();
    void aSecretIsReplacedOrClearedButNeverShown();
    void aSecretThatWasSavedIsBehindDotsAgain();
    void aChoiceIsMadeByKeys_data();
    void aChoiceIsMadeByKeys();
    void aListOfChoicesStaysInTheWindow();
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
    Shown shown;
    QVERIFY(shown.showControl(control));
    QCOMPARE(Shown::assistive(shown.it()).role(), role);
    QCOMPARE(Shown::assistive(shown.it()).text(QAccessible::Name), name);
    QVERIFY(Shown::assistive(shown.it()).state().focusable);
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
    QAccessibleActionInterface *actions = Shown::assistive(shown.it()).actionInterface();
    actions->doAction(role == QAccessible::CheckBox ? QAccessibleActionInterface::toggleAction()
                                                    : QAccessibleActionInterface::pressAction());
    QCOMPARE(shown.answers(), ++expected);
    QTest::mouseDClick(&shown.view, Qt::LeftButton, {}, Shown::middle(shown.it()));
    expected += 2;
    QCOMPARE(shown.answers(), expected);
    // Thought better of: let go elsewhere, by pointer and by keyboard.
    QTest::mousePress(&shown.view, Qt::LeftButton, {}, Shown::middle(shown.it()));
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
    Shown shown;
    QVERIFY(shown.showControl(control + "; enabled: false }"
                                        "TextBox { objectName: 'other'; y: 100; label: 'Other' }"));
    shown.press(Qt::Key_Tab);
    QVERIFY(shown.hasFocus(shown.item("other")));
    shown.click(shown.it());
    QVERIFY(shown.hasFocus(shown.item("other")));
    QAccessibleActionInterface *actions = Shown::assistive(shown.it()).actionInterface();
    for (const QString &name : actions->actionNames())
        actions->doAction(name);
    QCOMPARE(shown.answers(), 0);
}

void ControlsTest::aSwitchShowsWhatItIsToldOnly()
{
    Shown shown;
    QVERIFY(shown.showControl(toggle + "}"));
    shown.click(shown.it());
    QCOMPARE(shown.last(), u"false"_s);
    QVERIFY(shown.it()->property("checked").toBool());
    QVERIFY(Shown::assistive(shown.it()).state().checkable && Shown::assistive(shown.it()).state().checked);
    shown.it()->setProperty("checked", false);
    QVERIFY(!Shown::assistive(shown.it()).state().checked);
    QTRY_COMPARE(shown.it()->property("travel").toReal(), 0);
    shown.click(shown.it());
    QCOMPARE(shown.last(), u"true"_s);
}

void ControlsTest::theRingIsForTheKeyboard()
{
    Shown shown;
    QVERIFY(shown.showControl(button + "}"));
    const auto showsFocus = [&] { return shown.it()->property("showsFocus").toBool(); };
    shown.click(shown.it());
    QVERIFY(shown.hasFocus(shown.it()) && !showsFocus());
    shown.press(Qt::Key_Shift);
    QVERIFY(showsFocus());
    shown.click(shown.it());
    QVERIFY(!showsFocus());
}

void ControlsTest::aFieldSaysWhatIsTypedAndWhatIsWrong()
{
    Shown shown;
    QVERIFY(
        shown.showControl("TextBox { objectName: 'it'; width: 300; label: 'Meeting link'; hint: 'Optional'; "
                          "maximumLength: 5; focus: true; onEdited: text => root.say(text) }"));
    QAccessibleInterface &field = Shown::assistive(shown.item("input"));
    QCOMPARE(field.role(), QAccessible::EditableText);
    QCOMPARE(field.text(QAccessible::Name), u"Meeting link"_s);
    QCOMPARE(field.text(QAccessible::Description), u"Optional"_s);
    shown.type("zoom/j");
    QCOMPARE(shown.last(), u"zoom/"_s);
    QCOMPARE(shown.answers(), 5);
    // What the program says is no edit.
    shown.it()->setProperty("text", u"https"_s);
    QCOMPARE(shown.answers(), 5);
    const qreal low = shown.it()->implicitHeight();
    shown.it()->setProperty("hint", QString());
    QVERIFY(shown.it()->implicitHeight() < low);
    shown.it()->setProperty("error", u"Start the link with https://"_s);
    QCOMPARE(field.text(QAccessible::Description), u"Start the link with https://"_s);
    QCOMPARE(shown.it()->implicitHeight(), low);
}

void ControlsTest::aSecretIsReplacedOrClearedButNeverShown()
{
    Shown shown;
    QVERIFY(shown.showControl(secret));
    QQuickItem *input = shown.item("input");
    const auto placeholder = [&] { return input->parentItem()->property("placeholderText").toString(); };
    QVERIFY(placeholder().endsWith(u"\u2022u7Qe"_s));
    QVERIFY(!shown.it()->property("touched").toBool());
    shown.type("abc");
    QCOMPARE(shown.last(), u"abc"_s);
    QVERIFY(shown.it()->property("touched").toBool());
    QCOMPARE(input->property("displayText").toString(), u"\u2022\u2022\u2022"_s);
    QVERIFY(placeholder().isEmpty());
    QCOMPARE(Shown::assistive(input).text(QAccessible::Name), u"Token"_s);
    // Nothing typed any more: what is saved stays.
    shown.press(Qt::Key_Escape);
    QCOMPARE(shown.last(), QString());
    QVERIFY(!shown.it()->property("touched").toBool());
    QVERIFY(placeholder().endsWith(u"u7Qe"_s));

    QCOMPARE(Shown::assistive(shown.item("clear")).text(QAccessible::Name), u"Clear Token"_s);
    shown.press(Qt::Key_Tab);
    shown.press(Qt::Key_Space);
    QCOMPARE(shown.last(), u"cleared"_s);
    QVERIFY(shown.it()->property("touched").toBool());
    QVERIFY(placeholder().isEmpty());
    QVERIFY(!shown.item("clear")->isVisible() && shown.hasFocus(input));
}

void ControlsTest::aSecretThatWasSavedIsBehindDotsAgain()
{
    Shown shown;
    QVERIFY(shown.showControl(secret));
    shown.type("new9f2c");
    shown.it()->setProperty("saved", u"9f2c"_s);
    QCOMPARE(shown.it()->property("value").toString(), QString());
    QVERIFY(
        shown.item("input")->parentItem()->property("placeholderText").toString().endsWith(u"\u20229f2c"_s));
    // What its owner keeps is still followed.
    shown.view.rootObject()->setProperty("draft", u"typed before"_s);
    QCOMPARE(shown.it()->property("value").toString(), u"typed before"_s);
    shown.view.rootObject()->setProperty("draft", QString());
    shown.it()->setProperty("saved", QString());
    QVERIFY(!shown.item("clear")->isVisible());
}

void ControlsTest::aChoiceIsMadeByKeys_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("the next") << QList{Qt::Key_Down} << u"2"_s;
    QTest::newRow("by its first letter") << QList{Qt::Key_H} << u"3"_s;
    QTest::newRow("from the list") << QList{Qt::Key_Space, Qt::Key_Up, Qt::Key_Return} << u"0"_s;
    QTest::newRow("none") << QList{Qt::Key_Space, Qt::Key_Up, Qt::Key_Escape} << QString();
}

void ControlsTest::aChoiceIsMadeByKeys()
{
    QFETCH(QList<Qt::Key>, keys);
    QFETCH(QString, chosen);
    Shown shown;
    QVERIFY(shown.showControl(
        "ChoiceBox { objectName: 'it'; label: 'Duration'; focus: true; currentIndex: 1; "
        "model: ['Five', 'Ten', 'Twenty', 'Hour']; onActivated: index => root.say(index) }"));
    for (const Qt::Key key : keys)
        shown.press(key);
    QTRY_COMPARE(shown.last(), chosen);
    QAccessibleInterface &box = Shown::assistive(shown.item("choice"));
    QCOMPARE(box.role(), QAccessible::ComboBox);
    QCOMPARE(box.text(QAccessible::Name), u"Duration"_s);
    QCOMPARE(box.text(QAccessible::Description), QStringList({u"Five"_s, u"Ten"_s, u"Twenty"_s, u"Hour"_s})
                                                     .value(chosen.isEmpty() ? 1 : chosen.toInt()));
}

void ControlsTest::aListOfChoicesStaysInTheWindow()
{
    Shown shown;
    QVERIFY(shown.showControl("ChoiceBox { objectName: 'it'; y: 230; label: 'Duration'; focus: true; "
                              "model: Array.from({ length: 40 }, (_, index) => 'Choice ' + index) }"));
    shown.press(Qt::Key_Space);
    auto *popup = shown.it()->property("popup").value<QObject *>();
    QTRY_VERIFY(popup->property("opened").toBool());
    const QRectF list = Shown::area(popup->property("contentItem").value<QQuickItem *>());
    QVERIFY(list.height() > 100 && QRectF(8, 8, 384, 284).contains(list));
}

void ControlsTest::aNoticeComesAndGoes()
{
    Shown shown;
    QVERIFY(shown.showControl(
        "NoticeBanner { objectName: 'it'; y: 100; width: 400; text: ''; actionText: 'Sign in'; "
        "onAction: root.say('action'); onDismissed: { root.say('dismissed'); text = '' } }"));
    QVERIFY(!shown.it()->isVisible() && shown.it()->implicitHeight() == 0);
    shown.it()->setProperty("text", u"Offline"_s);
    QTRY_COMPARE(shown.it()->implicitHeight(), 48);
    QAccessibleInterface &words = Shown::assistive(shown.item("notice"));
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
    Shown shown;
    QVERIFY(shown.showControl(iconButton + "}"));
    const QImage before = shown.image();
    QTest::mouseMove(&shown.view, Shown::middle(shown.it()));
    const QRect below(0, 40, 120, 20);
    QTRY_VERIFY(shown.image().copy(below) != before.copy(below));
}

void ControlsTest::nothingMovesAtRest()
{
    Shown shown;
    QVERIFY(shown.showControl("Column { " + button + "} " + toggle + "} " + secret +
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
