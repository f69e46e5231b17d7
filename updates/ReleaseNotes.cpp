// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/ReleaseNotes.h"

#include "core/Characters.h"
#include "core/HtmlText.h"

namespace quorvane::ReleaseNotes {
namespace {

/// Whether the character turns the direction of what follows, so that it could show other words than it has.
bool turnsDirection(QChar c)
{
    return (c >= u'\u202A' && c <= u'\u202E') || (c >= u'\u2066' && c <= u'\u2069');
}

/// Without control characters, and with at most one empty line in a row.
QString cleaned(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        if (c == u'\n' || c == u'\u2028' || c == u'\u2029') {
            if (!result.endsWith(u"\n\n"))
                result += u'\n';
        } else if (c == u'\t') {
            result += u' ';
        } else if (c.category() != QChar::Other_Control && !turnsDirection(c)) {
            result += c;
        }
    }
    return result.trimmed();
}

QString cut(const QString &text)
{
    const QString all = Characters::fitting(text, longest);
    if (all.size() == text.size())
        return text;
    QString kept = Characters::fitting(text, longest - 1);
    constexpr qsizetype longestWord = 100;
    for (qsizetype end = kept.size(); end > 0 && end > kept.size() - longestWord; --end) {
        if (text[end].isSpace()) {
            kept.truncate(end);
            break;
        }
    }
    return kept.trimmed() + u'…';
}

} // namespace

QString plainText(const QString &text, Format format)
{
    return cut(
        cleaned(format == Format::html ? HtmlText::plainText(text, HtmlText::Purpose::reading) : text));
}

} // namespace quorvane::ReleaseNotes
