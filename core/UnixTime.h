// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

#include <cmath>

/// Between Unix time in seconds, which rules take and records hold, and the moments that views show; to a
/// millisecond.
namespace quorvane::UnixTime {

[[nodiscard]] inline QDateTime moment(double seconds)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround(seconds * 1000));
}

[[nodiscard]] inline double seconds(const QDateTime &moment)
{
    return static_cast<double>(moment.toMSecsSinceEpoch()) / 1000;
}

} // namespace quorvane::UnixTime
