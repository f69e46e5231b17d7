// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/SourceHealth.h"
#include "ui/calendars/CalendarRow.h"

#include <vector>

namespace quorvane {

/// An account, or the whole second source, with its calendars.
struct CalendarAccount
{
    SourceHealth health;
    std::vector<CalendarRow> calendars;

    /// Two sources may have accounts of one name, and a folder may be called like one.
    [[nodiscard]] static QString keyOf(const SourceHealth &health)
    {
        return QChar(health.isFantastical ? u'f' : u's') + health.account + u'/' + health.folder;
    }
    [[nodiscard]] QString key() const { return keyOf(health); }
    bool operator==(const CalendarAccount &) const = default;
};

} // namespace quorvane
