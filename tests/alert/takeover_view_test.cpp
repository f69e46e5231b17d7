// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/alert/TakeoverFixture.h"

#include "alert/TakeoverView.h"

#include <QQuickItem>
#include <QQuickView>
#include <QRegularExpression>
#include <QTest>

using namespace quorvane;

namespace {

/// The real view in a real window.
struct Shown : TakeoverFixture
{
    using TakeoverFixture::TakeoverFixture;

    void show(QSize size = {1280, 800})
    {
        view.setInitialProperties({{QStringLiteral("takeover"), QVariant::fromValue(&make())}});
        view.setResizeMode(QQuickView::SizeRootObjectToView);
        view.setSource(TakeoverView::source());
        view.resize(size);
        view.show();
        view.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&view));
        takeover->start();
    }
    [[nodiscard]] QQuickItem *item(const char *name) const
    {
        return view.rootObject()->findChild<QQuickItem *>(QLatin1StringView(name));
    }
    [[nodiscard]] QRectF area(const char *name) const
    {
        return item(name)->mapRectToScene(item(name)->boundingRect());
    }
    [[nodiscard]] QString focused() const
    {
        return view.activeFocusItem() ? view.activeFocusItem()->objectName() : QString();
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
    }
    void focusOn(const QString &name)
    {
        for (int turn = 0; turn < 3 && focused() != name; ++turn)
            press(Qt::Key_Tab);
        QCOMPARE(focused(), name);
    }
    void click(const char *name)
    {
        QTest::mouseClick(&view, Qt::LeftButton, {}, area(name).center().toPoint());
    }
    [[nodiscard]] int answers() const
    {
        return acknowledged + snoozed + static_cast<int>(opener.opened.size());
    }

    // Destroyed before the takeover it shows.
    QQuickView view;
};

const QString sentence =
    QStringLiteral("agree the cut-over window, walk through the rollback rehearsal, and ");
const QString arabic = QStringLiteral("اجتماع التخطيط الفصلي لفريق المنصة والبيانات ");

} // namespace

class TakeoverViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void returnAcknowledgesWhateverHasTheFocus_data();
    void returnAcknowledgesWhateverHasTheFocus();
    void spacePressesTheFocusedButton_data();
    void spacePressesTheFocusedButton();
    void noOtherKeyAnswers_data();
    void noOtherKeyAnswers();
    void tabGoesRoundTheButtons();
    void withoutALinkReadyIsThePrimaryOfTwo();
    void everyButtonTakesAClick();
    void aRefusedLinkLeavesTheAlertUp();
    void theFocusRingWaitsForAKey();
    void theFirstFrameIsReadable();
    void everythingStaysInsideTheWindow_data();
    void everythingStaysInsideTheWindow();
    void aWindowTooLowScrollsTheDetailsOnly();
    void aRightToLeftLanguageMirrorsTheButtons();
};

void TakeoverViewTest::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    TakeoverView::registerTypes();
}

void TakeoverViewTest::init()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("\\.qml")));
}

void TakeoverViewTest::returnAcknowledgesWhateverHasTheFocus_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("key");
    for (const char *button : {"join", "ready", "remind"}) {
        QTest::addRow("Return on %s", button) << QString::fromLatin1(button) << int(Qt::Key_Return);
        QTest::addRow("Enter on %s", button) << QString::fromLatin1(button) << int(Qt::Key_Enter);
    }
}

void TakeoverViewTest::returnAcknowledgesWhateverHasTheFocus()
{
    QFETCH(QString, button);
    QFETCH(int, key);
    Shown shown;
    shown.show();
    shown.focusOn(button);
    shown.press(key);
    QCOMPARE(shown.acknowledged, 1);
    QCOMPARE(shown.answers(), 1);
}

void TakeoverViewTest::spacePressesTheFocusedButton_data()
{
    QTest::addColumn<QString>("button");
    QTest::newRow("join") << QStringLiteral("join");
    QTest::newRow("ready") << QStringLiteral("ready");
    QTest::newRow("remind") << QStringLiteral("remind");
}

void TakeoverViewTest::spacePressesTheFocusedButton()
{
    QFETCH(QString, button);
    Shown shown;
    shown.show();
    shown.focusOn(button);
    shown.press(Qt::Key_Space);
    QCOMPARE(shown.opener.opened.size(), button == QLatin1StringView("join") ? 1 : 0);
    QCOMPARE(shown.acknowledged, button == QLatin1StringView("ready") ? 1 : 0);
    QCOMPARE(shown.snoozed, button == QLatin1StringView("remind") ? 1 : 0);
}

void TakeoverViewTest::noOtherKeyAnswers_data()
{
    QTest::addColumn<int>("key");
    for (const Qt::Key key :
         {Qt::Key_Escape, Qt::Key_A, Qt::Key_Up, Qt::Key_Left, Qt::Key_F11, Qt::Key_Delete, Qt::Key_Q})
        QTest::addRow("%s", QMetaEnum::fromType<Qt::Key>().valueToKey(key)) << int(key);
}

void TakeoverViewTest::noOtherKeyAnswers()
{
    QFETCH(int, key);
    Shown shown;
    shown.show();
    shown.press(key);
    QCOMPARE(shown.answers(), 0);
    QVERIFY(shown.view.isVisible());
    QCOMPARE(shown.focused(), QStringLiteral("ready"));
}

void TakeoverViewTest::tabGoesRoundTheButtons()
{
    Shown shown;
    shown.show();
    QStringList order{shown.focused()};
    for (int turn = 0; turn < 3; ++turn) {
        shown.press(Qt::Key_Tab);
        order.append(shown.focused());
    }
    QCOMPARE(order.join(QLatin1Char(' ')), QStringLiteral("ready remind join ready"));
    shown.press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(shown.focused(), QStringLiteral("join"));
    shown.press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(shown.focused(), QStringLiteral("remind"));
}

