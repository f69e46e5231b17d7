// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

namespace quorvane {

class MeetingRows;

/// Where each row of the agenda's list stands, from the list's top, in pixels. The first row of a day has the
/// day's heading above it.
class RowPlaces final
{
public:
    static constexpr double rowHeight = 62;
    static constexpr double headingHeight = 30;
    static constexpr double dayGap = 18;

    RowPlaces() = default;
    explicit RowPlaces(const MeetingRows &rows);

    [[nodiscard]] int count() const { return static_cast<int>(m_tops.size()) - 1; }
    /// Of all rows together.
    [[nodiscard]] double height() const { return m_tops.back(); }
    [[nodiscard]] double top(int row) const { return m_tops[static_cast<std::size_t>(row)]; }
    [[nodiscard]] double bottom(int row) const { return top(row + 1); }
    /// The row at `y`, or the one nearest to it; -1 if there is none.
    [[nodiscard]] int rowAt(double y) const;

private:
    std::vector<double> m_tops{0};
};

} // namespace quorvane
