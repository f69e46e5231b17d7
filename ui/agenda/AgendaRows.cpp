// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/AgendaRows.h"

#include "ui/agenda/AgendaText.h"
#include "ui/agenda/MeetingRows.h"
#include "ui/format/MeetingFormat.h"

#include <QDateTime>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane::AgendaRows {

namespace {

using KnownRows = QHash<QString, const MeetingRow *>;

/// Meetings farther off are no meetings: what comes from elsewhere may hold any number. Ten years, in
/// seconds.
constexpr double farOff = 315'360'000;

void setTexts(MeetingRow &row, const Meeting &meeting)
{
    row.meeting = meeting;
    row.title = AgendaText::line(meeting.title);
    row.calendar = AgendaText::line(meeting.calendar);
    row.times = MeetingFormat::timeRange(meeting);
    row.start = MeetingFormat::clockTime(meeting.start);
    row.duration = MeetingFormat::duration(meeting);
    row.canJoin = Meeting::safeJoinURL(meeting.joinURL).has_value();
    row.canDelete = meeting.source == Meeting::manualSource;
}

void takeTexts(MeetingRow &row, const MeetingRow &known)
{
    row.meeting = known.meeting;
    row.title = known.title;
    row.calendar = known.calendar;
    row.times = known.times;
    row.start = known.start;
    row.duration = known.duration;
    row.canJoin = known.canJoin;
    row.canDelete = known.canDelete;
}

MeetingRow rowOf(const Meeting &meeting, const AgendaContent &content, const KnownRows &known, double now)
{
    MeetingRow row;
    const MeetingRow *before = known.value(meeting.id);
    if (before && before->meeting == meeting)
        takeTexts(row, *before);
    else
        setTexts(row, meeting);
    const CalendarDot dot = content.dots.of(meeting.calendar);
    row.dotColor = dot.color;
    row.dotTurn = dot.turn;
    row.isNow = meeting.start <= now;
    row.alerts = content.alerting.contains(meeting.id);
    row.asksDelete = row.canDelete && meeting.id == content.askedToDelete;
    return row;
}

QString spoken(const MeetingRow &row)
{
    const QString now = row.isNow ? MeetingRows::tr("Now") : QString();
    return AgendaText::spoken({row.dayTitle, row.title, now, row.times, row.duration, row.calendar});
}

} // namespace

bool isListed(const Meeting &meeting, double now)
{
    return meeting.end > now && meeting.start < meeting.end && meeting.start > now - farOff &&
           meeting.end < now + farOff;
}

std::vector<MeetingRow> of(const AgendaContent &content, double now, const std::vector<MeetingRow> &known)
{
    KnownRows knownRows;
    for (const MeetingRow &row : known)
        knownRows.insert(row.id(), &row);
    const QDate today = AgendaText::day(now);
    std::vector<MeetingRow> rows;
    QSet<QString> seen;
    QDate openDay;
    for (const Meeting &meeting : content.events) {
        if (!isListed(meeting, now) || seen.contains(meeting.id))
            continue;
        seen.insert(meeting.id);
        MeetingRow next = rowOf(meeting, content, knownRows, now);
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
