// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Counting by what a reader perceives as one character (Unicode UAX #29, extended grapheme clusters).
namespace quorvane::Characters {

[[nodiscard]] qsizetype count(const QString &text);

/// The first `characters` characters of a text; the whole text when it has no more.
[[nodiscard]] QString first(const QString &text, qsizetype characters);

/// As many whole characters from the text's begin as fit into `codePoints` Unicode code points.
[[nodiscard]] QString fitting(const QString &text, qsizetype codePoints);

} // namespace quorvane::Characters
