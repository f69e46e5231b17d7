// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/AgendaRows.h"

#include "ui/agenda/AgendaText.h"
#include "ui/format/MeetingFormat.h"

#include <QDateTime>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::AgendaRows {

namespace {

MeetingRow row(const Meeting &meeting, const AgendaContent &content, double now)
{
    const CalendarDot dot = content.dots.of(meeting.calendar);
    MeetingRow result;
    result.meeting = meeting;
    result.times = MeetingFormat::timeRange(meeting);
    result.start = MeetingFormat::clockTime(meeting.start);
    result.duration = MeetingFormat::duration(meeting);
    result.dotColor = dot.color;
    result.dotTurn = dot.turn;
    result.isNow = meeting.start <= now;
    result.alerts = content.alerting.contains(meeting.id);
    result.canJoin = Meeting::safeJoinURL(meeting.joinURL).has_value();
    result.canDelete = meeting.source == Meeting::manualSource;
    result.asksDelete = result.canDelete && meeting.id == content.askedToDelete;
    return result;
}

QString spoken(const MeetingRow &row)
{
    const QString now = row.isNow ? u"Now"_s : QString();
    return AgendaText::spoken({row.dayTitle, row.title(), now, row.times, row.duration, row.calendar()});
}

} // namespace

std::vector<MeetingRow> of(const AgendaContent &content, double now)
{
    const QDate today = AgendaText::day(now);
    std::vector<MeetingRow> rows;
    QSet<QString> seen;
    QDate openDay;
    for (const Meeting &meeting : content.events) {
        if (meeting.end <= now || seen.contains(meeting.id))
            continue;
        seen.insert(meeting.id);
        MeetingRow next = row(meeting, content, now);
        const QDate day = AgendaText::day(meeting.start);
        next.isFirstOfDay = day != openDay;
        if (next.isFirstOfDay) {
            next.dayTitle = MeetingFormat::dayTitle(day, today);
            next.dayDate = AgendaText::dayDate(day, today);
            if (!rows.empty())
                rows.back().isLastOfDay = true;
            openDay = day;
        }
        next.spoken = spoken(next);
        rows.push_back(std::move(next));
    }
    if (!rows.empty())
        rows.back().isLastOfDay = true;
    return rows;
}

double validUntil(const std::vector<MeetingRow> &rows, double now)
{
    double until = static_cast<double>(AgendaText::day(now).addDays(1).startOfDay().toSecsSinceEpoch());
    for (const MeetingRow &row : rows)
        until = std::min(until, row.isNow ? row.meeting.end : row.meeting.start);
    return until;
}

} // namespace quorvane::AgendaRows
