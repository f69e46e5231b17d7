// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QHash>

#include <vector>

namespace quorvane {

/// The user's explicit choices: meeting id to alert (true) or not (false).
using MeetingChoices = QHash<QString, bool>;

/// Whether the calendar cache beside the system store was read in this very refresh.
enum class Freshness { stale, fresh };

} // namespace quorvane

/// Which meetings there are, and which of them may interrupt. Pure rules.
namespace quorvane::MeetingSelection {

/// Merges the meetings read on this machine, the schedule `saved` on the user's server and the hand-added
/// ones into one list without duplicates, by start and then by id. The first of an id wins: local, manual,
/// saved. What can no longer alert at `now` (Unix time, seconds) is dropped; so is, under a fresh reading,
/// what the server saved of this machine's own calendars.
[[nodiscard]] std::vector<Meeting> candidates(const std::vector<Meeting> &local,
                                              const std::vector<Meeting> &saved,
                                              const std::vector<Meeting> &manual, Freshness fantasticalFresh,
                                              double now);

/// Keeps the first of the meetings that say the same: title (trimmed, case aside), whole-second start and
/// end, link.
[[nodiscard]] std::vector<Meeting> deduplicated(std::vector<Meeting> meetings);

/// Whether the meeting may interrupt: the user's choice where there is one; else hand-added and video
/// meetings. Cancelled and all-day meetings never do.
[[nodiscard]] bool includes(const Meeting &meeting, const MeetingChoices &overrides);

} // namespace quorvane::MeetingSelection
