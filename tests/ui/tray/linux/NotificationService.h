// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusError>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace quorvane {

/// A desktop's notifications, on a connection of their own to the session bus.
class NotificationService final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QStringList shown;
    QStringList actions;
    QList<uint> replaced;
    QList<uint> closed;
    bool refuses = false;

    [[nodiscard]] static QDBusConnection bus()
    {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("notifications"));
    }
    bool isReady() { return bus().registerObject(path(), this, QDBusConnection::ExportAllSlots); }
    static bool enter() { return bus().registerService(name()); }
    static void leave() { bus().unregisterService(name()); }

    /// The number of the newest notification.
    [[nodiscard]] uint last() const { return m_last; }

    /// What the service says, or somebody who only claims to be it.
    static void say(const QString &signal, const QVariantList &arguments,
                    const QDBusConnection &speaker = bus())
    {
        QDBusMessage message = QDBusMessage::createSignal(path(), name(), signal);
        message.setArguments(arguments);
        static_cast<void>(speaker.send(message));
    }

public Q_SLOTS:
    uint Notify(const QString &program, uint instead, const QString &, const QString &summary,
                const QString &body, const QStringList &offered, const QVariantMap &, int)
    {
        if (refuses)
            sendErrorReply(QDBusError::LimitsExceeded);
        shown.append(program + u'|' + summary + u'|' + body);
        actions = offered;
        replaced.append(instead);
        return instead > 0 ? instead : ++m_last;
    }
    void CloseNotification(uint id) { closed.append(id); }

private:
    static QString name() { return QStringLiteral("org.freedesktop.Notifications"); }
    static QString path() { return QStringLiteral("/org/freedesktop/Notifications"); }

    uint m_last = 0;
};

} // namespace quorvane
