// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ViewPicture.h"
#include "ui/components/Theme.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

using namespace quorvane;
using namespace Qt::StringLiterals;

class ThemeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(u"\\.qml"_s)); }
    void everyStateHasItsColours_data();
    void everyStateHasItsColours();
    void theColoursFadeToTheOtherOnes();
    void withReducedMotionTheyChangeAtOnce();
    void withoutAnAppearanceItIsDark();
    void aCalendarWithoutAColourGetsOneByTurn();
};

void ThemeTest::everyStateHasItsColours_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QPoint>("where");
    QTest::addColumn<QRgb>("inDark");
    QTest::addColumn<QRgb>("inLight");
    const auto row = [](const char *what, int x, int y, QRgb inDark, QRgb inLight) {
        const QString name = QString::fromLatin1(what);
        QTest::newRow(what) << name.section(u',', 0, 0) << QPoint(x, y) << inDark << inLight;
    };
    row("Save Default", 30, 5, 0xffaf45, 0xffaf45);
    row("Save Pressed", 30, 5, 0xcf8e3a, 0xfebd68);
    row("Save Focus, ring", 30, -3, 0xf7f0e5, 0x211a13);
    row("Save Focus, gap", 30, -1, 0x12100d, 0xfaf7f2);
    row("Save Disabled", 30, 5, 0x2a241d, 0xf6f1e9);
    row("Pause Default", 50, 4, 0x2a241d, 0xf6f1e9);
    row("Pause Default, outline", 50, 0, 0x2f2820, 0xe8e0d4);
    row("Pause Hover", 50, 4, 0x362e25, 0xeee6da);
    row("Cancel Default", 40, 4, 0x12100d, 0xfaf7f2);
    row("Cancel Default, outline", 40, 0, 0x463c31, 0xcfc3b2);
    row("Cancel Hover", 40, 4, 0x2a241d, 0xf6f1e9);
    row("Remove Default, outline", 44, 0, 0x71413b, 0xdea39d);
    row("switch 0, fill", 6, 16, 0xffaf45, 0xffaf45);
    row("switch 0, knob", 25, 16, 0x1e1305, 0x1e1305);
    row("switch 1, knob", 10, 16, 0xa39685, 0x6f6456);
    row("switch 1, outline", 18, 5, 0x85786a, 0x857969);
    row("switch 4, knob", 25, 16, 0x523817, 0x987f5d);
    row("icon 0", 5, 5, 0x2a241d, 0xf6f1e9);
    row("field, fill", 120, 32, 0x15120e, 0xfdfbf8);
    row("field, outline", 120, 25, 0x75685a, 0x988b79);
    row("focused field, outline", 120, 25, 0xffaf45, 0x8a4f00);
    row("focused field, halo", 120, 23, 0x5a401e, 0xfcd9a9);
    row("wrong field, outline", 120, 25, 0xff8a5b, 0xa83f0b);
}

void ThemeTest::everyStateHasItsColours()
{
    QFETCH(QString, what);
    QFETCH(QPoint, where);
    QFETCH(QRgb, inDark);
    QFETCH(QRgb, inLight);
    for (const Switch dark : {Switch::on, Switch::off}) {
        static std::map<Switch, QImage> pictures;
        static std::map<QString, QPoint> places;
        if (!pictures.contains(dark)) {
            ViewPicture board(dark);
            QVERIFY(board.show(QUrl::fromLocalFile(QStringLiteral(QUORVANE_STATES_BOARD)), {1376, 700}));
            // Hovered and pressed ones have got there.
            QTest::qWait(500);
            pictures[dark] = board.image();
            for (const QQuickItem *child : board.view.rootObject()->childItems())
                places[child->objectName()] = ViewPicture::area(child).topLeft().toPoint();
        }
        const QColor found = pictures[dark].pixelColor(places.at(what) + where);
        const QColor wanted(dark == Switch::on ? inDark : inLight);
        const auto near = [](int a, int b) { return qAbs(a - b) <= 1; };
        const bool same = near(found.red(), wanted.red()) && near(found.green(), wanted.green()) &&
                          near(found.blue(), wanted.blue());
        QVERIFY2(same, qPrintable(found.name() + u" for "_s + wanted.name()));
    }
}

void ThemeTest::theColoursFadeToTheOtherOnes()
{
    Appearance appearance;
    const Theme theme(appearance);
    appearance.startDark(false);
    QCOMPARE(theme.canvas(), QColor(0xfa, 0xf7, 0xf2));
    appearance.setDark(true);
    QVERIFY(theme.isDark());
    QCOMPARE(theme.canvas(), QColor(0xfa, 0xf7, 0xf2));
    QSignalSpy steps(&theme, &Theme::colorsChanged);
    QTRY_COMPARE(theme.canvas(), QColor(0x12, 0x10, 0x0d));
    QVERIFY(steps.count() > 1);
}

void ThemeTest::withReducedMotionTheyChangeAtOnce()
{
    Appearance appearance;
    appearance.setReduceMotion(true);
    const Theme theme(appearance);
    QSignalSpy steps(&theme, &Theme::colorsChanged);
    appearance.setDark(false);
    QCOMPARE(theme.text(), QColor(0x21, 0x1a, 0x13));
    QCOMPARE(steps.count(), 1);
}

void ThemeTest::withoutAnAppearanceItIsDark()
{
    ComponentsModule::registerTypes();
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData("import QtQuick\nimport Quorvane.Components\n"
                      "QtObject { property color canvas: Theme.canvas; property bool dark: Theme.dark }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QVERIFY2(object, qPrintable(component.errorString()));
    QCOMPARE(object->property("canvas").value<QColor>(), QColor(0x12, 0x10, 0x0d));
    QVERIFY(object->property("dark").toBool());
}

void ThemeTest::aCalendarWithoutAColourGetsOneByTurn()
{
    QCOMPARE(Theme::dot(u"#123456"_s, 3), QColor(0x12, 0x34, 0x56));
    QCOMPARE(Theme::dot(QString(), 1), QColor(0x5f, 0xb8, 0xa6));
    QCOMPARE(Theme::dot(QString(), 8), Theme::dot(QString(), 1));
    QCOMPARE(Theme::dot(u"no colour"_s, 0), QColor(0x6f, 0xa8, 0xdc));
}

QTEST_MAIN(ThemeTest)
#include "theme_test.moc"
