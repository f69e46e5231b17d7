// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <memory>

namespace quorvane {

/// Held for as long as an activity lasts; letting go of it ends the activity.
class ActivityToken
{
public:
    virtual ~ActivityToken() = default;
};

/// Tells the system what the process is about, so that it treats its timers accordingly. Main thread.
class ProcessActivities
{
public:
    virtual ~ProcessActivities() = default;

    /// Begins an activity whose timers must not be delayed to save power. `reason` is for people who look.
    [[nodiscard]] virtual std::unique_ptr<ActivityToken> beginLatencyCritical(const QString &reason) = 0;
};

} // namespace quorvane
