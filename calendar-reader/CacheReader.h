// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendar-reader/CacheRequest.h"
#include "calendars/records/FantasticalSnapshot.h"
#include "core/Result.h"

/// Turns the cache into a snapshot.
namespace quorvane::CacheReader {

/// Reads the whole cache as it stands at one moment: when a writer that no lock holds off changed it in
/// between, reading starts over. Fails with `FantasticalReadError`. The snapshot's JSON is never longer than
/// `FantasticalSnapshot::largest`: later meetings that find no place are counted as skipped.
[[nodiscard]] Result<FantasticalSnapshot> read(const CacheRequest &request);

} // namespace quorvane::CacheReader
