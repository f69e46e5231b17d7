// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/LinkDetector.h"

#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

bool isSchemeCharacter(QChar c)
{
    return c.unicode() < 0x80 && c.isLetterOrNumber();
}

// Scripts that put no blank between a link and the words after it.
bool isUnspacedScript(QChar c)
{
    switch (c.script()) {
    case QChar::Script_Han:
    case QChar::Script_Hiragana:
    case QChar::Script_Katakana:
    case QChar::Script_Hangul:
    case QChar::Script_Thai:
        return true;
    default:
        return false;
    }
}

bool isLinkCharacter(QChar c)
{
    if (c.unicode() < 0x80)
        return c.unicode() > 0x20 && c.unicode() != 0x7f && !u"<>\"`{}|\\^"_s.contains(c);
    return c.isSurrogate() || c.isMark() || (c.isLetterOrNumber() && !isUnspacedScript(c));
}

QChar openingOf(QChar closing)
{
    switch (closing.unicode()) {
    case u')':
        return u'(';
    case u']':
        return u'[';
    default:
        return {};
    }
}

// Lists are written without blanks too: a link ends before a comma or semicolon that another link follows.
bool isListSeparator(QStringView text, qsizetype position)
{
    if (!u",;"_s.contains(text.at(position)))
        return false;
    qsizetype next = position + 1;
    while (next < text.size() && isSchemeCharacter(text.at(next)))
        ++next;
    return next > position + 1 && text.sliced(next).startsWith("://"_L1);
}

// Leaves out what ends the sentence, and a closing bracket that the link did not open itself.
QStringView withoutSentenceEnd(QStringView link)
{
    std::array<qsizetype, 2> surplus{link.count(u')') - link.count(u'('),
                                     link.count(u']') - link.count(u'[')};
    while (!link.isEmpty()) {
        const QChar last = link.back();
        if (const QChar opening = openingOf(last); !opening.isNull()) {
            qsizetype &count = surplus.at(last == u')' ? 0 : 1);
            if (count <= 0)
                return link;
            --count;
        } else if (!u".,;:!?'*"_s.contains(last)) {
            return link;
        }
        link.chop(1);
    }
    return link;
}

} // namespace

LinkDetector::LinkDetector(QStringView text)
    : m_text(text)
{
}

std::optional<QStringView> LinkDetector::next()
{
    static constexpr auto separator = "://"_L1;
    for (;;) {
        const qsizetype colon = m_text.indexOf(separator, m_position);
        if (colon < 0)
            return std::nullopt;
        qsizetype begin = colon;
        while (begin > m_position && isSchemeCharacter(m_text.at(begin - 1)))
            --begin;
        while (begin < colon && !m_text.at(begin).isLetter())
            ++begin;
        qsizetype end = colon + separator.size();
        while (end < m_text.size() && isLinkCharacter(m_text.at(end)) && !isListSeparator(m_text, end))
            ++end;
        m_position = end;
        const QStringView link = withoutSentenceEnd(m_text.sliced(begin, end - begin));
        if (begin < colon && link.size() > colon - begin + separator.size())
            return link;
    }
}

} // namespace quorvane
