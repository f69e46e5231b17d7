// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dashboard/SidebarStatus.h"

#include "core/UnixTime.h"
#include "model/AppModel.h"
#include "model/SourceList.h"
#include "ui/format/MeetingFormat.h"

#include <QCoreApplication>

#include <algorithm>

namespace quorvane {

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SidebarStatus)
};

QString lineOf(const SidebarStatus::Facts &facts, qsizetype failing)
{
    if (facts.pausedUntil)
        return Words::tr("Paused until %1")
            .arg(MeetingFormat::clockTime(UnixTime::seconds(*facts.pausedUntil)));
    if (failing == 1)
        return Words::tr("One source needs you");
    if (failing > 1)
        return Words::tr("%1 sources need you").arg(failing);
    if (facts.calendars == 0)
        return Words::tr("Ready");
    return Words::tr("Watching %1").arg(MeetingFormat::plural(facts.calendars, Words::tr("calendar")));
}

QString detailOf(const SidebarStatus::Facts &facts)
{
    const auto alertTime = [](const Meeting &meeting) { return meeting.start - AppModel::screenLead; };
    const auto next = std::ranges::find_if(
        facts.scheduledMeetings, [&](const Meeting &meeting) { return alertTime(meeting) > facts.now; });
    if (next == facts.scheduledMeetings.end())
        return facts.calendars == 0 ? Words::tr("No calendar yet") : Words::tr("No alert ahead");
    const double at = alertTime(*next);
    const QDate today = UnixTime::moment(facts.now).date();
    const QString clock = MeetingFormat::clockTime(at);
    if (UnixTime::moment(at).date() == today)
        return Words::tr("Next alert at %1").arg(clock);
    return Words::tr("Next alert: %1, %2")
        .arg(MeetingFormat::dayTitle(UnixTime::moment(at).date(), today), clock);
}

} // namespace

SidebarStatus SidebarStatus::of(const Facts &facts)
{
    const qsizetype count = SourceList::failing(facts.sources);
    return {lineOf(facts, count), detailOf(facts), facts.pausedUntil || count > 0};
}

} // namespace quorvane
