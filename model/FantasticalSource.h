// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/FantasticalSnapshot.h"
#include "core/Result.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace quorvane {

/// What is known of the second calendar source: how its last reading went, and what the last good one said.
/// A reading that fails takes no meetings away.
class FantasticalSource final
{
public:
    /// A reading begins.
    void begin() { m_isBusy = true; }
    /// It has ended at `now` (Unix time, seconds).
    void take(Result<FantasticalSnapshot> outcome, double now);

    [[nodiscard]] bool isBusy() const { return m_isBusy; }
    /// When the last good reading ended, Unix time in seconds.
    [[nodiscard]] const std::optional<double> &lastRead() const { return m_lastRead; }

    /// Whether a reading has ended, well or not.
    [[nodiscard]] bool wasRead() const { return m_isConnected || m_failure; }
    /// Whether any reading has gone well.
    [[nodiscard]] bool wasEverConnected() const { return m_wasEverConnected; }
    /// Whether the last reading went well.
    [[nodiscard]] bool isConnected() const { return m_isConnected; }
    /// Why the last reading failed; an empty code when it did not.
    [[nodiscard]] std::error_code failure() const { return m_failure; }

    /// The last good snapshot; an empty one before there was any.
    [[nodiscard]] const FantasticalSnapshot &snapshot() const { return m_snapshot; }

    /// The meetings held, without those of calendars whose identifiers are in `excluded`: a calendar that is
    /// switched off falls silent at once, also while no reading succeeds.
    [[nodiscard]] std::vector<Meeting> meetings(const QStringList &excluded) const;

private:
    FantasticalSnapshot m_snapshot;
    std::error_code m_failure;
    std::optional<double> m_lastRead;
    bool m_isBusy = false;
    bool m_isConnected = false;
    bool m_wasEverConnected = false;
};

} // namespace quorvane
