// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/linux/SessionBusChannel.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const QString name = u"me.tarnel.Quorvane"_s;
const QString path = u"/me/tarnel/Quorvane"_s;
const QString interface = u"org.freedesktop.Application"_s;

/// The bus answers at once or not at all, in milliseconds.
constexpr int busTime = 1'000;

QDBusMessage messageFor(const Activation &activation)
{
    const QString action = ApplicationInterface::actionFor(activation.wish);
    auto message = QDBusMessage::createMethodCall(name, path, interface,
                                                  action.isEmpty() ? u"Activate"_s : u"ActivateAction"_s);
    if (!action.isEmpty())
        message << action << QVariantList();
    message << activation.platformData();
    // Whoever calls has just been started itself; the desktop is not to start a third copy.
    message.setAutoStartService(false);
    return message;
}

} // namespace

SessionBusChannel::SessionBusChannel(QDBusConnection bus)
    : m_bus(std::move(bus))
{
    connect(&m_interface, &ApplicationInterface::activated, this, &InstanceChannel::activated);
    if (m_bus.isConnected())
        m_bus.interface()->setTimeout(busTime);
}

// The object comes first: who finds the name may call at once.
InstanceChannel::Claim SessionBusChannel::claim()
{
    if (!m_bus.isConnected())
        return Claim::unavailable;
    m_bus.registerObject(path, &m_interface, QDBusConnection::ExportAllSlots);
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        m_bus.interface()->registerService(name, QDBusConnectionInterface::DontQueueService,
                                           QDBusConnectionInterface::DontAllowReplacement);
    if (!reply.isValid())
        return Claim::unavailable;
    return reply.value() == QDBusConnectionInterface::ServiceRegistered ? Claim::held : Claim::taken;
}

void SessionBusChannel::release()
{
    m_bus.unregisterService(name);
    m_bus.unregisterObject(path);
}

Result<void> SessionBusChannel::handOver(const Activation &activation)
{
    const QDBusMessage reply = m_bus.call(messageFor(activation), QDBus::Block, answerTime);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return {};
    return Failure(std::make_error_code(std::errc::no_such_process));
}

void SessionBusChannel::ask()
{
    const QDBusMessage question = messageFor({.wish = Activation::Wish::nothing});
    auto *call = new QDBusPendingCallWatcher(m_bus.asyncCall(question, answerTime), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        if (!call->isError())
            Q_EMIT answered();
    });
}

} // namespace quorvane
