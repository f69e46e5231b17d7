// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheDatabase.h"

/// How the cache is laid out; docs/calendar-cache.sql is the same for people.
namespace quorvane::CacheLayout {

/// PRAGMA application_id: "QCAL".
inline constexpr sqlite3_int64 applicationId = 0x5143414C;
/// PRAGMA user_version.
inline constexpr sqlite3_int64 version = 1;

/// Fails with `FantasticalReadError::unsupportedFormat` when the database is not one of these: by its
/// numbers, by its text encoding, or because one of the tables is missing, is a view or lacks a column.
[[nodiscard]] Result<void> check(const CacheDatabase &database);

} // namespace quorvane::CacheLayout
