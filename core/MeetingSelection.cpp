// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/MeetingSelection.h"

#include "core/CodePointOrder.h"

#include <QSet>

#include <algorithm>
#include <cmath>

namespace quorvane::MeetingSelection {

namespace {

// Foreign records may hold any number, so what no 64-bit integer can hold is cut to the nearest that can.
qint64 wholeSeconds(double time)
{
    constexpr double limit = 9.2e18;
    return std::isnan(time) ? 0 : static_cast<qint64>(std::clamp(time, -limit, limit));
}

QString contentKey(const Meeting &meeting)
{
    return meeting.title.trimmed().toLower() + u'|' + QString::number(wholeSeconds(meeting.start)) + u'|' +
           QString::number(wholeSeconds(meeting.end)) + u'|' + meeting.joinURL.value_or(QString());
}

bool earlier(const Meeting &a, const Meeting &b)
{
    if (a.start != b.start)
        return a.start < b.start;
    return codePointLess(a.id, b.id);
}

} // namespace

std::vector<Meeting> candidates(const std::vector<Meeting> &local, const std::vector<Meeting> &saved,
                                const std::vector<Meeting> &manual, Freshness fantasticalFresh, double now)
{
    std::vector<Meeting> merged;
    QSet<QString> seen;
    const auto take = [&](const Meeting &meeting) {
        if (!meeting.eligible(now) || seen.contains(meeting.id))
            return;
        seen.insert(meeting.id);
        merged.push_back(meeting);
    };
    std::ranges::for_each(local, take);
    std::ranges::for_each(manual, take);
    for (const Meeting &meeting : saved) {
        if (fantasticalFresh == Freshness::stale || meeting.source != Meeting::systemSource)
            take(meeting);
    }
    std::ranges::stable_sort(merged, earlier);
    return deduplicated(std::move(merged));
}

std::vector<Meeting> deduplicated(std::vector<Meeting> meetings)
{
    QSet<QString> seen;
    std::erase_if(meetings, [&seen](const Meeting &meeting) {
        const QString key = contentKey(meeting);
        const bool known = seen.contains(key);
        seen.insert(key);
        return known;
    });
    return meetings;
}

bool includes(const Meeting &meeting, const MeetingChoices &overrides)
{
    if (meeting.cancelled || meeting.allDay)
        return false;
    if (const auto choice = overrides.constFind(meeting.id); choice != overrides.cend())
        return *choice;
    return meeting.source == Meeting::manualSource || meeting.isVideoMeeting();
}

} // namespace quorvane::MeetingSelection
