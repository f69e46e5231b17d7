// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/MeetingDraft.h"

#include "core/Characters.h"
#include "core/Meeting.h"

namespace quorvane {

namespace {

// No text has more characters than code units; counting is left for the few that are near the bound.
bool isLongerThan(qsizetype bound, const QString &text)
{
    return text.size() > bound && Characters::count(text) > bound;
}

} // namespace

MeetingDraft::Problem MeetingDraft::titleProblem() const
{
    if (title.trimmed().isEmpty())
        return Problem::missing;
    return isLongerThan(longestTitle, title) ? Problem::tooLong : Problem::none;
}

MeetingDraft::Problem MeetingDraft::startProblem(double now) const
{
    return start > now ? Problem::none : Problem::past;
}

MeetingDraft::Problem MeetingDraft::linkProblem() const
{
    if (link.isEmpty())
        return Problem::none;
    if (isLongerThan(longestLink, link))
        return Problem::tooLong;
    return Meeting::safeJoinURL(link) ? Problem::none : Problem::unsafe;
}

bool MeetingDraft::valid(double now) const
{
    return titleProblem() == Problem::none && startProblem(now) == Problem::none &&
           linkProblem() == Problem::none;
}

} // namespace quorvane
