// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"
#include "core/Result.h"
#include "network/FormFields.h"
#include "network/PushKind.h"

/// What the phone service is told about a meeting. Its limits: https://pushover.net/api#limits
namespace quorvane::PushMessage {

/// The longest text of a message, in Unicode code points, and the longest link, in characters.
inline constexpr qsizetype longestMessage = 1024;
inline constexpr qsizetype longestLink = 512;

/// All fields but the credentials, `now` in Unix seconds. Fails with `NetworkError::configuration` when the
/// time until the meeting is no number of seconds that 64 bits can hold.
[[nodiscard]] Result<FormFields> fields(const Meeting &meeting, PushKind kind, double now);

} // namespace quorvane::PushMessage
