// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/NotifierHost.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QTimer>

#include <chrono>
#include <limits>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using namespace std::chrono_literals;

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;

/// Some hosts lose what is registered in the moment in which they come up.
constexpr auto settleTime = 1s;
constexpr auto longestSettleTime = 3s;
/// Some watchers take their name before they can answer to it.
constexpr auto secondLook = 3s;

/// A watcher that has come to a stop answers when it goes on, and the bus does when it ends. Asking it again
/// and again would fill the bus.
constexpr int withoutLimit = std::numeric_limits<int>::max();

bool hasEnded(const QDBusError &error)
{
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout ||
           error.type() == QDBusError::TimedOut;
}

} // namespace

NotifierHost::NotifierHost(QObject *parent)
    : QObject(parent)
    , m_watcher(watcherService, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration)
{
    m_settle.setSingleShot(true);
    m_settle.setInterval(settleTime);
    connect(&m_settle, &QTimer::timeout, this, &NotifierHost::ask);
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &NotifierHost::lookTwice);
}

void NotifierHost::start()
{
    QDBusConnection::sessionBus().connect(watcherService, watcherPath, watcherService,
                                          u"StatusNotifierHostRegistered"_s, this, SLOT(look()));
    look();
}

void NotifierHost::lookTwice()
{
    look();
    QTimer::singleShot(secondLook, this, &NotifierHost::look);
}

void NotifierHost::look()
{
    if (m_hasAppeared)
        return;
    m_question = nullptr;
    if (!m_settle.isActive())
        m_latest.setRemainingTime(longestSettleTime);
    if (!m_settle.isActive() || !m_latest.hasExpired())
        m_settle.start();
}

void NotifierHost::ask()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        Q_EMIT missed();
        return;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(watcherService, watcherPath,
                                                           u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcherService << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto *call = new QDBusPendingCallWatcher(bus.asyncCall(question, withoutLimit), this);
    m_question = call;
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        if (m_question == call)
            take(*call);
    });
}

void NotifierHost::take(QDBusPendingCallWatcher &answer)
{
    m_question = nullptr;
    const QDBusPendingReply<QDBusVariant> reply = answer;
    if (hasEnded(reply.error())) {
        look();
        return;
    }
    m_hasAppeared = reply.isValid() && reply.value().variant().toBool();
    if (m_hasAppeared)
        Q_EMIT appeared();
    else
        Q_EMIT missed();
}

} // namespace quorvane
