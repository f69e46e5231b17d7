// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/Characters.h"

#include <QTextBoundaryFinder>

namespace quorvane::Characters {

qsizetype count(const QString &text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype characters = 0;
    while (finder.toNextBoundary() >= 0)
        ++characters;
    return characters;
}

QString first(const QString &text, qsizetype characters)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype i = 0; i < characters; ++i) {
        if (finder.toNextBoundary() < 0)
            return text;
    }
    return text.left(finder.position());
}

QString fitting(const QString &text, qsizetype codePoints)
{
    qsizetype end = 0;
    for (qsizetype i = 0; i < codePoints && end < text.size(); ++i)
        end += text.at(end).isHighSurrogate() && end + 1 < text.size() ? 2 : 1;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(end);
    return finder.isAtBoundary() ? text.left(end) : text.left(finder.toPreviousBoundary());
}

} // namespace quorvane::Characters
