// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Clock.h"
#include "model/TickSource.h"
#include "model/WakeSource.h"

namespace quorvane {

/// A clock that stands until it is set.
class ManualClock final : public Clock
{
public:
    [[nodiscard]] double now() const override { return time; }
    double time = 1'800'000'000;
};

/// Ticks when told to.
class ManualTicks final : public TickSource
{
    Q_OBJECT

public:
    void start() override { started = true; }
    bool started = false;
};

/// Wakes when told to.
class ManualWakes final : public WakeSource
{
    Q_OBJECT

public:
    void start() override { started = true; }
    bool started = false;
};

} // namespace quorvane
