// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/HtmlTag.h"

#include <algorithm>
#include <array>

namespace quorvane {
namespace {

// Sorted. What is not here stays in the text as it is.
constexpr std::array<QStringView, 68> knownNames{
    u"a",      u"abbr",    u"article", u"b",    u"base",  u"big",    u"blockquote", u"body",  u"br",
    u"button", u"caption", u"center",  u"cite", u"code",  u"col",    u"colgroup",   u"dd",    u"del",
    u"div",    u"dl",      u"dt",      u"em",   u"font",  u"footer", u"form",       u"h1",    u"h2",
    u"h3",     u"h4",      u"h5",      u"h6",   u"head",  u"header", u"hr",         u"html",  u"i",
    u"iframe", u"img",     u"input",   u"ins",  u"label", u"li",     u"link",       u"main",  u"meta",
    u"ol",     u"p",       u"pre",     u"q",    u"s",     u"script", u"section",    u"small", u"span",
    u"strike", u"strong",  u"style",   u"sub",  u"sup",   u"table",  u"tbody",      u"td",    u"th",
    u"title",  u"tr",      u"u",       u"ul",   u"wbr"};
constexpr qsizetype longestName = 10;

bool isLetter(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

} // namespace

std::optional<HtmlTag> HtmlTagReader::tagAt(qsizetype position)
{
    HtmlTag tag;
    ++position;
    if (position < m_text.size() && m_text[position] == u'/') {
        tag.closing = true;
        ++position;
    }
    const qsizetype nameStart = position;
    while (position < m_text.size() && position - nameStart <= longestName && isLetter(m_text[position]))
        ++position;
    tag.name = m_text.mid(nameStart, position - nameStart).toString().toLower();
    if (!std::binary_search(knownNames.begin(), knownNames.end(), QStringView(tag.name)))
        return std::nullopt;
    if (!readAttributes(position, tag))
        return std::nullopt;
    tag.end = position;
    return tag;
}

bool HtmlTagReader::readAttributes(qsizetype &position, HtmlTag &tag)
{
    while (position < m_text.size()) {
        const QChar c = m_text[position];
        if (c == u'>') {
            ++position;
            return true;
        }
        if (c == u'<')
            return false;
        if (c.isSpace() || c == u'/') {
            ++position;
            continue;
        }
        const qsizetype nameStart = position;
        while (position < m_text.size() &&
               (isLetter(m_text[position]) || QStringView(u"-_:").contains(m_text[position])))
            ++position;
        const QStringView name = m_text.mid(nameStart, position - nameStart);
        // An attribute stands apart from the name before it: "<b:c>" and "<a@b.example>" are no tags.
        if (name.isEmpty() ||
            !(m_text[nameStart - 1].isSpace() || QStringView(u"/\"'").contains(m_text[nameStart - 1])))
            return false;
        const std::optional<QStringView> value = readValue(position);
        if (!value)
            return false;
        if (name.compare(u"href", Qt::CaseInsensitive) == 0)
            tag.href = *value;
    }
    return false;
}

/// The value behind an attribute's name, empty when it has none; nothing when it does not end.
std::optional<QStringView> HtmlTagReader::readValue(qsizetype &position)
{
    while (position < m_text.size() && m_text[position].isSpace())
        ++position;
    if (position >= m_text.size() || m_text[position] != u'=')
        return QStringView(u"");
    ++position;
    while (position < m_text.size() && m_text[position].isSpace())
        ++position;
    const QChar quote = position < m_text.size() ? m_text[position] : QChar();
    if (quote == u'"' || quote == u'\'') {
        bool &inVain = quote == u'"' ? m_noDoubleQuote : m_noSingleQuote;
        const qsizetype end = inVain ? -1 : m_text.indexOf(quote, position + 1);
        if (end < 0) {
            inVain = true;
            return std::nullopt;
        }
        const QStringView value = m_text.mid(position + 1, end - position - 1);
        position = end + 1;
        return value;
    }
    const qsizetype start = position;
    while (position < m_text.size() && !m_text[position].isSpace() && m_text[position] != u'>' &&
           m_text[position] != u'<')
        ++position;
    return m_text.mid(start, position - start);
}

} // namespace quorvane
