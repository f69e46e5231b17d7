// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/LinkUnwrapper.h"

#include <QUrl>

#include <array>
#include <optional>

namespace quorvane::LinkUnwrapper {
namespace {

struct Wrapper
{
    QStringView host;
    QStringView path;
    std::array<QStringView, 2> parameters;
};

// A host also stands for its subdomains; a path for everything below it.
constexpr std::array wrappers{
    Wrapper{u"safelinks.protection.outlook.com", u"/", {u"url"}},
    Wrapper{u"safelinks.protection.office365.us", u"/", {u"url"}},
    Wrapper{u"safelinks.o365.cn", u"/", {u"url"}},
    Wrapper{u"statics.teams.cdn.office.net", u"/evergreen-assets/safelinks/", {u"url"}},
    Wrapper{u"google.com", u"/url", {u"q", u"url"}},
    Wrapper{u"google.co.uk", u"/url", {u"q", u"url"}},
    Wrapper{u"google.de", u"/url", {u"q", u"url"}},
};

constexpr int maximumDepth = 5;

bool endsLink(QChar c)
{
    return c <= u' ' || c == u'<' || c == u'>' || c == u'"' || c == u'`' || c == u'{' || c == u'}' ||
           c.isSpace();
}

qsizetype linkEnd(QStringView text, qsizetype from)
{
    while (from < text.size() && !endsLink(text[from]))
        ++from;
    return from;
}

bool isHostOf(QStringView host, QStringView entry)
{
    if (!host.endsWith(entry, Qt::CaseInsensitive))
        return false;
    return host.size() == entry.size() || host[host.size() - entry.size() - 1] == u'.';
}

std::optional<QStringView> parameter(QStringView query, QStringView name)
{
    for (QStringView pair : query.tokenize(u'&')) {
        if (pair.startsWith(u"amp;")) // a query that was written in HTML
            pair = pair.mid(4);
        const qsizetype equals = pair.indexOf(u'=');
        if (equals >= 0 && pair.left(equals).compare(name, Qt::CaseInsensitive) == 0)
            return pair.mid(equals + 1);
    }
    return std::nullopt;
}

bool isLink(QStringView text)
{
    for (const QStringView scheme : {u"https://", u"http://", u"zoommtg://", u"msteams://"}) {
        if (text.startsWith(scheme, Qt::CaseInsensitive))
            return text.size() > scheme.size();
    }
    return false;
}

/// Where `link` leads to, when it is a wrapper.
std::optional<QString> target(QStringView link)
{
    const qsizetype hostStart = link.indexOf(u"://") + 3;
    qsizetype hostEnd = hostStart;
    while (hostEnd < link.size() && link[hostEnd] != u'/' && link[hostEnd] != u'?' && link[hostEnd] != u'#')
        ++hostEnd;
    const QStringView host = link.mid(hostStart, hostEnd - hostStart);
    const QStringView rest = link.mid(hostEnd).split(u'#').constFirst();
    const qsizetype question = rest.indexOf(u'?');
    if (question < 0)
        return std::nullopt;
    const QStringView path = question == 0 ? QStringView(u"/") : rest.left(question);
    for (const Wrapper &wrapper : wrappers) {
        if (!isHostOf(host, wrapper.host) || !path.startsWith(wrapper.path))
            continue;
        for (const QStringView name : wrapper.parameters) {
            const auto value = name.isEmpty() ? std::nullopt : parameter(rest.mid(question + 1), name);
            if (!value)
                continue;
            QString found = QUrl::fromPercentEncoding(value->toUtf8());
            found.truncate(linkEnd(found, 0));
            if (isLink(found))
                return found;
        }
    }
    return std::nullopt;
}

QString unwrappedLink(QStringView link)
{
    QString current = link.toString();
    for (int depth = 0; depth < maximumDepth; ++depth) {
        std::optional<QString> next = target(current);
        if (!next)
            break;
        current = std::move(*next);
    }
    return current;
}

/// Where the http or https link begins whose "://" is at `colon`; -1 when it is no such link.
qsizetype webLinkStart(QStringView text, qsizetype colon)
{
    for (const QStringView scheme : {u"https", u"http"}) {
        const qsizetype start = colon - scheme.size();
        if (start >= 0 && text.mid(start, scheme.size()).compare(scheme, Qt::CaseInsensitive) == 0)
            return start;
    }
    return -1;
}

} // namespace

QString unwrapped(const QString &text)
{
    QString result;
    qsizetype copied = 0;
    qsizetype colon = text.indexOf(u"://");
    while (colon >= 0) {
        const qsizetype start = webLinkStart(text, colon);
        qsizetype next = colon + 3;
        if (start >= copied) {
            next = linkEnd(text, colon);
            result += QStringView(text).mid(copied, start - copied);
            result += unwrappedLink(QStringView(text).mid(start, next - start));
            copied = next;
        }
        colon = text.indexOf(u"://", next);
    }
    if (copied == 0)
        return text;
    result += QStringView(text).mid(copied);
    return result;
}

} // namespace quorvane::LinkUnwrapper
