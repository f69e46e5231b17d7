// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/TitleText.h"

#include <QTextBoundaryFinder>

namespace quorvane::TitleText {

namespace {

constexpr qsizetype mostCharacters = 1500;
/// Bounds the work before characters are counted: one may be many code units long.
constexpr qsizetype mostCodeUnits = 4 * mostCharacters;

} // namespace

QString displayed(const QString &title)
{
    const QString line = title.left(mostCodeUnits).simplified();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, line);
    for (qsizetype count = 0; count < mostCharacters; ++count) {
        if (finder.toNextBoundary() < 0)
            return line;
    }
    return finder.position() < line.size() ? line.left(finder.position()) + QChar(0x2026) : line;
}

qsizetype length(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

} // namespace quorvane::TitleText
