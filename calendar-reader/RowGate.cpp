// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/RowGate.h"

#include <algorithm>

namespace quorvane {

bool RowGate::pass(std::int64_t row)
{
    const auto end = m_bad.begin() + static_cast<std::ptrdiff_t>(m_badCount);
    if (std::find(m_bad.begin(), end, row) != end)
        return false;
    m_row = row;
    m_steps.store(++m_passed);
    return true;
}

bool RowGate::closeToLastRow()
{
    const bool mayTryAgain = m_steps.exchange(0) != 0 && m_badCount < mostBadRows;
    if (mayTryAgain)
        m_bad[m_badCount++] = m_row;
    return mayTryAgain;
}

} // namespace quorvane
