// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/NextMeeting.h"

#include "async/Launch.h"
#include "model/AppModel.h"

namespace quorvane {

NextMeeting::NextMeeting(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::meetingsChanged, this, &NextMeeting::update);
    connect(&model, &AppModel::calendarsChanged, this, &NextMeeting::readCalendars);
    connect(&model, &AppModel::pausedUntilChanged, this, &NextMeeting::update);
    connect(&model, &AppModel::ticked, this, &NextMeeting::update);
    readCalendars();
}

void NextMeeting::readCalendars()
{
    m_dots = CalendarDots(m_model.calendars(), m_model.fantasticalCalendars());
    update();
}

HeroSituation NextMeeting::situation() const
{
    return {
        .scheduled = m_model.scheduledMeetings(),
        .events = m_model.calendarEvents(),
        .dots = m_dots,
        .pausedUntil = m_model.pausedUntil(),
        .kept = m_kept,
    };
}

void NextMeeting::update()
{
    if (m_model.now() >= m_keptUntil)
        m_kept.clear();
    const HeroFace face = HeroRules::face(situation(), m_model.now());
    if (face == m_face)
        return;
    m_face = face;
    Q_EMIT faceChanged();
}

void NextMeeting::join()
{
    if (const Meeting *meeting = HeroRules::choose(situation(), m_model.now()))
        m_model.join(*meeting);
}

void NextMeeting::toggleAlert()
{
    const Meeting *shown = HeroRules::choose(situation(), m_model.now());
    if (!shown)
        return;
    // A copy: the model makes its lists anew.
    const Meeting meeting = *shown;
    const bool isOn = m_model.isScheduled(meeting);
    m_kept = isOn ? meeting.id : QString();
    m_keptUntil = m_model.now() + keepTime;
    launch(m_model.setScheduled(meeting, isOn ? Switch::off : Switch::on));
}

} // namespace quorvane
