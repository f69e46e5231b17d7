// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A panel whose view cannot be loaded.
#include "tests/alert/TakeoverFixture.h"

#include "alert/MeetingAlertPanel.h"

#include <QQmlEngine>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QTest>

using namespace quorvane;

namespace {

struct Fallback : TakeoverFixture
{
    explicit Fallback(const QString &title)
        : TakeoverFixture(title)
    {
        QTest::ignoreMessage(QtCriticalMsg,
                             "The alert's view cannot be loaded; a plain one is shown instead.");
        const QRegularExpression reason(QStringLiteral("missing\\.qml"));
        QTest::ignoreMessage(QtWarningMsg, reason);
        QTest::ignoreMessage(QtCriticalMsg, reason);
        panel = std::make_unique<MeetingAlertPanel>(engine, make(), QUrl(QStringLiteral("qrc:/missing.qml")));
        panel->resize(1024, 768);
        panel->show();
        panel->requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(panel.get()));
        picture = panel->grabWindow();
    }

    /// The bounds of what is drawn in exactly this colour.
    [[nodiscard]] QRect areaOf(const QColor &color) const
    {
        QRegion found;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y) == color)
                    found += QRect(x, y, 1, 1);
            }
        }
        return found.boundingRect();
    }

    QQmlEngine engine;
    std::unique_ptr<MeetingAlertPanel> panel;
    QImage picture;
};

const QString someTitle = QStringLiteral("Design review");
const QColor cream(247, 240, 229);
const QColor amber(255, 175, 69);

} // namespace

class PlainViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QQuickWindow::setSceneGraphBackend(QStringLiteral("software")); }
    void itSaysWhichMeetingItIs();
    void aKeyAnswersOnlyWhenItIsReturn_data();
    void aKeyAnswersOnlyWhenItIsReturn();
    void aClickAnswersOnlyOnTheButton();
};

void PlainViewTest::itSaysWhichMeetingItIs()
{
    const Fallback shown(someTitle);
    QVERIFY(!shown.panel->hasFullView());
    QCOMPARE(shown.panel->title(), QStringLiteral("Meeting alert: Design review"));
    const QRect texts = shown.areaOf(cream);
    QVERIFY(texts.width() > shown.picture.width() / 4);
    QVERIFY(texts.top() < shown.picture.height() / 2);
    const Fallback other(QStringLiteral("Stand-up"));
    QVERIFY(other.areaOf(cream) != texts);
    // A title longer than a line is wrapped, not cut at the display's edges.
    const Fallback longer(QStringLiteral("Quarterly planning of everything that is left to do ").repeated(2));
    QVERIFY(longer.picture.rect().adjusted(20, 20, -20, -20).contains(longer.areaOf(cream)));
}

void PlainViewTest::aKeyAnswersOnlyWhenItIsReturn_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("answers");
    QTest::newRow("Return") << Qt::Key_Return << 1;
    QTest::newRow("Enter") << Qt::Key_Enter << 1;
    QTest::newRow("Escape") << Qt::Key_Escape << 0;
    QTest::newRow("Space") << Qt::Key_Space << 0;
}

void PlainViewTest::aKeyAnswersOnlyWhenItIsReturn()
{
    QFETCH(Qt::Key, key);
    Fallback shown(someTitle);
    QTest::keyClick(shown.panel.get(), key);
    QTEST(shown.acknowledged, "answers");
    QCOMPARE(shown.snoozed, 0);
}

void PlainViewTest::aClickAnswersOnlyOnTheButton()
{
    Fallback shown(someTitle);
    const QRect button = shown.areaOf(amber);
    QVERIFY(button.width() >= 200 && button.height() >= 40);
    const QPoint outside(button.center().x(), button.top() - 20);
    QTest::mouseClick(shown.panel.get(), Qt::LeftButton, {}, outside);
    QTest::mousePress(shown.panel.get(), Qt::LeftButton, {}, outside);
    QTest::mouseRelease(shown.panel.get(), Qt::LeftButton, {}, button.center());
    QTest::mousePress(shown.panel.get(), Qt::LeftButton, {}, button.center());
    QTest::mouseRelease(shown.panel.get(), Qt::LeftButton, {}, outside);
    QCOMPARE(shown.acknowledged, 0);
    QTest::mouseClick(shown.panel.get(), Qt::LeftButton, {}, button.center());
    QCOMPARE(shown.acknowledged, 1);
}

QTEST_MAIN(PlainViewTest)

#include "plain_view_test.moc"
