// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"
#include "core/UnixTime.h"
#include "model/SourceStatus.h"

#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

QCoro::Task<> AppModel::refresh()
{
    if (m_turns.isRunning() || m_mode == Mode::preview)
        co_return;
    const QPointer<AppModel> self(this);
    m_settings.reload();
    m_turns.begin();
    Q_EMIT isRefreshingChanged();
    // What has changed until now is what this refresh reads.
    m_refreshAgain = false;
    m_changeDelay.stop();
    m_refreshMark = now();
    const QStringList excluded = excludedCalendars();
    // All at once: no source waits for another.
    QCoro::Task<> manual = loadManualMeetings();
    QCoro::Task<> second = readFantastical(excluded);
    co_await m_services.calendarReader.read(now(), excluded);
    co_await second;
    co_await manual;
    if (self)
        co_await exchangeWithServer();
    if (self)
        endRefresh();
}

void AppModel::endRefresh()
{
    m_turns.end();
    m_lastRefresh = UnixTime::moment(now());
    describeSources();
    mendTimes();
    if (!m_isSaved)
        save();
    if (!m_arePendingAcksKept)
        keepPendingAcks();
    if (!m_settings.areChoicesKept())
        keepChoices();
    if (m_phone.health().state == PhoneHealth::State::unknown)
        launch(m_phone.look());
    listSources();
    Q_EMIT isRefreshingChanged();
    if (m_refreshAgain)
        m_changeDelay.start();
}

// Ends when a refresh has ended that began after the first `count` ones, and so has seen all that had
// changed by then.
QCoro::Task<> AppModel::refreshSince(int count)
{
    if (m_mode == Mode::preview)
        co_return;
    const QPointer<AppModel> self(this);
    if (m_turns.count() == count)
        co_await m_turns.ended();
    if (!self)
        co_return;
    if (m_turns.count() == count)
        co_await refresh();
    else
        co_await m_turns.ended();
}

// A change that comes while a reading is under way may have been missed by it, so it is followed by another
// one. Stores that are done are read at once: they do not wait for one that hangs.
void AppModel::requestRefresh()
{
    if (!m_turns.isRunning()) {
        launch(refresh());
        return;
    }
    m_refreshAgain = true;
    launch(m_services.calendarReader.read(now(), excludedCalendars()));
}

QCoro::Task<> AppModel::readFantastical(QStringList excluded)
{
    const QPointer<AppModel> self(this);
    if (!m_fantastical.wasEverConnected())
        launch(lookForCache());
    m_fantastical.begin();
    Result<FantasticalSnapshot> outcome = co_await m_services.fantasticalReader.read(excluded);
    if (!self)
        co_return;
    const std::vector<CalendarOption> before = fantasticalCalendars();
    m_fantastical.take(std::move(outcome), now());
    if (m_fantastical.isConnected())
        m_lastSuccessfulRead = UnixTime::moment(now());
    if (before != fantasticalCalendars())
        Q_EMIT calendarsChanged();
    applyReading();
}

QCoro::Task<> AppModel::lookForCache()
{
    const QPointer<AppModel> self(this);
    const bool isExpected = co_await m_services.fantasticalAccess.isCacheExpected();
    if (!self || std::exchange(m_isCacheExpected, isExpected) == isExpected)
        co_return;
    applyReading();
}

// Runs for each store that has been read or has failed; the last one of a refresh thereby sees them all.
void AppModel::applyStores()
{
    const CalendarReader &reader = m_services.calendarReader;
    m_calendarAccess = reader.authorizationStatus() == AuthorizationStatus::fullAccess;
    if (std::exchange(m_calendars, reader.calendars()) != m_calendars)
        Q_EMIT calendarsChanged();
    if (m_calendarAccess && reader.problems().empty())
        m_lastSuccessfulRead = UnixTime::moment(now());
    applyReading();
}

