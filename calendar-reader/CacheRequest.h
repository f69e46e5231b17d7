// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheDatabase.h"

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace quorvane {

/// What is to be read, and within which bounds.
struct CacheRequest
{
    /// Path of the cache, as `CacheFile::resolve` gives it.
    QByteArray path;
    /// Identifiers of the calendars whose events are left out.
    QStringList excluded;
    /// Unix time, seconds.
    double now = 0;
    /// Olson name of the zone in which floating times are understood.
    QByteArray zone;
    /// A reading that has not seen every row by then fails.
    Deadline deadline;
    /// Asked before the event of a row of the database is read; what it says no to is counted as skipped.
    std::function<bool(std::int64_t row)> mayRead = [](std::int64_t) { return true; };
    /// Called when no row is being read any more, also when that failed.
    std::function<void()> leaveRows = [] {};
};

} // namespace quorvane
