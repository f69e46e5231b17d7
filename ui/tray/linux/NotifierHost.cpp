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

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using namespace std::chrono_literals;

const QString service = u"org.kde.StatusNotifierWatcher"_s;
const QString path = u"/StatusNotifierWatcher"_s;

constexpr int answerMilliseconds = 2000;

} // namespace

NotifierHost::NotifierHost(QObject *parent)
    : QObject(parent)
    , m_watcher(service, QDBusConnection::sessionBus(), QDBusServiceWatcher::WatchForRegistration)
{
    connect(&m_watcher, &QDBusServiceWatcher::serviceRegistered, this, &NotifierHost::askRepeatedly);
}

void NotifierHost::start()
{
    QDBusConnection::sessionBus().connect(service, path, service, u"StatusNotifierHostRegistered"_s, this,
                                          SLOT(ask()));
    ask();
}

// Some watchers take their name before they can answer to it.
void NotifierHost::askRepeatedly()
{
    for (const auto delay : {0ms, 500ms, 3000ms})
        QTimer::singleShot(delay, this, &NotifierHost::ask);
}

void NotifierHost::ask()
{
    if (m_hasAppeared)
        return;
    QDBusMessage question =
        QDBusMessage::createMethodCall(service, path, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << service << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto *call = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(question, answerMilliseconds), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        const QDBusPendingReply<QDBusVariant> reply = *call;
        call->deleteLater();
        if (m_hasAppeared || !reply.isValid() || !reply.value().variant().toBool())
            return;
        m_hasAppeared = true;
        Q_EMIT appeared();
    });
}

} // namespace quorvane