// Makes the meetings anew from all that is known: a source that failed, or has not answered yet, says what it
// said before.
void AppModel::applyReading()
{
    const QStringList &excluded = excludedCalendars();
    std::vector<Meeting> local = m_services.calendarReader.events(now(), excluded);
    const std::vector<Meeting> second = m_fantastical.meetings(excluded);
    m_freshCalendarEventCount = static_cast<qsizetype>(local.size());
    if (m_fantastical.isConnected())
        m_freshCalendarEventCount += static_cast<qsizetype>(second.size());
    std::ranges::copy(second, std::back_inserter(local));
    m_ownIDs.clear();
    for (const std::vector<Meeting> *own : {&std::as_const(local), &m_manual.meetings()}) {
        for (const Meeting &meeting : *own)
            m_ownIDs.insert(meeting.id);
    }
    // The server's copy of a meeting that was deleted here does not bring it back.
    std::vector<Meeting> saved = m_server.meetings;
    std::erase_if(saved, [this](const Meeting &meeting) { return m_manual.wasRemoved(meeting.id); });
    collectEvents(MeetingSelection::candidates(local, saved, m_manual.meetings(), ownFreshness(), now()));
    silenceAcknowledged(m_calendarEvents);
    closeOutdatedAlert();
    describeSources();
    listSources();
    // What the reading brought may be due already.
    alertStep();
}

// The server's copies of this machine's own meetings stand in for a source that has said nothing yet and
// should. Otherwise what is read or held here has the word: a copy would bring back what was moved or
// deleted.
Freshness AppModel::ownFreshness() const
{
    if (m_fantastical.isConnected())
        return Freshness::fresh;
    const CalendarReader &reader = m_services.calendarReader;
    const bool storesAnswer = m_calendarAccess && reader.hasAnswered() && reader.problems().empty();
    const bool isMissed = !m_fantastical.wasEverConnected() && isSecondSourceExpected();
    return storesAnswer && !isMissed ? Freshness::fresh : Freshness::stale;
}

bool AppModel::isSecondSourceExpected() const
{
    return !m_services.preferences.fantasticalFolder().isEmpty() || m_isCacheExpected;
}

void AppModel::collectEvents(std::vector<Meeting> events)
{
    const bool areOthers = m_calendarEvents != events;
    m_calendarEvents = std::move(events);
    if (chooseMeetings() || areOthers)
        Q_EMIT meetingsChanged();
}

/// Whether other ones than before are chosen now.
bool AppModel::chooseMeetings()
{
    std::vector<Meeting> chosen;
    std::ranges::copy_if(m_calendarEvents, std::back_inserter(chosen),
                         [this](const Meeting &meeting) { return isScheduled(meeting); });
    const bool isNew = chosen != m_meetings;
    m_meetings = std::move(chosen);
    // The tick asks every second, so the choice is made here and not there.
    m_scheduledMeetings = m_meetings;
    if (isNew)
        ++m_scheduleRevision;
    return isNew;
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

// A source that fails is told of when the refresh ends, since another one may still answer.
void AppModel::describeSources()
{
    if (m_turns.isRunning() && !m_calendarAccess && !m_fantastical.isConnected())
        return;
    m_status = SourceStatus::line({m_calendarAccess, m_fantastical.isConnected(),
                                   m_services.calendarReader.problems(), m_scheduledMeetings.size()});
    if (m_fantastical.wasRead())
        m_fantasticalStatus = SourceStatus::fantasticalLine(m_fantastical, m_calendarAccess, now());
    Q_EMIT statusChanged();
}

QCoro::Task<> AppModel::connectCalendar()
{
    const QPointer<AppModel> self(this);
    if (m_mode == Mode::preview)
        co_return;
    if (m_turns.isRunning()) {
        m_refreshAgain = true;
        co_return;
    }
    // The refresh tells what came of it: each store says the same again. One that the tick has begun
    // meanwhile left the stores out that were being asked.
    (void)co_await m_services.calendarReader.requestAccess();
    if (self)
        requestRefresh();
}

QCoro::Task<> AppModel::connectFantastical()
{
    const QPointer<AppModel> self(this);
    if (m_mode == Mode::preview)
        co_return;
    const bool wasChosen = co_await m_services.fantasticalAccess.chooseFolder();
    if (self && wasChosen)
        requestRefresh();
}

} // namespace quorvane
