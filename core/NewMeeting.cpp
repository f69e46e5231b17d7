// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/NewMeeting.h"

#include "core/Characters.h"

using namespace Qt::StringLiterals;

namespace quorvane {

bool NewMeeting::isAcceptable(double now) const
{
    const bool isInTime = start > now && start - now <= horizon;
    const bool isSafe =
        link.isEmpty() || (Characters::count(link) <= longestLink && Meeting::safeJoinURL(link).has_value());
    return isInTime && duration >= 1 && isSafe && Characters::count(title) <= longestTitle;
}

Meeting NewMeeting::meeting(const QString &uid) const
{
    Meeting made{
        .id = Meeting::identity(uid, start),
        .title = title.trimmed(),
        .start = start,
        .end = start + 60.0 * duration,
        .calendar = u"Added by you"_s,
        .joinURL = std::nullopt,
        .source = Meeting::manualSource,
    };
    if (const auto url = Meeting::safeJoinURL(link))
        made.joinURL = QString::fromLatin1(url->toEncoded());
    return made;
}

} // namespace quorvane
