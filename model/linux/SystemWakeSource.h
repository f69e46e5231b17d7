// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/TickSource.h"
#include "model/WakeSource.h"

#include <chrono>

namespace quorvane {

/// Tells of waking from sleep by logind's PrepareForSleep signal and, for sleeps that logind did not bring
/// about, by the time that CLOCK_BOOTTIME has gained on CLOCK_MONOTONIC between two ticks.
class SystemWakeSource final : public WakeSource
{
    Q_OBJECT

public:
    explicit SystemWakeSource(const TickSource &ticks, QObject *parent = nullptr);

    void start() override;

private Q_SLOTS:
    void prepareForSleep(bool sleeping);

private:
    void checkForSleep();

    std::chrono::nanoseconds m_timeAsleep;
};

} // namespace quorvane
