// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Panels on a real display server, as the person in front of it meets them. Run by tools/desktop/run.
#include "alert/linux/DesktopDisplayWaker.h"
#include "alert/linux/DesktopPlatform.h"
#include "tests/alert/linux/Desktop.h"
#include "tests/support/AlertFixture.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <qpa/qwindowsysteminterface.h>

#include <malloc.h>

#include <algorithm>

namespace quorvane {

namespace {

const QColor otherColor(Qt::magenta);

Meeting soonMeeting(const QString &title)
{
    const double start = static_cast<double>(QDateTime::currentSecsSinceEpoch()) + 60;
    return {.id = title, .title = title, .start = start, .end = start + 1800};
}

/// The near-black warm brown at an alert's edge, a breath of its glow included; black it is not.
bool looksLikeTheAlert(const QColor &color)
{
    return color.red() >= 14 && color.red() < 64 && color.red() > color.blue() &&
           color.green() <= color.red();
}

/// Of this process, in kB.
qint64 residentMemory()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray status = file.readAll();
    const qsizetype at = status.indexOf("VmRSS:");
    return status.mid(at + 6, 12).simplified().split(' ').first().toLongLong();
}

} // namespace

class PanelsTest final : public QObject
{
    Q_OBJECT

public:
    explicit PanelsTest(Desktop &desktop)
        : m_desktop(desktop)
    {
    }

private Q_SLOTS:
    void init();
    void cleanup();

    void everyDisplayIsCoveredAndOneHasTheKeyboard();
    void returnAcknowledgesWithoutAClick();
    void theAlertLiesAboveAnotherProgramsWindowAndGivesTheKeyboardBack();
    void aFullScreenWindowOpenedLaterNeitherCoversItNorKeepsTheKeyboard_data();
    void aFullScreenWindowOpenedLaterNeitherCoversItNorKeepsTheKeyboard();
    void aWindowManagerCannotCloseIt();
    void displaysThatComeAndGoGetAndLoseTheirPanel();
    void anAlertLightsAnOutputThatTheCompositorHasPoweredOff();
    void preparedPanelsAreShownAndOthersBuiltAnew();
    void manyAlertsLeaveNothingBehind();

private:
    void show(const Meeting &meeting);
    [[nodiscard]] bool coversEverything();
    [[nodiscard]] static bool hasKeyboard();

    Desktop &m_desktop;
    std::unique_ptr<PanelPlacement> m_placement;
    CountingChime m_chime;
    std::unique_ptr<DesktopDisplayWaker> m_waker;
    AnsweringOpener m_opener;
    StillMotion m_motion;
    std::unique_ptr<Overlay> m_overlay;
    int m_acknowledged = 0;
};

void PanelsTest::init()
{
    m_acknowledged = 0;
    m_placement = choosePlacement();
    m_waker = std::make_unique<DesktopDisplayWaker>();
    m_overlay = std::make_unique<Overlay>(
        OverlayServices{*m_placement, m_chime, *m_waker, m_opener, m_motion, [] { return true; }});
}

void PanelsTest::cleanup()
{
    const auto panelsAreGone = [] {
        return std::ranges::none_of(QGuiApplication::allWindows(), [](const QWindow *window) {
            return window->isVisible() && qobject_cast<const MeetingAlertPanel *>(window) != nullptr;
        });
    };
    m_overlay->close();
    QTRY_VERIFY(panelsAreGone());
    m_overlay.reset();
    m_waker.reset();
    m_placement.reset();
}

void PanelsTest::show(const Meeting &meeting)
{
    QSignalSpy painted(m_overlay.get(), &Overlay::painted);
    m_overlay->show(
        meeting,
        [this] {
            ++m_acknowledged;
            m_overlay->close();
        },
        [] {});
    QVERIFY(painted.wait(5000));
    QTRY_VERIFY(hasKeyboard());
}

bool PanelsTest::coversEverything()
{
    const auto coversNow = [this] {
        const QList<QColor> colors = m_desktop.colors();
        return colors.size() >= QGuiApplication::screens().size() &&
               std::ranges::all_of(colors, looksLikeTheAlert);
    };
    // A picture shows what the compositor drew last, and on a busy machine takes seconds itself.
    constexpr int patience = 20'000;
    return QTest::qWaitFor(coversNow, patience);
}

bool PanelsTest::hasKeyboard()
{
    return qobject_cast<MeetingAlertPanel *>(QGuiApplication::focusWindow()) != nullptr;
}

