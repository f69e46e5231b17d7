// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/DesktopNotice.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;
/// What a click on the notification itself means.
const QString clicked = u"default"_s;

QDBusMessage call(const QString &method)
{
    return QDBusMessage::createMethodCall(service, path, service, method);
}

QDBusMessage notification(const DesktopNotice::Words &words, uint replaced)
{
    constexpr int serviceDecides = -1;
    QDBusMessage message = call(u"Notify"_s);
    message << u"Quorvane"_s << replaced << u"me.tarnel.Quorvane"_s << words.summary << words.body
            << (words.action.isEmpty() ? QStringList() : QStringList{clicked, words.action})
            << QVariantMap{{u"desktop-entry"_s, u"me.tarnel.Quorvane"_s}} << serviceDecides;
    return message;
}

} // namespace

DesktopNotice::DesktopNotice(QObject *parent)
    : QObject(parent)
{
}

void DesktopNotice::show(const Words &words)
{
    if (m_call)
        return;
    listen();
    m_isWanted = true;
    m_call =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(notification(words, m_id)), this);
    connect(m_call, &QDBusPendingCallWatcher::finished, this, &DesktopNotice::take);
}

void DesktopNotice::take()
{
    const QDBusPendingReply<uint> reply = *m_call;
    std::exchange(m_call, nullptr)->deleteLater();
    if (!reply.isValid())
        return;
    m_id = reply.value();
    m_service = reply.reply().service();
    if (m_isWanted)
        Q_EMIT taken();
    else
        withdraw();
}

void DesktopNotice::withdraw()
{
    m_isWanted = false;
    if (m_id == 0)
        return;
    QDBusMessage message = call(u"CloseNotification"_s);
    message << m_id;
    message.setAutoStartService(false);
    QDBusConnection::sessionBus().send(message);
    m_id = 0;
}

// From anybody, since to follow one service Qt waits for the bus; `isOurs` looks who it is.
void DesktopNotice::listen()
{
    if (m_listens)
        return;
    m_listens = true;
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect({}, path, service, u"ActivationToken"_s, this, SLOT(keepToken(uint, QString, QDBusMessage)));
    bus.connect({}, path, service, u"ActionInvoked"_s, this, SLOT(answer(uint, QString, QDBusMessage)));
    bus.connect({}, path, service, u"NotificationClosed"_s, this, SLOT(forget(uint, uint, QDBusMessage)));
}

bool DesktopNotice::isOurs(uint id, const QDBusMessage &message) const
{
    return id != 0 && id == m_id && message.service() == m_service;
}

void DesktopNotice::keepToken(uint id, const QString &token, const QDBusMessage &message)
{
    if (isOurs(id, message))
        m_token = token;
}

void DesktopNotice::answer(uint id, const QString &action, const QDBusMessage &message)
{
    if (isOurs(id, message) && action == clicked)
        Q_EMIT activated(std::exchange(m_token, {}));
}

void DesktopNotice::forget(uint id, uint, const QDBusMessage &message)
{
    if (isOurs(id, message))
        m_id = 0;
}

} // namespace quorvane
