// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/KeyringCalls.h"

#include <QCoroDBus>
#include <QDBusError>
#include <QDBusPendingCall>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// In milliseconds. A keyring service answers in a few; one that has to be started takes longer.
constexpr qint64 callTimeout = 3'000;

} // namespace

const QString KeyringCalls::service = u"org.freedesktop.secrets"_s;
const QDBusObjectPath KeyringCalls::root(u"/org/freedesktop/secrets"_s);

KeyringCalls::KeyringCalls(QDBusConnection bus, QDeadlineTimer deadline)
    : m_bus(std::move(bus))
    , m_deadline(deadline)
{
}

QDBusMessage KeyringCalls::message(const QDBusObjectPath &object, const QString &interface,
                                   const QString &method)
{
    return QDBusMessage::createMethodCall(service, object.path(), u"org.freedesktop.Secret."_s + interface,
                                          method);
}

QCoro::Task<Result<QVariantList>> KeyringCalls::answer(QDBusMessage message, QString signature) const
{
    const qint64 left = m_deadline.isForever() ? callTimeout : m_deadline.remainingTime();
    if (left <= 0)
        co_return Failure(std::make_error_code(std::errc::timed_out));
    const auto timeout = static_cast<int>(std::min(left, callTimeout));
    const QDBusMessage reply = co_await m_bus.asyncCall(message, timeout);
    if (reply.type() != QDBusMessage::ReplyMessage)
        co_return Failure(errorOf(reply));
    if (reply.signature() != signature)
        co_return Failure(std::make_error_code(std::errc::bad_message));
    co_return reply.arguments();
}

std::error_code KeyringCalls::errorOf(const QDBusMessage &reply)
{
    if (reply.errorName() == "org.freedesktop.Secret.Error.IsLocked"_L1)
        return std::make_error_code(std::errc::permission_denied);
    switch (QDBusError(reply).type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return std::make_error_code(std::errc::timed_out);
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
        return std::make_error_code(std::errc::not_connected);
    default:
        return std::make_error_code(std::errc::io_error);
    }
}

bool KeyringCalls::isObject(const QDBusObjectPath &object)
{
    return object.path().size() > 1;
}

} // namespace quorvane
