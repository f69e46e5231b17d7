// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/EmptyAgenda.h"

#include "model/AppModel.h"
#include "ui/agenda/AgendaRows.h"
#include "ui/format/MeetingFormat.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

EmptyFace reading()
{
    return {.isShown = true,
            .title = u"Reading your calendars…"_s,
            .text = u"Meetings appear here as each calendar answers."_s};
}

EmptyFace noMeetings()
{
    return {.isShown = true,
            .title = u"No meetings in the next 14 days"_s,
            .text =
                u"What is added to your calendars appears here by itself. Anything else you must not miss "
                "can be added by hand."_s,
            .offersAdd = true};
}

EmptyFace unreadable(const QString &status)
{
    return {.isShown = true, .title = u"Your calendars do not answer"_s, .text = status, .offersAdd = true};
}

/// The first step that has not been taken, in words.
void describe(EmptyFace &face)
{
    if (face.step == 1) {
        face.title = u"Nothing on the horizon"_s;
        face.text =
            u"Connect a calendar and its meetings appear here. Anything else you must not miss can be "
            "added by hand."_s;
    } else if (face.step == 2) {
        face.title = u"No meetings in the next 14 days"_s;
        face.text =
            u"Your calendars are connected. Add a meeting by hand, or see now what an alert looks like."_s;
    } else {
        face.title = u"You will not miss these"_s;
        face.text =
            u"See what an alert looks like before the first one comes. It covers every display with a "
            "sample meeting."_s;
    }
}

} // namespace

EmptyAgenda::EmptyAgenda(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::meetingsChanged, this, &EmptyAgenda::update);
    connect(&model, &AppModel::calendarsChanged, this, &EmptyAgenda::update);
    connect(&model, &AppModel::isRefreshingChanged, this, &EmptyAgenda::update);
    connect(&model, &AppModel::sourcesChanged, this, &EmptyAgenda::update);
    connect(&model, &AppModel::statusChanged, this, &EmptyAgenda::update);
    connect(&model, &AppModel::ticked, this, &EmptyAgenda::update);
    update();
}

void EmptyAgenda::previewAlert()
{
    m_model.previewAlert();
    leaveSteps();
}

void EmptyAgenda::leaveSteps()
{
    m_steps = Steps::left;
    update();
}

void EmptyAgenda::update()
{
    lookForStart();
    const EmptyFace face = currentFace();
    if (face == m_face)
        return;
    m_face = face;
    Q_EMIT faceChanged();
}

void EmptyAgenda::lookForStart()
{
    const bool isNew = isNewUser() || calendarCount() == 0;
    if (m_steps == Steps::notBegun && isNew && !isReading() && !isFailing() && meetingCount() == 0)
        m_steps = Steps::underWay;
}

// Before the first refresh has ended nobody knows whether there are meetings.
bool EmptyAgenda::isReading() const
{
    return m_model.isRefreshing() && !m_model.lastRefresh();
}

bool EmptyAgenda::isNewUser() const
{
    return m_model.records().isEmpty();
}

// Nor does anybody know while a calendar does not answer.
bool EmptyAgenda::isFailing() const
{
    return std::ranges::any_of(m_model.sources(), [](const SourceHealth &source) {
        return source.state == SourceHealth::State::failing;
    });
}

qsizetype EmptyAgenda::calendarCount() const
{
    return std::ssize(m_model.calendars()) + std::ssize(m_model.fantasticalCalendars());
}

qsizetype EmptyAgenda::meetingCount() const
{
    const double now = m_model.now();
    return std::ranges::count_if(m_model.calendarEvents(), [now](const Meeting &meeting) {
        return AgendaRows::isListed(meeting, now);
    });
}

EmptyFace EmptyAgenda::currentFace() const
{
    const bool hasMeetings = meetingCount() > 0;
    if (m_steps == Steps::underWay && (isNewUser() || !hasMeetings))
        return steps();
    if (hasMeetings)
        return {};
    if (isFailing())
        return unreadable(m_model.status());
    return isReading() ? reading() : noMeetings();
}

EmptyFace EmptyAgenda::steps() const
{
    const qsizetype calendars = calendarCount();
    const qsizetype meetings = meetingCount();
    EmptyFace face;
    face.isShown = true;
    face.isCalendarDone = calendars > 0;
    face.isMeetingDone = meetings > 0;
    face.step = face.isMeetingDone ? 3 : face.isCalendarDone ? 2 : 1;
    face.calendarStep = face.isCalendarDone
                            ? MeetingFormat::plural(calendars, u"calendar"_s) + u" connected"_s
                            : u"Connect a calendar"_s;
    face.meetingStep = face.isMeetingDone ? MeetingFormat::plural(meetings, u"meeting"_s) + u" found"_s
                                          : u"Have a meeting"_s;
    face.offersConnect = face.step == 1;
    face.offersAdd = face.step < 3;
    face.offersPreview = face.step > 1;
    face.offersList = face.step == 3;
    describe(face);
    return face;
}

} // namespace quorvane
