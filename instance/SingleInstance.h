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
    /// Should that other one work after all, this copy gives way.
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
    /// Another copy is at work and is the one: this one has to end.
    void superseded();

private:
    [[nodiscard]] std::optional<Outcome> tryOnce(const Activation &activation);
    /// Takes what has become free. Whether something is still held by somebody else.
    [[nodiscard]] bool claimRest();
    void retry();

    std::vector<InstanceChannel *> m_channels;
    /// Its holder is the one; null while that is this copy.
    InstanceChannel *m_decider = nullptr;
    QTimer m_retry;
};

} // namespace quorvane
