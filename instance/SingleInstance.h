// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/InstanceChannel.h"

#include <QTimer>

#include <chrono>
#include <optional>
#include <vector>

namespace quorvane {

/// Sees to it that one copy of the program runs for a user: not two, and never none. Main thread only.
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    /// How long another copy is given before this one takes it for dead and runs beside it. A copy that hangs
    /// raises no alerts, so it is not worth waiting for.
    static constexpr std::chrono::milliseconds patience{10'000};
    /// How often a copy tries for what another one held when it came, so that the next start finds it there.
    static constexpr std::chrono::milliseconds retryInterval{2'000};

    enum class Outcome {
        /// This copy is the one: it goes on.
        first,
        /// Another copy was there and has taken the activation: this one has nothing left to do.
        handedOver,
    };

    /// `channels` in the order in which they are claimed, the same for all copies; they outlive this object.
    /// The last one decides: who holds it is the one, so that two copies that each hold a channel never wait
    /// for one another.
    explicit SingleInstance(std::vector<InstanceChannel *> channels);

    /// Becomes the one copy, or hands `activation` over to it. Blocks.
    [[nodiscard]] Outcome claim(const Activation &activation);

Q_SIGNALS:
    void activated(const quorvane::Activation &activation);

private:
    [[nodiscard]] std::optional<Outcome> tryOnce(const Activation &activation);
    /// Whether there is still a channel that somebody else holds.
    [[nodiscard]] bool claimRest();

    std::vector<InstanceChannel *> m_channels;
    QTimer m_retry;
};

} // namespace quorvane
