// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <optional>

namespace quorvane {

/// How long a download may take.
struct DownloadLimits
{
    /// The longest wait for the next byte of an answer, its first one included.
    std::chrono::milliseconds stall{30'000};
    /// Bounds everything to the last byte; absent for a body that may take hours.
    std::optional<std::chrono::milliseconds> whole;
};

} // namespace quorvane
