// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

namespace quorvane {

/// A meeting that somebody adds by hand. Pure rules; times are Unix time in seconds.
struct NewMeeting
{
    static constexpr qsizetype longestTitle = 1000;
    static constexpr qsizetype longestLink = 2000;
    /// How far ahead it may start, in seconds: 14 days.
    static constexpr double horizon = 1'209'600;

    QString title;
    double start = 0;
    /// In minutes.
    int duration = 0;
    /// Empty when there is none.
    QString link;

    bool operator==(const NewMeeting &) const = default;

    /// Whether it may be added at `now`: title and link are not too long, it starts within the horizon and
    /// lasts at least a minute, and its link is empty or safe to open.
    [[nodiscard]] bool isAcceptable(double now) const;

    /// The meeting it becomes, its title trimmed; `uid` is told by no other meeting. Only of one that is
    /// acceptable.
    [[nodiscard]] Meeting meeting(const QString &uid) const;
};

} // namespace quorvane
