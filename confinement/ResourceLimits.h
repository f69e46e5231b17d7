// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <cstdint>

namespace quorvane {

/// What a process may use up, whatever it reads.
struct ResourceLimits
{
    std::chrono::seconds processorTime{};
    /// Bytes of memory of its own, code and shared libraries aside.
    std::uint64_t memory = 0;
    /// Bytes of any one file that it writes.
    std::uint64_t fileSize = 0;
};

/// From now on this process keeps to `limits`, starts no process, has at most 64 files open and leaves no
/// core dump. A bound that the system refuses to set is left out; one that is tighter already stays.
void limitResources(const ResourceLimits &limits);

} // namespace quorvane
