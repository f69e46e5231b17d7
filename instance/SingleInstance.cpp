// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/SingleInstance.h"

#include <QDeadlineTimer>
#include <QThread>

namespace quorvane {

SingleInstance::SingleInstance(std::vector<InstanceChannel *> channels, std::chrono::milliseconds limit)
    : m_channels(std::move(channels))
    , m_limit(limit)
{
    for (InstanceChannel *channel : m_channels)
        connect(channel, &InstanceChannel::activated, this, &SingleInstance::activated);
}

SingleInstance::Outcome SingleInstance::claim(const Activation &activation)
{
    constexpr unsigned long pause = 50;
    const QDeadlineTimer limit(m_limit);
    while (InstanceChannel *other = claimAll()) {
        if (other->handOver(activation))
            return Outcome::handedOver;
        // It was just going, or gives way itself: what it held may be free a moment later.
        if (limit.hasExpired())
            break;
        QThread::msleep(pause);
    }
    return Outcome::first;
}

// A copy that meets another one at a later channel keeps none of the earlier ones, so that who comes then
// finds the one that stays.
InstanceChannel *SingleInstance::claimAll()
{
    for (std::size_t i = 0; i < m_channels.size(); ++i) {
        if (m_channels[i]->claim() != InstanceChannel::Claim::taken)
            continue;
        for (std::size_t held = 0; held < i; ++held)
            m_channels[held]->release();
        return m_channels[i];
    }
    return nullptr;
}

} // namespace quorvane
