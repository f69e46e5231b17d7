// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/TickSource.h"
#include "model/WakeSource.h"

#include <chrono>
#include <functional>

namespace quorvane {

/// Tells of waking from sleep by logind's PrepareForSleep signal and, for sleeps that logind did not bring
/// about, by the time that CLOCK_BOOTTIME has gained on CLOCK_MONOTONIC between two ticks.
class SystemWakeSource final : public WakeSource
{
    Q_OBJECT

public:
    /// How long the machine has slept since it was started.
    using TimeAsleep = std::function<std::chrono::nanoseconds()>;

    /// An empty `timeAsleep` asks the kernel.
    explicit SystemWakeSource(const TickSource &ticks, TimeAsleep timeAsleep = {}, QObject *parent = nullptr);

    void start() override;

private Q_SLOTS:
    void prepareForSleep(bool sleeping);

private:
    void checkForSleep();

    TimeAsleep m_timeAsleep;
    std::chrono::nanoseconds m_lastTimeAsleep;
};

} // namespace quorvane
