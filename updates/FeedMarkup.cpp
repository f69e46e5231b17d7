// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/FeedMarkup.h"

namespace quorvane::FeedMarkup {
namespace {

/// The position behind the next `terminator`; -1 when there is none.
qsizetype behind(QStringView xml, QStringView terminator, qsizetype from)
{
    const qsizetype found = xml.indexOf(terminator, from);
    return found < 0 ? -1 : found + terminator.size();
}

/// The position behind the tag that begins at `start`; -1 when it goes beyond a bound or does not end.
qsizetype behindTag(QStringView xml, qsizetype start)
{
    int attributes = 0;
    const QStringView tag = xml.mid(start, longestTag);
    for (qsizetype i = 1; i < tag.size(); ++i) {
        const QChar c = tag[i];
        if (c == u'>')
            return start + i + 1;
        if (c != u'"' && c != u'\'')
            continue;
        i = tag.indexOf(c, i + 1);
        if (i < 0 || ++attributes > mostAttributes)
            return -1;
    }
    return -1;
}

} // namespace

bool isHarmless(QStringView xml)
{
    int tags = 0;
    int depth = 0;
    for (qsizetype i = xml.indexOf(u'<'); i >= 0; i = xml.indexOf(u'<', i)) {
        const QStringView rest = xml.mid(i);
        if (rest.startsWith(u"<!--")) {
            i = behind(xml, u"-->", i + 4);
        } else if (rest.startsWith(u"<![CDATA[")) {
            i = behind(xml, u"]]>", i);
        } else if (rest.startsWith(u"<?")) {
            i = behind(xml, u"?>", i);
        } else if (rest.startsWith(u"<!")) {
            return false;
        } else {
            i = behindTag(xml, i);
            if (i < 0 || ++tags > mostTags)
                return false;
            if (rest.startsWith(u"</"))
                --depth;
            else if (xml[i - 2] != u'/' && ++depth > deepest)
                return false;
        }
        if (i < 0)
            return false;
    }
    return true;
}

} // namespace quorvane::FeedMarkup
