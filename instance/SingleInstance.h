// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/InstanceChannel.h"

#include <chrono>
#include <vector>

namespace quorvane {

/// Sees to it that one copy of the program runs in a session: never two, and never none. Main thread only.
class SingleInstance final : public QObject
{
    Q_OBJECT

public:
    /// How long another copy is given before this one takes it for dead and runs beside it. A copy that hangs
    /// raises no alerts, so it is not worth waiting for.
    static constexpr std::chrono::milliseconds patience{10'000};

    enum class Outcome {
        /// This copy is the one: it goes on.
        first,
        /// Another copy was there and has taken the activation: this one has nothing left to do.
        handedOver,
    };

    /// `channels` in the order in which they are claimed, the same for all copies; they outlive this object.
    /// The last one decides between copies that do not have all of them.
    explicit SingleInstance(std::vector<InstanceChannel *> channels,
                            std::chrono::milliseconds limit = patience);

    /// Becomes the one copy, or hands `activation` over to it. Blocks.
    [[nodiscard]] Outcome claim(const Activation &activation);

Q_SIGNALS:
    void activated(const quorvane::Activation &activation);

private:
    [[nodiscard]] InstanceChannel *claimAll();

    std::vector<InstanceChannel *> m_channels;
    std::chrono::milliseconds m_limit;
};

} // namespace quorvane
