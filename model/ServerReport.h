// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/ServerHealth.h"

#include <QString>

namespace quorvane {

/// Whether the user's server holds what this machine would alert for.
enum class ScheduleState { unsynced, synced };

/// What the health of the user's server means for the phone.
struct ServerReport
{
    /// One line on phone delivery.
    QString text;
    /// Whether the server can be left to ring the phone.
    bool canDeliver = false;

    bool operator==(const ServerReport &) const = default;

    /// The most serious of several shortcomings is told.
    [[nodiscard]] static ServerReport of(const ServerHealth &health, ScheduleState schedule);
};

} // namespace quorvane
