// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The word to who has no tray, on a private session bus with a notification service that answers as desktops
// do, and with a tray or without.
#include "tests/support/ModelFixture.h"
#include "tests/ui/tray/linux/NotificationService.h"
#include "ui/tray/MenuContent.h"
#include "ui/tray/linux/TrayHint.h"
#include "ui/tray/linux/TrayIcon.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

const QString trayName = u"org.kde.StatusNotifierWatcher"_s;

} // namespace

/// A desktop's tray.
class Tray final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isThere CONSTANT)

public:
    static bool isThere() { return true; }
};

class TrayHintTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_service.isReady());
        QVERIFY(NotificationService::bus().registerObject(u"/StatusNotifierWatcher"_s, &m_tray,
                                                          QDBusConnection::ExportAllProperties));
    }
    void init()
    {
        m_service.shown.clear();
        m_service.refuses = false;
        m_remembered = 0;
    }
    void cleanup()
    {
        NotificationService::leave();
        NotificationService::bus().unregisterService(trayName);
    }

    void whoHasNoTrayIsToldOnce()
    {
        QVERIFY(NotificationService::enter());
        waitForHint();
        QCOMPARE(m_remembered, 1);
        QCOMPARE(m_service.shown,
                 QStringList(u"Quorvane|Quorvane is running without an icon|"
                             "This desktop has no tray. To open Quorvane, start it again."_s));
        waitForHint();
        QCOMPARE(m_service.shown.size(), 1);
    }

    void whoHasATrayIsNotTold()
    {
        QVERIFY(NotificationService::enter());
        QVERIFY(NotificationService::bus().registerService(trayName));
        waitForHint();
        QCOMPARE(m_service.shown, QStringList());
        QCOMPARE(m_remembered, 0);
    }

    void whatNobodyTookIsNotRemembered_data()
    {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("no service") << false;
        QTest::newRow("a service that refuses") << true;
    }
    void whatNobodyTookIsNotRemembered()
    {
        QFETCH(bool, isThere);
        m_service.refuses = true;
        QVERIFY(!isThere || NotificationService::enter());
        waitForHint();
        QCOMPARE(m_service.shown.size(), isThere ? 1 : 0);
        QCOMPARE(m_remembered, 0);
    }

private:
    /// Until it is through with what it does.
    void waitForHint()
    {
        ModelFixture f;
        f.start();
        MenuContent content(*f.model);
        TrayIcon icon(content);
        icon.start();
        bool isThrough = false;
        const auto wasShown = [&] {
            isThrough = true;
            return m_remembered > 0;
        };
        const TrayHint hint(
            icon, wasShown, [this] { ++m_remembered; }, nullptr, std::chrono::milliseconds(50));
        QTRY_VERIFY(isThrough && hint.findChild<QDBusPendingCallWatcher *>() == nullptr);
    }

    NotificationService m_service;
    Tray m_tray;
    int m_remembered = 0;
};

QTEST_MAIN(TrayHintTest)
#include "tray_hint_test.moc"
