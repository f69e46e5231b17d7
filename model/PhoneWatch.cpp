// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/PhoneWatch.h"

#include "core/UnixTime.h"

#include <QPointer>

#include <cmath>

namespace quorvane {

PhoneWatch::PhoneWatch(Credentials credentials, QObject *parent)
    : QObject(parent)
    , m_credentials(credentials)
{
}

QCoro::Task<> PhoneWatch::look()
{
    const QPointer<PhoneWatch> self(this);
    const auto pair = co_await m_credentials.phonePair();
    if (!self || !pair)
        co_return;
    if (!*pair)
        setState(PhoneHealth::State::notSetUp);
    else if (m_health.state != PhoneHealth::State::failed)
        setState(PhoneHealth::State::ready);
}

void PhoneWatch::forget()
{
    assume({});
}

void PhoneWatch::note(Delivery delivery)
{
    setState(delivery == Delivery::delivered ? PhoneHealth::State::ready : PhoneHealth::State::failed);
}

void PhoneWatch::noteTest(Delivery delivery, double now)
{
    PhoneHealth health = m_health;
    health.state = delivery == Delivery::delivered ? PhoneHealth::State::ready : PhoneHealth::State::failed;
    if (delivery == Delivery::delivered)
        health.testedAt = UnixTime::moment(now);
    assume(health);
}

void PhoneWatch::setState(PhoneHealth::State state)
{
    PhoneHealth health = m_health;
    health.state = state;
    assume(health);
}

void PhoneWatch::assume(const PhoneHealth &health)
{
    if (m_health == health)
        return;
    m_health = health;
    Q_EMIT changed();
}

} // namespace quorvane
