// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/linux/KeyringSession.h"

#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

QCoro::Task<Result<KeyringSession>> KeyringSession::open(KeyringCalls calls)
{
    const QDBusMessage question = KeyringCalls::message(KeyringCalls::root, u"Service"_s, u"OpenSession"_s)
                                  << u"plain"_s << QVariant::fromValue(QDBusVariant(QString()));
    const Result<QVariantList> answer = co_await calls.answer(question, u"vo"_s);
    if (!answer)
        co_return Failure(answer.error());
    co_return KeyringSession(calls.bus(), answer->at(1).value<QDBusObjectPath>());
}

KeyringSession::KeyringSession(QDBusConnection bus, QDBusObjectPath path)
    : m_bus(std::move(bus))
    , m_path(std::move(path))
{
}

KeyringSession::KeyringSession(KeyringSession &&other) noexcept
    : m_bus(std::move(other.m_bus))
    , m_path(std::exchange(other.m_path, {}))
{
}

KeyringSession &KeyringSession::operator=(KeyringSession &&other) noexcept
{
    std::swap(m_bus, other.m_bus);
    std::swap(m_path, other.m_path);
    return *this;
}

KeyringSession::~KeyringSession()
{
    if (KeyringCalls::isObject(m_path))
        m_bus.send(KeyringCalls::message(m_path, u"Session"_s, u"Close"_s));
}

} // namespace quorvane