void PanelsTest::everyDisplayIsCoveredAndOneHasTheKeyboard()
{
    show(soonMeeting(QStringLiteral("Design review")));
    const std::vector<MeetingAlertPanel *> panels = m_overlay->panels();
    const QList<QScreen *> screens = QGuiApplication::screens();
    QCOMPARE(qsizetype(panels.size()), screens.size());
    QVERIFY(screens.size() > 1);
    for (qsizetype i = 0; i < screens.size(); ++i) {
        const MeetingAlertPanel *panel = panels[size_t(i)];
        QVERIFY(panel->hasFullView());
        QTRY_COMPARE(panel->size(), screens[i]->size());
        QCOMPARE(panel->screen(), screens[i]);
        QCOMPARE(panel->title(), QStringLiteral("Meeting alert: Design review"));
    }
    QCOMPARE(std::ranges::count_if(panels, &QWindow::isActive), 1);
    QVERIFY(coversEverything());
}

void PanelsTest::returnAcknowledgesWithoutAClick()
{
    show(soonMeeting(QStringLiteral("Stand-up")));
    m_desktop.press(QStringLiteral("Escape"));
    QVERIFY(m_overlay->eventID());
    m_desktop.press(QStringLiteral("Return"));
    QTRY_COMPARE(m_acknowledged, 1);
    QVERIFY(m_overlay->panels().empty());
}

