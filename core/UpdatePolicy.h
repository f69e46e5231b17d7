// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/AlertRecord.h"
#include "core/Meeting.h"

#include <vector>

namespace quorvane {

/// Whether the full-screen alert is up.
enum class OverlayVisibility { hidden, visible };

} // namespace quorvane

/// Whether an update, which restarts the program, may be installed. Pure rules; times are Unix time in
/// seconds.
namespace quorvane::UpdatePolicy {

/// How long before its start a meeting keeps updates away, in seconds.
inline constexpr double attentionLead = 300;

/// Whether to wait: the alert is up, or one of `meetings` is under way or about to begin and has not been
/// acknowledged in `records`.
[[nodiscard]] bool shouldDefer(const std::vector<Meeting> &meetings, const AlertRecords &records,
                               OverlayVisibility overlay, double now);

} // namespace quorvane::UpdatePolicy
