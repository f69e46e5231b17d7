// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// What the commands end the process with. Scripts rely on these numbers.
namespace quorvane::ExitStatus {

inline constexpr int success = 0;
inline constexpr int secretNotStored = 1;
inline constexpr int unknownAccount = 2;
inline constexpr int noCalendarAccess = 3;
inline constexpr int noWritableCalendar = 4;
inline constexpr int meetingNotSaved = 5;
inline constexpr int connectionFailed = 6;
/// The server answers, but it does not alert or has no phone to alert.
inline constexpr int serverNotReady = 7;
inline constexpr int loginItemFailed = 8;
// 9 is `PreviewExporter::failed`.
inline constexpr int selfTestFailed = 10;

} // namespace quorvane::ExitStatus
