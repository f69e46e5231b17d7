// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/MenuText.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace quorvane::MenuText {

QString oneLine(QString text)
{
    const auto isControl = [](QChar character) { return character.category() == QChar::Other_Control; };
    std::ranges::replace_if(text, isControl, QLatin1Char(' '));
    return text.simplified(); // which knows the line breaks beyond ASCII
}

QString elided(const QString &text, qsizetype longest)
{
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    qsizetype cut = 0;
    for (qsizetype count = 0; count < longest; ++count) {
        if (count == longest - 1)
            cut = characters.position();
        if (characters.toNextBoundary() < 0)
            return text;
    }
    return characters.position() < text.size() ? text.first(cut) + QChar(0x2026) : text;
}

} // namespace quorvane::MenuText
