// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheDatabase.h"
#include "calendar-reader/RowGate.h"

#include <functional>

namespace quorvane {

/// Runs the reading in a process of its own, because what libraries make of hostile text cannot be bounded
/// from within: a row over which they spin, run out of memory or crash then costs only itself, as long as
/// the rest can be read anew in time and no more than `RowGate::mostBadRows` are like that.
class WatchedProcess final
{
public:
    /// Processor time that one row may take.
    static constexpr std::chrono::milliseconds rowLimit{1'000};

    /// `work` is called in a process of its own and returns that process's exit status (0 to 127); the gate
    /// is shared with this one.
    explicit WatchedProcess(std::function<int(RowGate &)> work)
        : m_work(std::move(work))
    {
    }

    /// Returns the exit status of `work`, run again without the row over which it failed; -1 when it fails
    /// otherwise, over too many rows, or is not done by `deadline`. The process must have only one thread.
    [[nodiscard]] int run(Deadline deadline);

private:
    [[nodiscard]] int runOnce(RowGate &gate, Deadline deadline);

    std::function<int(RowGate &)> m_work;
};

} // namespace quorvane
