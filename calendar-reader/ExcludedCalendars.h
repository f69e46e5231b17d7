// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheDatabase.h"
#include "core/Result.h"

#include <QByteArray>
#include <QStringList>

/// The reader's input: which calendars the user has switched off.
namespace quorvane::ExcludedCalendars {

/// Longest input, in bytes.
inline constexpr qsizetype longest = 1'000'000;

/// Reads the open file `descriptor` to its end. Fails with `std::errc::message_size` when there is more than
/// `longest`, with `std::errc::timed_out` when it has not ended by `deadline`, or with the system's error.
[[nodiscard]] Result<QByteArray> read(int descriptor, Deadline deadline);

/// The identifiers in one JSON array of strings (RFC 8259); fails with `JsonError` for anything else.
[[nodiscard]] Result<QStringList> parse(const QByteArray &json);

} // namespace quorvane::ExcludedCalendars
