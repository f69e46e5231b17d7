// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarOption.h"
#include "core/Meeting.h"
#include "core/Result.h"

#include <QByteArray>

#include <vector>

namespace quorvane {

/// What the reader executable found in the calendar cache: one JSON object (RFC 8259), the wire format
/// between the two programs.
struct FantasticalSnapshot
{
    /// The longest snapshot that the application takes, in bytes.
    static constexpr qsizetype largest = 8'000'000;

    /// The timed events found.
    std::vector<Meeting> events;
    /// Every calendar in the cache, excluded ones too.
    std::vector<CalendarOption> calendars;
    /// Number of cache entries that could not be turned into events.
    qint64 skipped = 0;
    /// Unix time, seconds: when the snapshot was made, and when the cache file was last modified.
    double checkedAt = 0;
    double cacheModifiedAt = 0;

    bool operator==(const FantasticalSnapshot &) const = default;

    /// The JSON text in UTF-8.
    [[nodiscard]] QByteArray toJson() const;
    /// All keys are required; fails with `JsonError`. The length is not checked here.
    [[nodiscard]] static Result<FantasticalSnapshot> fromJson(const QByteArray &bytes);
};

} // namespace quorvane
