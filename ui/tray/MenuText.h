// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

/// Foreign text as a line of a menu. Pure.
namespace quorvane::MenuText {

/// Line breaks and other characters that control something become blanks, of which no two follow each other.
[[nodiscard]] QString oneLine(QString text);

/// At most `longest` characters as people count them; one that is longer ends in an ellipsis.
[[nodiscard]] QString elided(const QString &text, qsizetype longest);

} // namespace quorvane::MenuText
