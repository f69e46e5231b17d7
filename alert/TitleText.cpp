// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/TitleText.h"

#include "core/Characters.h"

namespace quorvane::TitleText {

namespace {

constexpr qsizetype mostCharacters = 1500;
/// Bounds the work before characters are counted: one may be many code units long.
constexpr qsizetype mostCodeUnits = 4 * mostCharacters;

} // namespace

QString displayed(const QString &title)
{
    const QString line = title.left(mostCodeUnits).simplified();
    const QString first = Characters::first(line, mostCharacters);
    return first.size() < line.size() ? first + QChar(0x2026) : line;
}

} // namespace quorvane::TitleText
