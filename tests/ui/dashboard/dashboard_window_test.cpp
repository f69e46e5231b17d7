// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ModelFixture.h"
#include "ui/components/Appearance.h"
#include "ui/dashboard/DashboardWindow.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

/// The window as a person meets it, on a model with sample content.
class DashboardWindowTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QGuiApplication::setQuitOnLastWindowClosed(false);
        QTest::failOnWarning(QRegularExpression(u".*\\.qml.*"_s));
    }

    void init()
    {
        m_fixture = std::make_unique<ModelFixture>();
        m_fixture->start(AppModel::Mode::preview);
        m_appearance.setReduceMotion(true);
        m_window = std::make_unique<DashboardWindow>(
            *m_fixture->model, m_appearance, nullptr,
            [](QWindow &window, const std::function<void()> &action) {
                QMetaObject::invokeMethod(&window, action, Qt::QueuedConnection);
            });
        open();
    }
    void cleanup()
    {
        m_window.reset();
        m_fixture.reset();
    }

    void itIsThereOnceAndGoneAfterItsClosing()
    {
        m_window->open();
        QCOMPARE(QGuiApplication::topLevelWindows().size(), 1);
        QSignalSpy closed(m_window.get(), &DashboardWindow::closed);
        shown().close();
        QVERIFY(closed.wait());
        QVERIFY(!m_window->isOpen());
        QVERIFY(QGuiApplication::topLevelWindows().isEmpty());
        open();
        QCOMPARE(shown().title(), u"Quorvane"_s);
    }

    void itOpensAsItWasLeft()
    {
        shown().resize(750, 700);
        QTest::keyClick(&shown(), Qt::Key_3, Qt::ControlModifier);
        QSignalSpy closed(m_window.get(), &DashboardWindow::closed);
        m_window->close();
        QVERIFY(closed.wait());
        open();
        QCOMPARE(shown().size(), QSize(750, 700));
        QVERIFY(visibleItem("SettingsPage"));
    }

    void itOpensNoLargerThanTheDisplay()
    {
        const QSize room = shown().screen()->availableSize();
        QVERIFY(room.width() < DashboardWindow::defaultSize.width());
        QVERIFY(shown().width() < room.width() && shown().height() < room.height());
    }

    void theSectionsAreReachedByKeysAndByTheSidebar()
    {
        QVERIFY(visibleItem("AgendaPage"));
        QTest::keyClick(&shown(), Qt::Key_2, Qt::ControlModifier);
        QTRY_VERIFY(visibleItem("CalendarsPage"));
        QVERIFY(!visibleItem("AgendaPage"));
        QTest::mouseClick(&shown(), Qt::LeftButton, {}, {40, 195});
        QTRY_VERIFY(visibleItem("SettingsPage"));
        QTest::mouseClick(&shown(), Qt::LeftButton, {}, {40, 103});
        QTRY_VERIFY(visibleItem("AgendaPage"));
    }

    void theUpdatesAreOpenedAt()
    {
        shown().resize(DashboardWindow::minimumSize);
        m_window->openUpdates();
        QTRY_VERIFY(visibleItem("UpdateGroup") && areUpdatesInSight());
        QSignalSpy closed(m_window.get(), &DashboardWindow::closed);
        m_window->close();
        QVERIFY(closed.wait());
        m_window->openUpdates();
        QTRY_VERIFY(visibleItem("UpdateGroup") && areUpdatesInSight());
    }

    void aSheetStaysInFrontOfTheUpdates()
    {
        QTest::keyClick(&shown(), Qt::Key_N, Qt::ControlModifier);
        QTRY_VERIFY(visibleItem("AddMeetingSheet"));
        m_window->openUpdates();
        QTRY_VERIFY(visibleItem("SettingsPage"));
        QVERIFY(visibleItem("AddMeetingSheet")->isAncestorOf(shown().activeFocusItem()));
    }

    void theSheetOpensByKeyTakesTheFocusAndGivesItBack()
    {
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&shown(), Qt::Key_Tab);
        const QQuickItem *before = shown().activeFocusItem();
        QTest::keyClick(&shown(), Qt::Key_N, Qt::ControlModifier);
        QTRY_VERIFY(visibleItem("AddMeetingSheet"));
        const QQuickItem *sheet = visibleItem("AddMeetingSheet");
        QTRY_VERIFY(sheet->isAncestorOf(shown().activeFocusItem()));
        for (int i = 0; i < 20; ++i) {
            QTest::keyClick(&shown(), Qt::Key_Tab);
            QVERIFY(sheet->isAncestorOf(shown().activeFocusItem()));
        }
        QTest::keyClick(&shown(), Qt::Key_Escape);
        QTRY_VERIFY(!visibleItem("AddMeetingSheet"));
        QTRY_COMPARE(shown().activeFocusItem(), before);
    }

private:
    void open()
    {
        QSignalSpy painted(m_window.get(), &DashboardWindow::painted);
        m_window->open();
        QVERIFY(painted.wait());
        QVERIFY(QTest::qWaitForWindowActive(&shown()));
    }

    [[nodiscard]] static bool areUpdatesInSight()
    {
        const QQuickItem *group = visibleItem("UpdateGroup");
        return QRectF({}, shown().size()).contains(group->mapRectToScene(group->boundingRect()));
    }

    [[nodiscard]] static QQuickWindow &shown()
    {
        return *qobject_cast<QQuickWindow *>(QGuiApplication::topLevelWindows().constFirst());
    }

    /// The visible view of that QML type; null if there is none.
    [[nodiscard]] static QQuickItem *visibleItem(const char *type)
    {
        const auto items = shown().findChildren<QQuickItem *>();
        for (QQuickItem *item : items) {
            if (QByteArrayView(item->metaObject()->className()).startsWith(type) && item->isVisible())
                return item;
        }
        return nullptr;
    }

    std::unique_ptr<ModelFixture> m_fixture;
    Appearance m_appearance{nullptr};
    std::unique_ptr<DashboardWindow> m_window;
};

QTEST_MAIN(DashboardWindowTest)
#include "dashboard_window_test.moc"
