// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/UpdatePolicy.h"

#include <algorithm>

namespace quorvane::UpdatePolicy {

namespace {

bool needsAttention(const Meeting &meeting, double now)
{
    return !meeting.cancelled && !meeting.allDay && meeting.start - now <= attentionLead &&
           now <= meeting.end;
}

} // namespace

bool shouldDefer(const std::vector<Meeting> &meetings, const AlertRecords &records, OverlayVisibility overlay,
                 double now)
{
    if (overlay == OverlayVisibility::visible)
        return true;
    return std::ranges::any_of(meetings, [&](const Meeting &meeting) {
        return needsAttention(meeting, now) && !records.value(meeting.id).acknowledged;
    });
}

} // namespace quorvane::UpdatePolicy
