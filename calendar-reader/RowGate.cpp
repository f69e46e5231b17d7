// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/RowGate.h"

#include <algorithm>

namespace quorvane {

bool RowGate::pass(std::int64_t row)
{
    const auto end = m_bad.begin() + static_cast<std::ptrdiff_t>(m_badCount);
    const bool isBad = std::find(m_bad.begin(), end, row) != end;
    m_isShut = m_isShut || (isBad && m_badCount == mostBadRows && row == m_bad.back());
    if (isBad || m_isShut)
        return false;
    m_row = row;
    ++m_steps;
    return true;
}

bool RowGate::closeToLastRow()
{
    const bool wasReading = m_steps.exchange(0) != 0 && m_badCount < mostBadRows;
    if (wasReading)
        m_bad[m_badCount++] = m_row;
    m_isShut = false;
    return wasReading;
}

} // namespace quorvane
