// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/ConferenceLinks.h"

#include "calendars/ical/IcalText.h"
#include "calendars/ical/LinkUnwrapper.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace quorvane {
namespace {

struct Candidate
{
    int rank;
    QString link;
};

// In order of trust.
constexpr std::array<const char *, 6> ownProperties{
    "X-GOOGLE-CONFERENCE",
    "X-MICROSOFT-SKYPETEAMSMEETINGURL",
    "X-MICROSOFT-ONLINEMEETINGEXTERNALLINK",
    "X-MICROSOFT-ONLINEMEETINGCONFLINK",
    "X-MICROSOFT-ONLINEMEETINGINTERNALLINK",
    "X-ZOOM-MEETING-URL",
};

// What other programs call theirs: X-ZOOM-JOIN-URL, X-WEBEX-MEETING, X-CONFERENCE-URI and so on.
constexpr std::array<const char *, 9> tellingWords{"CONFERENCE", "MEETING", "ZOOM",  "TEAMS",  "WEBEX",
                                                   "JITSI",      "HANGOUT", "VIDEO", "JOINURL"};

bool hasVideo(icalproperty *conference)
{
    for (auto *parameter = icalproperty_get_first_parameter(conference, ICAL_FEATURE_PARAMETER); parameter;
         parameter = icalproperty_get_next_parameter(conference, ICAL_FEATURE_PARAMETER)) {
        if (icalparameter_get_feature(parameter) == ICAL_FEATURE_VIDEO)
            return true;
    }
    // libical knows one value per parameter only; "AUDIO,VIDEO" it keeps as text.
    const char *features = icalproperty_get_parameter_as_string(conference, "FEATURE");
    return features && QByteArray(features).toUpper().contains("VIDEO");
}

std::optional<int> rankOf(icalproperty *property)
{
    if (icalproperty_isa(property) == ICAL_CONFERENCE_PROPERTY)
        return hasVideo(property) ? 0 : 1;
    const char *name =
        icalproperty_isa(property) == ICAL_X_PROPERTY ? icalproperty_get_x_name(property) : nullptr;
    if (!name)
        return std::nullopt;
    const QByteArray upper = QByteArray(name).toUpper();
    const auto own = std::find(ownProperties.begin(), ownProperties.end(), upper);
    if (own != ownProperties.end())
        return 2 + static_cast<int>(own - ownProperties.begin());
    const bool isTelling = std::any_of(tellingWords.begin(), tellingWords.end(),
                                       [&upper](const char *word) { return upper.contains(word); });
    return isTelling ? std::optional(100) : std::nullopt;
}

bool isLink(const QString &text)
{
    for (const QStringView scheme : {u"https://", u"http://", u"zoommtg://", u"msteams://"}) {
        if (text.startsWith(scheme, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

} // namespace

QStringList conferenceLinks(icalcomponent *event)
{
    std::vector<Candidate> candidates;
    for (auto *property = icalcomponent_get_first_property(event, ICAL_ANY_PROPERTY); property;
         property = icalcomponent_get_next_property(event, ICAL_ANY_PROPERTY)) {
        const auto rank = rankOf(property);
        const QString link = rank ? LinkUnwrapper::unwrapped(icalText(property).trimmed()) : QString();
        if (isLink(link))
            candidates.push_back({*rank, link});
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate &a, const Candidate &b) { return a.rank < b.rank; });
    QStringList links;
    for (const Candidate &candidate : candidates) {
        if (!links.contains(candidate.link))
            links.append(candidate.link);
    }
    return links;
}

} // namespace quorvane
