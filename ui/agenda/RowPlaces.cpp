// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/RowPlaces.h"

#include "ui/agenda/MeetingRows.h"

#include <algorithm>

namespace quorvane {

RowPlaces::RowPlaces(const MeetingRows &rows)
{
    for (int row = 0; row < rows.count(); ++row) {
        const double heading = rows.at(row).isFirstOfDay ? headingHeight + (row > 0 ? dayGap : 0) : 0;
        m_tops.push_back(m_tops.back() + heading + rowHeight);
    }
}

int RowPlaces::rowAt(double y) const
{
    const auto below = std::ranges::upper_bound(m_tops, y);
    return std::clamp(static_cast<int>(below - m_tops.begin()) - 1, std::min(0, count() - 1), count() - 1);
}

} // namespace quorvane
