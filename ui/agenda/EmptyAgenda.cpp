// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/EmptyAgenda.h"

#include "model/AppModel.h"
#include "ui/agenda/AgendaRows.h"
#include "ui/format/MeetingFormat.h"

#include <algorithm>
#include <iterator>

namespace quorvane {

namespace {

EmptyFace reading()
{
    return {.isShown = true,
            .title = EmptyAgenda::tr("Reading your calendars…"),
            .text = EmptyAgenda::tr("Meetings appear here as each calendar answers.")};
}

EmptyFace noMeetings()
{
    return {.isShown = true,
            .title = EmptyAgenda::tr("No meetings in the next 14 days"),
            .text = EmptyAgenda::tr(
                "What is added to your calendars appears here by itself. Anything else you must not miss "
                "can be added by hand."),
            .offersAdd = true};
}

EmptyFace unreadable(const QString &status)
{
    return {.isShown = true,
            .title = EmptyAgenda::tr("Your calendars do not answer"),
            .text = status,
            .offersAdd = true};
}

/// The first step that has not been taken, in words.
void describe(EmptyFace &face)
{
    if (face.step == 1) {
        face.title = EmptyAgenda::tr("Nothing on the horizon");
        face.text = EmptyAgenda::tr(
            "Connect a calendar and its meetings appear here. Anything else you must not miss can be "
            "added by hand.");
    } else if (face.step == 2) {
        face.title = EmptyAgenda::tr("No meetings in the next 14 days");
        face.text = EmptyAgenda::tr(
            "Your calendars are connected. Add a meeting by hand, or see now what an alert looks like.");
    } else {
        face.title = EmptyAgenda::tr("You will not miss these");
        face.text = EmptyAgenda::tr(
            "See what an alert looks like before the first one comes. It covers every display with a "
            "sample meeting.");
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
                            ? tr("%1 connected").arg(MeetingFormat::plural(calendars, tr("calendar")))
                            : tr("Connect a calendar");
    face.meetingStep = face.isMeetingDone ? tr("%1 found").arg(MeetingFormat::plural(meetings, tr("meeting")))
                                          : tr("Have a meeting");
    face.offersConnect = face.step == 1;
    face.offersAdd = face.step < 3;
    face.offersPreview = face.step > 1;
    face.offersList = face.step == 3;
    describe(face);
    return face;
}

} // namespace quorvane
