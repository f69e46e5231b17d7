// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/LinkDetector.h"
#include "core/Meeting.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::array acceptedSchemes{"https"_L1, "zoommtg"_L1, "msteams"_L1};

// Zoom, Google Meet, Microsoft Teams for business and for personal accounts, Webex, Whereby, Jitsi Meet.
constexpr std::array videoHosts{
    "zoom.us"_L1,   "meet.google.com"_L1, "teams.microsoft.com"_L1, "teams.live.com"_L1,
    "webex.com"_L1, "whereby.com"_L1,     "meet.jit.si"_L1,
};

bool isVideoHost(const QString &host)
{
    return std::ranges::any_of(videoHosts, [&host](QLatin1StringView service) {
        return host == service ||
               (host.endsWith(service) && host.at(host.size() - service.size() - 1) == u'.');
    });
}

// An empty user name ("https://@host") leaves no trace in a parsed URL, so the text is asked.
bool hasUserInfo(const QString &text)
{
    const qsizetype begin = text.indexOf("//"_L1) + 2;
    for (qsizetype i = begin; i < text.size() && !u"/?#"_s.contains(text.at(i)); ++i) {
        if (text.at(i) == u'@')
            return true;
    }
    return false;
}

} // namespace

std::optional<QUrl> Meeting::safeJoinURL(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    QUrl url(*text, QUrl::StrictMode);
    if (!url.isValid() || url.isRelative() || url.host().isEmpty())
        return std::nullopt;
    const QString scheme = url.scheme().toLower();
    const bool accepted = std::ranges::any_of(acceptedSchemes, [&](auto known) { return scheme == known; });
    if (!accepted || !url.userInfo().isEmpty() || hasUserInfo(*text))
        return std::nullopt;
    return url;
}

std::optional<QString> Meeting::findJoinURL(const QString &text)
{
    LinkDetector detector(text);
    while (const auto link = detector.next()) {
        QString candidate = link->toString();
        const auto url = safeJoinURL(candidate);
        if (url && isVideoHost(url->host().toLower()))
            return candidate;
    }
    return std::nullopt;
}

} // namespace quorvane
