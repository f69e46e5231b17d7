// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/ui/components/ShownControl.h"

#include <QRegularExpression>

using namespace quorvane;
using namespace Qt::StringLiterals;

namespace {

const QByteArray secret = "SecretBox { objectName: 'it'; width: 300; label: 'Token'; saved: 'u7Qe'; value: "
                          "root.draft; focus: true; "
                          "onEdited: text => root.say(text); onCleared: root.say('cleared') }";

} // namespace

class FieldsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u"\\.qml"_s)); }
    void aFieldSaysWhatIsTypedAndWhatIsWrong();
    void aSecretIsReplacedOrClearedButNeverShown();
    void aSecretThatWasSavedIsBehindDotsAgain();
    void aChoiceIsMadeByKeys_data();
    void aChoiceIsMadeByKeys();
    void aListOfChoicesStaysInTheWindow();
};

void FieldsTest::aFieldSaysWhatIsTypedAndWhatIsWrong()
{
    ShownControl shown;
    QVERIFY(
        shown.showControl("TextBox { objectName: 'it'; width: 300; label: 'Meeting link'; hint: 'Optional'; "
                          "maximumLength: 5; focus: true; onEdited: text => root.say(text) }"));
    QAccessibleInterface &field = ShownControl::assistive(shown.item("input"));
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

void FieldsTest::aSecretIsReplacedOrClearedButNeverShown()
{
    ShownControl shown;
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
    QCOMPARE(ShownControl::assistive(input).text(QAccessible::Name), u"Token"_s);
    // Nothing typed any more: what is saved stays.
    shown.press(Qt::Key_Escape);
    QCOMPARE(shown.last(), QString());
    QVERIFY(!shown.it()->property("touched").toBool());
    QVERIFY(placeholder().endsWith(u"u7Qe"_s));

    QCOMPARE(ShownControl::assistive(shown.item("clear")).text(QAccessible::Name), u"Clear Token"_s);
    shown.press(Qt::Key_Tab);
    shown.press(Qt::Key_Space);
    QCOMPARE(shown.last(), u"cleared"_s);
    QVERIFY(shown.it()->property("touched").toBool());
    QVERIFY(placeholder().isEmpty());
    QVERIFY(!shown.item("clear")->isVisible() && shown.hasFocus(input));
}

void FieldsTest::aSecretThatWasSavedIsBehindDotsAgain()
{
    ShownControl shown;
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

void FieldsTest::aChoiceIsMadeByKeys_data()
{
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("the next") << QList{Qt::Key_Down} << u"2"_s;
    QTest::newRow("by its first letter") << QList{Qt::Key_H} << u"3"_s;
    QTest::newRow("from the list") << QList{Qt::Key_Space, Qt::Key_Up, Qt::Key_Return} << u"0"_s;
    QTest::newRow("none") << QList{Qt::Key_Space, Qt::Key_Up, Qt::Key_Escape} << QString();
}

void FieldsTest::aChoiceIsMadeByKeys()
{
    QFETCH(QList<Qt::Key>, keys);
    QFETCH(QString, chosen);
    ShownControl shown;
    QVERIFY(shown.showControl(
        "ChoiceBox { objectName: 'it'; label: 'Duration'; focus: true; currentIndex: 1; "
        "model: ['Five', 'Ten', 'Twenty', 'Hour']; onActivated: index => root.say(index) }"));
    for (const Qt::Key key : keys)
        shown.press(key);
    QTRY_COMPARE(shown.last(), chosen);
    QAccessibleInterface &box = ShownControl::assistive(shown.item("choice"));
    QCOMPARE(box.role(), QAccessible::ComboBox);
    QCOMPARE(box.text(QAccessible::Name), u"Duration"_s);
    QCOMPARE(box.text(QAccessible::Description), QStringList({u"Five"_s, u"Ten"_s, u"Twenty"_s, u"Hour"_s})
                                                     .value(chosen.isEmpty() ? 1 : chosen.toInt()));
}

void FieldsTest::aListOfChoicesStaysInTheWindow()
{
    ShownControl shown;
    QVERIFY(shown.showControl("ChoiceBox { objectName: 'it'; y: 230; label: 'Duration'; focus: true; "
                              "model: Array.from({ length: 40 }, (_, index) => 'Choice ' + index) }"));
    shown.press(Qt::Key_Space);
    auto *popup = shown.it()->property("popup").value<QObject *>();
    QTRY_VERIFY(popup->property("opened").toBool());
    const QRectF list = ShownControl::area(popup->property("contentItem").value<QQuickItem *>());
    QVERIFY(list.height() > 100 && QRectF(8, 8, 384, 284).contains(list));
}

QTEST_MAIN(FieldsTest)
#include "fields_test.moc"
