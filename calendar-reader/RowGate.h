// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace quorvane {

/// Stands between the process that reads and the one that watches it, in memory that both share. It tells
/// which row of the cache is being read, and keeps out rows that an earlier reading did not survive.
class RowGate final
{
public:
    /// A reading that does not survive one more is not tried again.
    static constexpr std::size_t mostBadRows = 8;

    /// Called by the reading process before each row: whether it may be read.
    [[nodiscard]] bool pass(std::int64_t row);
    /// Called by the reading process when no row is being read any more.
    void leave() { m_steps.store(0); }

    /// Different for each row that is read; 0 while none is.
    [[nodiscard]] std::int64_t steps() const { return m_steps.load(); }

    /// Called when the reading process is gone: keeps out the row that it was reading. False when there was
    /// none, so that another reading would end likewise, or when too many are kept out.
    [[nodiscard]] bool closeToLastRow();

private:
    std::atomic<std::int64_t> m_steps = 0;
    std::int64_t m_passed = 0;
    std::int64_t m_row = 0;
    std::array<std::int64_t, mostBadRows> m_bad{};
    std::size_t m_badCount = 0;
};

} // namespace quorvane
