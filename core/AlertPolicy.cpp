// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AlertPolicy.h"

#include <algorithm>

namespace quorvane::AlertPolicy {

bool shouldShow(const Meeting &meeting, double now, double lead, const AlertRecord &record)
{
    return meeting.eligible(now) && !record.acknowledged && meeting.start - now <= lead &&
           record.snoozedUntil <= now;
}

bool shouldPush(const Meeting &meeting, double now, const AlertRecord &record)
{
    constexpr double pushLead = 120;
    return meeting.eligible(now) && meeting.start - now <= pushLead && !record.acknowledged &&
           !record.phoneSent;
}

double snoozeUntil(double now, const Meeting &event)
{
    constexpr double shortest = 5;
    constexpr double longest = 30;
    return std::min(std::max(now + shortest, event.start), now + longest);
}

} // namespace quorvane::AlertPolicy
