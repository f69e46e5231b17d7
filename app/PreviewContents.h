// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/PreviewContent.h"

/// The states of the model that the preview pictures show. `now` is Unix time, seconds.
namespace quorvane::PreviewContents {

/// A working day, everything in order.
[[nodiscard]] PreviewContent busyDay(double now);
/// The same with the alerts paused.
[[nodiscard]] PreviewContent paused(double now);
/// The same with a source and the phone failing.
[[nodiscard]] PreviewContent trouble(double now);
/// The same just after something went well.
[[nodiscard]] PreviewContent success(double now);
/// Nothing connected yet.
[[nodiscard]] PreviewContent firstStart();
/// Calendars, and nothing in them.
[[nodiscard]] PreviewContent quietDays(double now);

} // namespace quorvane::PreviewContents
