// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// What a feed says about a version, made fit to be shown.
namespace quorvane::ReleaseNotes {

enum class Format { html, plain };

/// Notes are at most this many Unicode code points long.
inline constexpr qsizetype longest = 4'000;

/// The notes as plain text for a reader: a line per block, "• " before each item of a list, without scripts,
/// styles, the targets of links, control characters and such as turn the direction of writing around. Longer
/// ones are cut behind a word and end with "…". Must be shown as plain text, since what only looks like a tag
/// stays in it. Takes time in proportion to the length of `text`, whatever that holds.
[[nodiscard]] QString plainText(const QString &text, Format format);

} // namespace quorvane::ReleaseNotes
