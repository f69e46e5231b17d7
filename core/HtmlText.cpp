// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/HtmlText.h"

#include "core/HtmlEntities.h"
#include "core/HtmlTag.h"

#include <QStringList>

namespace quorvane::HtmlText {
namespace {

QString decoded(QStringView text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto entity = text[i] == u'&' ? htmlEntityAt(text, i) : std::nullopt;
        if (entity) {
            result += QChar::fromUcs4(entity->character);
            i += entity->length - 1;
        } else if (text[i] > u' ') { // a link broken over lines is one link
            result += text[i];
        }
    }
    return result;
}

bool isSearchable(const QString &link)
{
    for (const QStringView scheme : {u"https:", u"http:", u"zoommtg:", u"msteams:"}) {
        if (link.startsWith(scheme, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

/// Turns one HTML text into plain text, from its first character to its last.
class Converter final
{
public:
    Converter(QStringView html, Purpose purpose)
        : m_html(html)
        , m_purpose(purpose)
        , m_tags(html)
    {
    }

    QString convert()
    {
        qsizetype position = 0;
        while (position < m_html.size())
            position = step(position);
        endLink();
        return m_text.trimmed();
    }

private:
    qsizetype step(qsizetype position)
    {
        const QChar c = m_html[position];
        if (c == u'<') {
            if (m_html.mid(position).startsWith(u"<!"))
                return skipDeclaration(position);
            if (const auto tag = m_tags.tagAt(position))
                return apply(*tag);
        }
        if (c == u'&') {
            if (const auto entity = htmlEntityAt(m_html, position)) {
                if (entity->character == U' ')
                    space();
                else
                    m_text += QChar::fromUcs4(entity->character);
                return position + entity->length;
            }
        }
        if (c == u'\n' && m_purpose == Purpose::links)
            newLine();
        else if (c.isSpace())
            space();
        else
            m_text += c;
        return position + 1;
    }

    qsizetype skipDeclaration(qsizetype position)
    {
        const bool comment = m_html.mid(position).startsWith(u"<!--");
        bool &inVain = comment ? m_noCommentEnd : m_noDeclarationEnd;
        const QStringView terminator = comment ? u"-->" : u">";
        const qsizetype end = inVain ? -1 : m_html.indexOf(terminator, position + 2);
        if (end >= 0)
            return end + terminator.size();
        inVain = true;
        m_text += m_html[position];
        return position + 1;
    }

    qsizetype apply(const HtmlTag &tag)
    {
        static const QStringList inlined =
            QStringLiteral("abbr,b,base,big,button,cite,code,del,em,font,i,img,input,ins,"
                           "label,link,meta,q,s,script,small,span,strike,strong,style,sub,sup,u,wbr")
                .split(u',');
        if (tag.name == u"a") {
            endLink();
            if (!tag.closing)
                beginLink(tag.href);
        } else if ((tag.name == u"script" || tag.name == u"style") && !tag.closing) {
            return behindElement(tag);
        } else if (tag.name == u"td" || tag.name == u"th") {
            space();
        } else if (tag.name == u"br") {
            newLine();
        } else if (!inlined.contains(tag.name)) {
            beginLine();
            if (tag.name == u"li" && !tag.closing && m_purpose == Purpose::reading)
                bullet();
        }
        return tag.end;
    }

    qsizetype behindElement(const HtmlTag &tag)
    {
        const bool script = tag.name == u"script";
        bool &inVain = script ? m_noScriptEnd : m_noStyleEnd;
        const QStringView terminator = script ? u"</script" : u"</style";
        const qsizetype end = inVain ? -1 : m_html.indexOf(terminator, tag.end, Qt::CaseInsensitive);
        inVain = end < 0;
        return inVain ? tag.end : end;
    }

    void beginLink(QStringView href)
    {
        m_link = decoded(href);
        m_linkStart = m_text.size();
    }

    void endLink()
    {
        if (m_purpose == Purpose::links && isSearchable(m_link) &&
            !QStringView(m_text).mid(m_linkStart).contains(m_link)) {
            space();
            m_text += m_link;
            m_text += u' ';
        }
        m_link.clear();
    }

    void space()
    {
        if (!m_text.isEmpty() && !m_text.back().isSpace())
            m_text += u' ';
    }

    void bullet()
    {
        if (m_text.size() != m_bulletEnd)
            m_text += u"• ";
        m_bulletEnd = m_text.size();
    }

    void beginLine()
    {
        // A block at the begin of a list's item stands beside its bullet.
        if (!m_text.endsWith(u'\n') && m_text.size() != m_bulletEnd)
            newLine();
    }

    void newLine()
    {
        if (m_text.endsWith(u' '))
            m_text.chop(1);
        m_bulletEnd = -1;
        if (!m_text.isEmpty() && !m_text.endsWith(u"\n\n"))
            m_text += u'\n';
    }

    QStringView m_html;
    Purpose m_purpose;
    HtmlTagReader m_tags;
    QString m_text;
    QString m_link;
    qsizetype m_linkStart = 0;
    qsizetype m_bulletEnd = -1;
    // What was searched for up to the end in vain is not searched for again.
    bool m_noCommentEnd = false;
    bool m_noDeclarationEnd = false;
    bool m_noScriptEnd = false;
    bool m_noStyleEnd = false;
};

} // namespace

bool isHtml(const QString &text)
{
    HtmlTagReader tags(text);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'<' && tags.tagAt(i))
            return true;
        if (text[i] == u'&' && htmlEntityAt(text, i))
            return true;
    }
    return false;
}

QString plainText(const QString &html, Purpose purpose)
{
    return Converter(html, purpose).convert();
}

} // namespace quorvane::HtmlText
