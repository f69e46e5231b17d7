// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "updates/UpdateItem.h"

#include <optional>
#include <system_error>

namespace quorvane {

/// How far the updater is.
struct UpdateStatus
{
    enum class Phase {
        idle,
        /// Looking for a newer version because the person asked for it.
        checking,
        upToDate,
        /// A check that the person asked for is not allowed now, as `error` says, and made when it is.
        refused,
        /// `item` is newer, and waits for the person.
        available,
        downloading,
        preparing,
        /// `item` is installed as soon as that is allowed, or when the program ends.
        ready,
        failed,
    };

    Phase phase = Phase::idle;
    std::optional<UpdateItem> item;
    /// Of the download, from 0 to 1.
    double progress = 0;
    std::error_code error;

    bool operator==(const UpdateStatus &) const = default;
};

} // namespace quorvane
