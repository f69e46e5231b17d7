// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "model/Launch.h"
#include "model/SourceStatus.h"

#include <QPointer>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

QCoro::Task<> AppModel::refresh()
{
    if (m_isRefreshing || m_mode == Mode::preview)
        co_return;
    const QPointer<AppModel> self(this);
    m_isRefreshing = true;
    Q_EMIT isRefreshingChanged();
    m_refreshAgain = false;
    m_refreshMark = now();
    co_await m_services.calendarReader.read(now(), m_services.preferences.excludedCalendars());
    if (!self)
        co_return;
    m_isRefreshing = false;
    m_lastRefresh = QDateTime::fromMSecsSinceEpoch(std::llround(now() * 1000));
    m_fantasticalStatus.clear();
    mendTimes();
    if (!m_isSaved)
        save();
    Q_EMIT isRefreshingChanged();
    if (m_refreshAgain)
        m_changeDelay.start();
}

// A change that comes while a reading is under way may have been missed by it, so it is followed by another
// one. Stores that are done are read at once: they do not wait for one that hangs.
void AppModel::requestRefresh()
{
    if (!m_isRefreshing) {
        launch(refresh());
        return;
    }
    m_refreshAgain = true;
    launch(m_services.calendarReader.read(now(), m_services.preferences.excludedCalendars()));
}

// Runs for each store that has been read or has failed; the last one of a refresh thereby sees them all.
void AppModel::applyReading()
{
    const CalendarReader &reader = m_services.calendarReader;
    m_calendarAccess = reader.authorizationStatus() == AuthorizationStatus::fullAccess;
    m_calendars = reader.calendars();
    const auto local = reader.events(now(), m_services.preferences.excludedCalendars());
    if (m_calendarAccess && reader.problems().empty())
        m_lastSuccessfulRead = QDateTime::fromMSecsSinceEpoch(std::llround(now() * 1000));
    m_freshCalendarEventCount = static_cast<qsizetype>(local.size());
    m_calendarEvents =
        MeetingSelection::candidates(local, m_serverMeetings, m_manualMeetings, Freshness::stale, now());
    chooseMeetings();
    closeOutdatedAlert();
    describeSources();
    // What the reading brought may be due already.
    alertStep();
}

void AppModel::chooseMeetings()
{
    std::vector<Meeting> chosen;
    std::ranges::copy_if(m_calendarEvents, std::back_inserter(chosen),
                         [this](const Meeting &meeting) { return isScheduled(meeting); });
    const bool isNew = chosen != m_meetings;
    m_meetings = std::move(chosen);
    // The tick asks every second, so the choice is made here and not there.
    m_scheduledMeetings = m_meetings;
    if (isNew)
        Q_EMIT meetingsChanged();
}

void AppModel::closeOutdatedAlert()
{
    if (!showsRealAlert())
        return;
    const QString shown = *m_services.overlay.eventID();
    const bool stillAlertable = std::ranges::any_of(m_scheduledMeetings, [&](const Meeting &meeting) {
        return meeting.id == shown && meeting.eligible(now());
    });
    if (!stillAlertable)
        m_services.overlay.close();
}

void AppModel::describeSources()
{
    m_cloudStatus = u"Local only. Phone delivery stops while this Mac sleeps."_s;
    setStatus(SourceStatus::line(m_calendarAccess, m_services.calendarReader.problems(),
                                 m_scheduledMeetings.size()));
}

void AppModel::setStatus(const QString &status)
{
    m_status = status;
    Q_EMIT statusChanged();
}

QCoro::Task<> AppModel::connectCalendar()
{
    const QPointer<AppModel> self(this);
    if (m_mode == Mode::preview)
        co_return;
    if (m_isRefreshing) {
        m_refreshAgain = true;
        co_return;
    }
    // The refresh tells what came of it: each store says the same again.
    (void)co_await m_services.calendarReader.requestAccess();
    if (self)
        co_await refresh();
}

} // namespace quorvane
