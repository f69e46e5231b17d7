// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/CalendarDots.h"
#include "ui/agenda/HeroFace.h"

#include "core/Meeting.h"

#include <QDateTime>

#include <optional>
#include <vector>

namespace quorvane {

/// What the hero's face depends on. The lists are by start.
struct HeroSituation
{
    const std::vector<Meeting> &scheduled;
    const std::vector<Meeting> &events;
    const CalendarDots &dots;
    std::optional<QDateTime> pausedUntil;
    /// Identifier of a meeting whose alert was switched off in the hero just now, which therefore stays;
    /// empty for none.
    QString kept;
};

} // namespace quorvane

/// Which meeting the hero shows, and how. Pure; `now` is Unix time in seconds.
namespace quorvane::HeroRules {

/// The next meeting that alerts. One that has just begun stays as long as it may still alert, unless another
/// one begins within a minute. If none alerts, the next of all. Null if there is none.
[[nodiscard]] const Meeting *choose(const HeroSituation &situation, double now);

[[nodiscard]] HeroFace face(const HeroSituation &situation, double now);

} // namespace quorvane::HeroRules
