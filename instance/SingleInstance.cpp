// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "instance/SingleInstance.h"

#include <QDeadlineTimer>
#include <QThread>

namespace quorvane {

SingleInstance::SingleInstance(std::vector<InstanceChannel *> channels)
    : m_channels(std::move(channels))
{
    for (InstanceChannel *channel : m_channels) {
        connect(channel, &InstanceChannel::activated, this, &SingleInstance::activated);
        connect(channel, &InstanceChannel::answered, this, [this, channel] {
            if (channel == m_decider)
                Q_EMIT superseded();
        });
    }
    connect(&m_retry, &QTimer::timeout, this, &SingleInstance::retry);
}

SingleInstance::Outcome SingleInstance::claim(const Activation &activation)
{
    constexpr unsigned long pause = 50;
    const QDeadlineTimer limit(patience);
    std::optional<Outcome> outcome = tryOnce(activation);
    // Who was just going, or gives way itself, leaves a free place a moment later.
    while (!outcome && !limit.hasExpired()) {
        QThread::msleep(pause);
        outcome = tryOnce(activation);
    }
    if (outcome == Outcome::handedOver) {
        for (InstanceChannel *channel : m_channels)
            channel->release();
        return Outcome::handedOver;
    }
    if (claimRest())
        m_retry.start(retryInterval);
    return Outcome::first;
}

// A channel whose holder does not answer does not keep this copy from the next one, at which it may meet the
// copy that works. Absent while nothing is decided.
std::optional<SingleInstance::Outcome> SingleInstance::tryOnce(const Activation &activation)
{
    bool isContested = false;
    for (InstanceChannel *channel : m_channels) {
        switch (channel->claim()) {
        case InstanceChannel::Claim::held:
            isContested = false;
            break;
        case InstanceChannel::Claim::taken:
            if (channel->handOver(activation))
                return Outcome::handedOver;
            isContested = true;
            break;
        case InstanceChannel::Claim::unavailable:
            break;
        }
    }
    return isContested ? std::nullopt : std::optional(Outcome::first);
}

bool SingleInstance::claimRest()
{
    bool isContested = false;
    m_decider = nullptr;
    for (InstanceChannel *channel : m_channels) {
        switch (channel->claim()) {
        case InstanceChannel::Claim::held:
            m_decider = nullptr;
            break;
        case InstanceChannel::Claim::taken:
            m_decider = channel;
            isContested = true;
            break;
        case InstanceChannel::Claim::unavailable:
            break;
        }
    }
    return isContested;
}

void SingleInstance::retry()
{
    if (!claimRest())
        m_retry.stop();
    else if (m_decider != nullptr)
        m_decider->ask();
}

} // namespace quorvane