void PanelsTest::theAlertLiesAboveAnotherProgramsWindowAndGivesTheKeyboardBack()
{
    Desktop::OtherProgram other(m_desktop, *QGuiApplication::primaryScreen());
    QTRY_VERIFY_WITH_TIMEOUT(m_desktop.colors().contains(otherColor), 20'000);
    show(soonMeeting(QStringLiteral("One to one")));
    QVERIFY(coversEverything());
    m_desktop.press(QStringLiteral("Return"));
    QTRY_COMPARE(m_acknowledged, 1);
    QVERIFY(!other.told().contains("pressed"));

    QTRY_VERIFY_WITH_TIMEOUT(m_desktop.colors().contains(otherColor), 20'000);
    m_desktop.press(QStringLiteral("space"));
    QTRY_VERIFY(other.told().contains("pressed Space"));
    QCOMPARE(m_acknowledged, 1);
}

void PanelsTest::aFullScreenWindowOpenedLaterNeitherCoversItNorKeepsTheKeyboard_data()
{
    QTest::addColumn<int>("display");
    QTest::newRow("on the main display") << 0;
    QTest::newRow("on another display") << 1;
}

void PanelsTest::aFullScreenWindowOpenedLaterNeitherCoversItNorKeepsTheKeyboard()
{
    QFETCH(int, display);
    show(soonMeeting(QStringLiteral("Planning")));
    Desktop::OtherProgram other(m_desktop, *QGuiApplication::screens()[display]);
    QTRY_VERIFY(!other.hasKeyboard());
    QTRY_VERIFY(hasKeyboard());
    QVERIFY(coversEverything());
    m_desktop.press(QStringLiteral("Return"));
    QTRY_COMPARE(m_acknowledged, 1);
    QVERIFY(!other.told().contains("pressed"));
}

void PanelsTest::aWindowManagerCannotCloseIt()
{
    show(soonMeeting(QStringLiteral("Interview")));
    for (MeetingAlertPanel *panel : m_overlay->panels())
        QWindowSystemInterface::handleCloseEvent<QWindowSystemInterface::SynchronousDelivery>(panel);
    if (m_desktop.kind() == Desktop::Kind::xorg || m_desktop.kind() == Desktop::Kind::kwin)
        m_desktop.press(QStringLiteral("alt+F4"));
    QVERIFY(coversEverything());
    QVERIFY(m_overlay->eventID());
    QCOMPARE(m_acknowledged, 0);
}

void PanelsTest::displaysThatComeAndGoGetAndLoseTheirPanel()
{
    show(soonMeeting(QStringLiteral("Town hall")));
    const auto panelCount = [this] { return m_overlay->panels().size(); };
    if (m_desktop.kind() == Desktop::Kind::sway) {
        const size_t before = panelCount();
        QVERIFY(m_desktop.plugIn());
        QTRY_COMPARE(panelCount(), before + 1);
        QVERIFY(coversEverything());
    }
    const size_t most = panelCount();
    if (!m_desktop.unplug(*QGuiApplication::screens().back()))
        QSKIP("this desktop's displays cannot be unplugged");
    QTRY_COMPARE(panelCount(), most - 1);
    QVERIFY(coversEverything());
    if (m_desktop.kind() == Desktop::Kind::xorg) {
        QVERIFY(m_desktop.plugIn());
        QTRY_COMPARE(panelCount(), most);
        QVERIFY(coversEverything());
    }
    const size_t left = panelCount();
    QVERIFY(m_desktop.unplug(*QGuiApplication::primaryScreen()));
    QTRY_COMPARE(panelCount(), left - 1);
    QVERIFY(coversEverything());
    if (m_desktop.kind() == Desktop::Kind::sway) {
        // The alert outlives its last display, as when a laptop's lid is closed.
        while (panelCount() > 0) {
            const size_t still = panelCount();
            QVERIFY(m_desktop.unplug(*QGuiApplication::primaryScreen()));
            QTRY_COMPARE(panelCount(), still - 1);
        }
        QVERIFY(m_desktop.plugIn());
        QTRY_COMPARE(panelCount(), size_t(1));
        QVERIFY(coversEverything());
    }
    QTRY_VERIFY(hasKeyboard());
    m_desktop.press(QStringLiteral("Return"));
    QTRY_COMPARE(m_acknowledged, 1);
}

void PanelsTest::anAlertLightsAnOutputThatTheCompositorHasPoweredOff()
{
    if (m_desktop.kind() != Desktop::Kind::sway)
        QSKIP("powering one output off is the business of wlroots compositors");
    // Headless outputs stay lit; but for as long as sway wants one off, it holds its other settings back.
    const QScreen *screen = QGuiApplication::screens().back();
    const auto set = [this, name = screen->name()](const QString &setting, const QString &value) {
        return m_desktop.run(QStringLiteral("swaymsg"), {QStringLiteral("output"), name, setting, value});
    };
    QVERIFY(set(QStringLiteral("dpms"), QStringLiteral("off")));
    QVERIFY(set(QStringLiteral("scale"), QStringLiteral("2")));
    QTest::qWait(100);
    QCOMPARE(screen->devicePixelRatio(), 1.0);
    show(soonMeeting(QStringLiteral("Night shift")));
    QTRY_COMPARE(screen->devicePixelRatio(), 2.0);
    QVERIFY(coversEverything());
    QVERIFY(set(QStringLiteral("scale"), QStringLiteral("1")));
    QTRY_COMPARE(screen->devicePixelRatio(), 1.0);
}

void PanelsTest::preparedPanelsAreShownAndOthersBuiltAnew()
{
    const Meeting first = soonMeeting(QStringLiteral("First"));
    const Meeting second = soonMeeting(QStringLiteral("Second"));
    m_overlay->prepare(first);
    QTest::qWait(50);
    QVERIFY(std::ranges::none_of(m_desktop.colors(), looksLikeTheAlert));
    QVERIFY(m_overlay->panels().empty());
    show(first);
    QVERIFY(coversEverything());
    m_overlay->prepare(second);
    QVERIFY(coversEverything());
    show(second);
    QCOMPARE(m_overlay->panels().size(), size_t(QGuiApplication::screens().size()));
    QCOMPARE(m_overlay->panels().front()->title(), QStringLiteral("Meeting alert: Second"));
    m_overlay->prepare(first);
    show(second);
    QCOMPARE(m_overlay->panels().front()->title(), QStringLiteral("Meeting alert: Second"));
    m_desktop.press(QStringLiteral("Return"));
    QTRY_COMPARE(m_acknowledged, 1);
}

void PanelsTest::manyAlertsLeaveNothingBehind()
{
    constexpr int rounds = 30;
    const qsizetype windowsBefore = QGuiApplication::allWindows().size();
    qint64 memoryBefore = 0;
    for (int round = 0; round < rounds; ++round) {
        show(soonMeeting(QStringLiteral("Round %1").arg(round)));
        m_overlay->close();
        QTRY_COMPARE(QGuiApplication::allWindows().size(), windowsBefore);
        // The first rounds fill the caches.
        if (round == rounds / 3)
            memoryBefore = residentMemory();
    }
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the sanitizer keeps freed memory for a while");
#endif
    malloc_trim(0);
    const qint64 growth = residentMemory() - memoryBefore;
    QVERIFY2(growth < qint64{8} * 1024, qPrintable(QStringLiteral("grew by %1 kB").arg(growth)));
}

} // namespace quorvane

int main(int argc, char **argv)
{
    quorvane::Desktop desktop;
    // The program's own choice of platform is part of what is tested.
    qunsetenv("QT_QPA_PLATFORM");
    quorvane::preparePlatform();
    QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    quorvane::PanelsTest test(desktop);
    return QTest::qExec(&test, argc, argv);
}

#include "panels_test.moc"
