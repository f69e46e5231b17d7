// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/DesktopDisplayWaker.h"

#include "alert/linux/OutputPower.h"
#include "alert/linux/X11Server.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <utility>

namespace quorvane {

namespace {

constexpr int answerTimeout = 3000;

/// A call to the desktop's idle service (freedesktop.org Idle Inhibition specification).
QDBusMessage screenSaverCall(const QString &method)
{
    const QString service = QStringLiteral("org.freedesktop.ScreenSaver");
    return QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/ScreenSaver"), service,
                                          method);
}

/// Sends a call whose answer does not matter. Services that do not run are not started.
QDBusPendingCall send(QDBusMessage message)
{
    message.setAutoStartService(false);
    return QDBusConnection::sessionBus().asyncCall(message, answerTimeout);
}

void lightGnome()
{
    constexpr int on = 0;
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.gnome.Mutter.DisplayConfig"), QStringLiteral("/org/gnome/Mutter/DisplayConfig"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
    message << QStringLiteral("org.gnome.Mutter.DisplayConfig") << QStringLiteral("PowerSaveMode")
            << QVariant::fromValue(QDBusVariant(on));
    send(std::move(message));
}

} // namespace

DesktopDisplayWaker::DesktopDisplayWaker(QObject *parent)
    : QObject(parent)
    , m_outputPower(OutputPower::bind())
{
}

DesktopDisplayWaker::~DesktopDisplayWaker() = default;

void DesktopDisplayWaker::wake()
{
    if (const std::optional<X11Server> server = X11Server::current())
        server->wakeDisplays();
    if (m_outputPower)
        m_outputPower->lightAll();
    inhibitBlanking();
    // Only KDE knows this one; elsewhere the service answers that it does not.
    send(screenSaverCall(QStringLiteral("SimulateUserActivity")));
    lightGnome();
}

void DesktopDisplayWaker::release()
{
    ++m_turn;
    if (m_cookie)
        allowBlanking(*std::exchange(m_cookie, std::nullopt));
}

void DesktopDisplayWaker::inhibitBlanking()
{
    release();
    QDBusMessage message = screenSaverCall(QStringLiteral("Inhibit"));
    message << QStringLiteral("Quorvane") << tr("A meeting is about to start");
    auto *watcher = new QDBusPendingCallWatcher(send(std::move(message)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, turn = m_turn] {
        const QDBusPendingReply<uint32_t> reply = *watcher;
        watcher->deleteLater();
        if (!reply.isValid())
            return;
        if (turn == m_turn)
            m_cookie = reply.value();
        else
            allowBlanking(reply.value());
    });
}

void DesktopDisplayWaker::allowBlanking(uint32_t cookie)
{
    send(screenSaverCall(QStringLiteral("UnInhibit")) << cookie);
}

} // namespace quorvane
