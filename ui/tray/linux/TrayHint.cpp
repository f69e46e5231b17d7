// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/TrayHint.h"

#include "ui/tray/linux/TrayIcon.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QDBusMessage notification()
{
    const QString service = u"org.freedesktop.Notifications"_s;
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, u"/org/freedesktop/Notifications"_s, service, u"Notify"_s);
    constexpr uint nothingToReplace = 0;
    constexpr int serviceDecides = -1;
    message << u"Quorvane"_s << nothingToReplace << u"me.tarnel.Quorvane"_s
            << TrayHint::tr("Quorvane is running without an icon")
            << TrayHint::tr("This desktop has no tray. To open Quorvane, start it again.") << QStringList()
            << QVariantMap{{u"desktop-entry"_s, u"me.tarnel.Quorvane"_s}} << serviceDecides;
    return message;
}

} // namespace

TrayHint::TrayHint(TrayIcon &icon, std::function<bool()> wasShown, std::function<void()> remember,
                   QObject *parent, std::chrono::milliseconds patience)
    : QObject(parent)
    , m_icon(icon)
    , m_wasShown(std::move(wasShown))
    , m_remember(std::move(remember))
{
    m_wait.setSingleShot(true);
    m_wait.setInterval(patience);
    connect(&m_wait, &QTimer::timeout, this, &TrayHint::tell);
    m_wait.start();
}

void TrayHint::tell()
{
    if (m_icon.mayAppear()) {
        m_wait.start();
        return;
    }
    if (m_wasShown() || m_icon.hasAppeared())
        return;
    auto *call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(notification()), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        const QDBusPendingReply<uint> reply = *call;
        call->deleteLater();
        if (reply.isValid())
            m_remember();
    });
}

} // namespace quorvane
