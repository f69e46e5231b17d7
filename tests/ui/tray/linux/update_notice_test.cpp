// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The word that there is a newer version, on a private session bus with a notification service that answers
// as desktops do.
#include "tests/ui/tray/linux/NotificationService.h"
#include "ui/tray/linux/UpdateNotice.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

const QString newer = u"Version 1.5.0 (813) is available."_s;

} // namespace

class UpdateNoticeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_service.isReady()); }
    void init()
    {
        m_service.shown.clear();
        m_service.closed.clear();
        m_service.replaced.clear();
        m_service.refuses = false;
        m_isAlertShowing = false;
        m_told.clear();
        const UpdateNotice::Surroundings surroundings{
            .isAlertShowing = [this] { return m_isAlertShowing; },
            .lastTold = [this] { return m_told; },
            .remember = [this](const QString &version) { m_told = version; }};
        m_notice = std::make_unique<UpdateNotice>(surroundings, nullptr, std::chrono::milliseconds(50));
        QVERIFY(NotificationService::enter());
    }
    void cleanup()
    {
        m_notice.reset();
        NotificationService::leave();
    }

    void eachVersionIsToldOfOnce()
    {
        m_notice->tell(u"813"_s, newer);
        m_notice->tell(u"813"_s, newer);
        QTRY_COMPARE(m_told, u"813"_s);
        m_notice->tell(u"813"_s, newer);
        m_notice->tell(u"814"_s, u"Version 1.6.0 (814) is available."_s);
        QTRY_COMPARE(m_told, u"814"_s);
        const QString body = u"Open Quorvane to see what is new and to install it."_s;
        QCOMPARE(m_service.shown, QStringList({u"Quorvane|Version 1.5.0 (813) is available.|"_s + body,
                                               u"Quorvane|Version 1.6.0 (814) is available.|"_s + body}));
        // The second stands where the first stood.
        QCOMPARE(m_service.replaced, QList<uint>({0, m_service.last()}));
    }

    void noAlertIsDisturbed()
    {
        m_isAlertShowing = true;
        m_notice->tell(u"813"_s, newer);
        QTest::qWait(200);
        QCOMPARE(m_service.shown, QStringList());
        m_isAlertShowing = false;
        QTRY_COMPARE(m_told, u"813"_s);
    }

    void whatNobodyTookIsToldAgain()
    {
        m_service.refuses = true;
        m_notice->tell(u"813"_s, newer);
        QTRY_COMPARE(m_service.shown.size(), 1);
        m_service.refuses = false;
        QCOMPARE(m_told, QString());
        m_notice->tell(u"813"_s, newer);
        QTRY_COMPARE(m_told, u"813"_s);
    }

    void aClickIsTold()
    {
        QSignalSpy activated(m_notice.get(), &UpdateNotice::activated);
        tellAndWait();
        QCOMPARE(m_service.actions.value(0), u"default"_s);
        NotificationService::say(u"ActivationToken"_s, {m_service.last(), u"token-1"_s});
        NotificationService::say(u"ActionInvoked"_s, {m_service.last(), u"default"_s});
        QTRY_COMPARE(activated.size(), 1);
        QCOMPARE(activated.first().first().toString(), u"token-1"_s);
    }

    void nobodyElsesClickIs()
    {
        QSignalSpy activated(m_notice.get(), &UpdateNotice::activated);
        tellAndWait();
        const uint id = m_service.last();
        const auto other = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"other"_s);
        NotificationService::say(u"ActionInvoked"_s, {id, u"default"_s}, other);
        NotificationService::say(u"ActionInvoked"_s, {id + 1, u"default"_s});
        NotificationService::say(u"ActionInvoked"_s, {id, u"snooze"_s});
        NotificationService::say(u"NotificationClosed"_s, {id, 2U});
        NotificationService::say(u"ActionInvoked"_s, {id, u"default"_s});
        QTest::qWait(200);
        QCOMPARE(activated.size(), 0);
    }

    void whatIsBeingFetchedIsTakenBack()
    {
        tellAndWait();
        m_notice->withdraw();
        QTRY_COMPARE(m_service.closed, QList<uint>{m_service.last()});
        // Before the service has answered.
        m_notice->tell(u"814"_s, newer);
        m_notice->withdraw();
        QTRY_COMPARE(m_service.closed.size(), 2);
        QCOMPARE(m_told, u"813"_s);
    }

private:
    void tellAndWait()
    {
        m_notice->tell(u"813"_s, newer);
        QTRY_COMPARE(m_told, u"813"_s);
    }

    NotificationService m_service;
    std::unique_ptr<UpdateNotice> m_notice;
    QString m_told;
    bool m_isAlertShowing = false;
};

QTEST_GUILESS_MAIN(UpdateNoticeTest)
#include "update_notice_test.moc"
