// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/ProcessActivities.h"

namespace quorvane {

/// Keeps the kernel from coalescing the process's timers while an activity lasts (PR_SET_TIMERSLACK,
/// prctl(2)). There is no more to ask for: the tick's timer has no slack at all, a thread that sleeps nearly
/// always is let in at once when it wakes, and a real-time priority could hold up everybody else.
class TimerSlackActivities final : public ProcessActivities
{
public:
    [[nodiscard]] std::unique_ptr<ActivityToken> beginLatencyCritical(const QString &reason) override;
};

} // namespace quorvane
