// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/AlertRecord.h"
#include "core/Meeting.h"

/// When an alert is due. Pure rules; times are Unix time in seconds.
namespace quorvane::AlertPolicy {

/// Whether the full-screen alert should be on screen at `now`, `lead` seconds before the start at the
/// earliest.
[[nodiscard]] bool shouldShow(const Meeting &meeting, double now, double lead, const AlertRecord &record);

/// Whether this machine should send its one phone alert at `now`: from 120 seconds before to 120 after the
/// start.
[[nodiscard]] bool shouldPush(const Meeting &meeting, double now, const AlertRecord &record);

/// Until when a snooze pressed at `now` lasts: to the start, but at least 5 and at most 30 seconds.
[[nodiscard]] double snoozeUntil(double now, const Meeting &event);

} // namespace quorvane::AlertPolicy