void TakeoverViewTest::withoutALinkReadyIsThePrimaryOfTwo()
{
    Shown shown(QStringLiteral("Dentist"), std::nullopt);
    shown.show();
    QVERIFY(!shown.item("join")->isVisible());
    QVERIFY(shown.item("ready")->property("isPrimary").toBool());
    shown.press(Qt::Key_Tab);
    shown.press(Qt::Key_Tab);
    QCOMPARE(shown.focused(), QStringLiteral("ready"));

    Shown linked;
    linked.show();
    QVERIFY(linked.item("join")->property("isPrimary").toBool() &&
            !linked.item("ready")->property("isPrimary").toBool());
}

void TakeoverViewTest::everyButtonTakesAClick()
{
    Shown shown;
    shown.show();
    shown.click("remind");
    QCOMPARE(shown.snoozed, 1);
    shown.click("ready");
    QCOMPARE(shown.acknowledged, 1);
    shown.click("join");
    QCOMPARE(shown.opener.opened.size(), 1);
    shown.click("title");
    shown.click("dial");
    QCOMPARE(shown.answers(), 3);
}

void TakeoverViewTest::aRefusedLinkLeavesTheAlertUp()
{
    Shown shown;
    shown.show();
    shown.click("join");
    shown.opener.answer(false);
    QCOMPARE(shown.acknowledged, 0);
    // The click has moved the focus to Join; Return still does not join.
    shown.press(Qt::Key_Return);
    QCOMPARE(shown.acknowledged, 1);
    QCOMPARE(shown.opener.opened.size(), 1);
}

void TakeoverViewTest::theFocusRingWaitsForAKey()
{
    Shown shown;
    shown.show();
    QVERIFY(!shown.item("ready")->property("showsFocus").toBool());
    shown.press(Qt::Key_Escape);
    QVERIFY(shown.item("ready")->property("showsFocus").toBool());
}

void TakeoverViewTest::theFirstFrameIsReadable()
{
    Shown shown;
    qreal opacity = 0;
    connect(&shown.view, &QQuickWindow::beforeRendering, this, [&] {
        if (opacity == 0)
            opacity = shown.item("block")->opacity();
    });
    shown.show();
    QTRY_VERIFY(opacity >= 0.4);
    QTRY_COMPARE(shown.item("block")->opacity(), 1);
}

void TakeoverViewTest::everythingStaysInsideTheWindow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("title");
    const QList<std::pair<const char *, QString>> titles{
        {"short", QStringLiteral("Standup")},
        {"empty", QString()},
        {"1000 letters without a space", QString(1000, QLatin1Char('W'))},
        {"a very long sentence", sentence.repeated(20)},
        {"Arabic", arabic.repeated(6)},
        {"stacked marks", QStringLiteral("Z\u0324\u0350\u0349\u0323\u033c").repeated(100)}};
    for (const QSize size : {QSize(1024, 600), QSize(1280, 720), QSize(1920, 1080), QSize(720, 1280),
                             QSize(3840, 2160), QSize(1080, 1920), QSize(5120, 1440)}) {
        for (const auto &[name, title] : titles)
            QTest::addRow("%s at %dx%d", name, size.width(), size.height()) << size << title;
    }
}

void TakeoverViewTest::everythingStaysInsideTheWindow()
{
    QFETCH(QSize, size);
    QFETCH(QString, title);
    Shown shown(title);
    shown.motion.set(true);
    shown.show(size);
    QTRY_COMPARE(shown.item("block")->opacity(), 1);
    const QRectF window(QPointF(), size);
    QCOMPARE(shown.view.size(), size);
    for (const char *name : {"brand", "headline", "dial", "title", "time", "hint", "join", "ready", "remind"})
        QCOMPARE(window.united(shown.area(name)), window);
    const std::pair<const char *, const char *> neighbours[]{{"brand", "headline"}, {"headline", "dial"},
                                                             {"dial", "title"},     {"title", "time"},
                                                             {"time", "hint"},      {"hint", "join"}};
    for (const auto &[upper, lower] : neighbours)
        QVERIFY2(shown.area(upper).bottom() <= shown.area(lower).top() + 0.5, lower);
    const QQuickItem *titleItem = shown.item("title");
    QVERIFY(titleItem->property("contentWidth").toReal() <= titleItem->width() + 1);
    QVERIFY(!shown.item("details")->property("interactive").toBool());
}

void TakeoverViewTest::aWindowTooLowScrollsTheDetailsOnly()
{
    Shown shown(sentence.repeated(5));
    shown.show({640, 400});
    const QRectF window(0, 0, 640, 400);
    for (const char *name : {"brand", "details", "join", "ready", "remind"})
        QVERIFY2(window.contains(shown.area(name)), name);
    QQuickItem *details = shown.item("details");
    QVERIFY(details->property("interactive").toBool());
    QVERIFY(details->property("contentWidth").toReal() <= details->width());
    // The last line can be reached.
    const qreal lowest = details->property("contentHeight").toReal() - details->height();
    details->setProperty("contentY", lowest);
    QVERIFY(
        details->mapRectToScene(details->boundingRect()).contains(shown.area("hint").adjusted(0, 1, 0, -1)));
}

void TakeoverViewTest::aRightToLeftLanguageMirrorsTheButtons()
{
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    Shown shown(arabic);
    shown.show();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    QVERIFY(shown.area("join").left() > shown.area("ready").right());
    QVERIFY(shown.area("ready").left() > shown.area("remind").right());
}

QTEST_MAIN(TakeoverViewTest)
#include "takeover_view_test.moc"
