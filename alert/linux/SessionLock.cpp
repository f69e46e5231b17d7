// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/SessionLock.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace quorvane {

namespace {

const QString loginService = QStringLiteral("org.freedesktop.login1");
const QString sessionInterface = QStringLiteral("org.freedesktop.login1.Session");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace

SessionLock::SessionLock(QObject *parent)
    : QObject(parent)
{
    // The path "auto" below answers but never signals; so changes of any session make us ask again.
    QDBusConnection::systemBus().connect(loginService, {}, propertiesInterface,
                                         QStringLiteral("PropertiesChanged"), {sessionInterface}, {}, this,
                                         SLOT(onPropertiesChanged(QDBusMessage)));
    ask();
}

void SessionLock::onPropertiesChanged(const QDBusMessage &message)
{
    const QVariantMap values = qdbus_cast<QVariantMap>(message.arguments().value(1));
    if (values.contains(QStringLiteral("LockedHint")))
        ask();
}

void SessionLock::ask()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(loginService, QStringLiteral("/org/freedesktop/login1/session/auto"),
                                       propertiesInterface, QStringLiteral("Get"));
    question << sessionInterface << QStringLiteral("LockedHint");
    question.setAutoStartService(false);
    constexpr int timeout = 2000;
    auto *watcher =
        new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(question, timeout), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        watcher->deleteLater();
        const bool isLocked = reply.isValid() && reply.value().variant().toBool();
        if (isLocked == m_isLocked)
            return;
        m_isLocked = isLocked;
        Q_EMIT changed();
    });
}

} // namespace quorvane
