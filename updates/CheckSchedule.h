// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QtGlobal>

#include <functional>
#include <optional>

/// When to look for a newer version without being asked. All times are Unix seconds.
namespace quorvane::CheckSchedule {

/// A number at random from 0 to below the bound.
using Random = std::function<quint32(quint32 bound)>;

/// When the next check is due: at a random minute of the calendar day (UTC) behind the one of `lastCheck`. If
/// that has passed at `now`, or there was no check yet, it is due 1 to 10 minutes, at random, after `now`. A
/// last check that is more than two days ahead of `now`, because the clock was set since, counts as none.
[[nodiscard]] double next(std::optional<double> lastCheck, double now, const Random &random);

} // namespace quorvane::CheckSchedule
