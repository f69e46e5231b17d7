// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// The texts of the countdown, each a function of the whole seconds until the start (0 and below once
/// started).
namespace quorvane::TakeoverText {

/// "Now" below 1, the number below 60, minutes and seconds ("1:05") above.
[[nodiscard]] QString clockText(qint64 secondsLeft);

/// The word under the clock: "seconds", "minutes", "just started", "started 3 min ago".
[[nodiscard]] QString caption(qint64 secondsLeft);

/// The sentence above the dial.
[[nodiscard]] QString headline(qint64 secondsLeft);

/// What a screen reader says for the dial.
[[nodiscard]] QString dialLabel(qint64 secondsLeft);

/// Whether the dial's label is to be spoken when the countdown moves from `before` to `secondsLeft`: on
/// reaching 60, 30 and 10 seconds and the start, also when a late tick skips over one of them.
[[nodiscard]] bool isAnnounced(qint64 before, qint64 secondsLeft);

} // namespace quorvane::TakeoverText
