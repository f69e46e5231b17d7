// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringView>

/// A look at the raw markup of an XML text before a parser sees it.
namespace quorvane::FeedMarkup {

/// Bounds of a text that Qt's parser takes in quickly; its time and memory grow with the square of some of
/// them.
inline constexpr int mostTags = 50'000;
inline constexpr qsizetype longestTag = 8'192;
inline constexpr int mostAttributes = 32;
inline constexpr int deepest = 32;

/// Whether the text keeps to these bounds and declares no document type, and with that no entities. Says
/// nothing else of its form. Takes time in proportion to its length.
[[nodiscard]] bool isHarmless(QStringView xml);

} // namespace quorvane::FeedMarkup
