// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"
#include "model/SourceHealth.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <vector>

namespace quorvane {

/// What the foot of the sidebar says: at one look, whether the user is protected.
struct SidebarStatus
{
    /// What it is made of. `now` is Unix time, seconds.
    struct Facts
    {
        double now;
        std::optional<QDateTime> pausedUntil;
        const std::vector<SourceHealth> &sources;
        /// Calendars that are switched on.
        qsizetype calendars;
        const std::vector<Meeting> &scheduledMeetings;
    };

    QString line;
    QString detail;
    /// Something keeps alerts away or needs the user.
    bool needsAttention = false;

    bool operator==(const SidebarStatus &) const = default;

    [[nodiscard]] static SidebarStatus of(const Facts &facts);
};

} // namespace quorvane
