// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

#include <optional>

namespace quorvane {

/// Whether this machine can make the phone ring.
struct PhoneHealth
{
    enum class State {
        /// The keyring has not said yet whether there are credentials.
        unknown,
        notSetUp,
        ready,
        /// The last message or test did not reach the phone service, or was refused.
        failed,
    };

    State state = State::unknown;
    /// When a test last went well.
    std::optional<QDateTime> testedAt;

    bool operator==(const PhoneHealth &) const = default;
};

} // namespace quorvane
