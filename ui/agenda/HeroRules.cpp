// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/HeroRules.h"

#include "core/UnixTime.h"
#include "ui/agenda/AgendaRows.h"
#include "ui/agenda/AgendaText.h"
#include "ui/agenda/NextMeeting.h"
#include "ui/format/MeetingFormat.h"

#include <algorithm>
#include <cmath>

namespace quorvane::HeroRules {

namespace {

/// Seconds before its start from which a meeting takes the place of one that has begun.
constexpr double lastMinute = 60;
constexpr double hour = 3600;
/// The dial moves in steps of half a degree, five seconds, which is less than a pixel.
constexpr double stepsPerDegree = 2;

bool isOfInterest(const Meeting &meeting, double now)
{
    return meeting.eligible(now) && AgendaRows::isListed(meeting, now);
}

const Meeting *nextOf(const std::vector<Meeting> &meetings, double now)
{
    const Meeting *begun = nullptr;
    for (const Meeting &meeting : meetings) {
        if (!isOfInterest(meeting, now))
            continue;
        if (meeting.start <= now) {
            if (!begun || meeting.start > begun->start)
                begun = &meeting;
        } else {
            return begun && meeting.start - now > lastMinute ? begun : &meeting;
        }
    }
    return begun;
}

double toDialStep(double degrees)
{
    return std::floor(degrees * stepsPerDegree) / stepsPerDegree;
}

void setDial(HeroFace &face, const Meeting &meeting, double now)
{
    face.dialTime = AgendaText::dialTime(meeting.start);
    face.vane = toDialStep(AgendaText::minuteAngle(now));
    const double left = meeting.start - now;
    if (left <= 0 || left > hour)
        return;
    // To the start exactly, whatever the vane was rounded to.
    const double end = AgendaText::minuteAngle(meeting.start);
    face.sweep = std::fmod(end - face.vane + 360, 360);
    if (face.sweep <= 0)
        face.sweep = 360;
}

void setLight(HeroFace &face, const std::optional<QDateTime> &pausedUntil)
{
    face.isPaused = face.alerts && pausedUntil;
    face.isLit = face.alerts && !face.isPaused;
    if (!face.alerts)
        face.chip = NextMeeting::tr("Alert off");
    else if (pausedUntil)
        face.chip = NextMeeting::tr("Alerts paused until %1")
                        .arg(MeetingFormat::clockTime(UnixTime::seconds(*pausedUntil)));
}

} // namespace

const Meeting *choose(const HeroSituation &situation, double now)
{
    const auto kept = std::ranges::find(situation.events, situation.kept, &Meeting::id);
    if (kept != situation.events.end() && isOfInterest(*kept, now))
        return &*kept;
    const Meeting *scheduled = nextOf(situation.scheduled, now);
    return scheduled ? scheduled : nextOf(situation.events, now);
}

HeroFace face(const HeroSituation &situation, double now)
{
    const Meeting *meeting = choose(situation, now);
    if (!meeting)
        return {};
    const CalendarDot dot = situation.dots.of(meeting->calendar);
    HeroFace face;
    face.exists = true;
    face.isStarted = meeting->start <= now;
    face.alerts =
        std::ranges::find(situation.scheduled, meeting->id, &Meeting::id) != situation.scheduled.end();
    face.canJoin = Meeting::safeJoinURL(meeting->joinURL).has_value();
    face.title = AgendaText::line(meeting->title);
    face.calendar = AgendaText::line(meeting->calendar);
    face.dotColor = dot.color;
    face.dotTurn = dot.turn;
    face.times = MeetingFormat::timeRange(*meeting);
    face.start = MeetingFormat::clockTime(meeting->start);
    face.countdown = MeetingFormat::countdown(*meeting, now);
    setDial(face, *meeting, now);
    setLight(face, situation.pausedUntil);
    face.spoken = AgendaText::spoken(
        {NextMeeting::tr("Next meeting"), face.countdown, face.title, face.times, face.calendar, face.chip});
    return face;
}

} // namespace quorvane::HeroRules
