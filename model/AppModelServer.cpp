// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/Launch.h"
#include "core/Characters.h"
#include "model/ServerReport.h"
#include "network/NetworkError.h"

#include <QPointer>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qsizetype shortestServerToken = 32;
/// In seconds.
constexpr double exchangePause = 5;
/// Meetings that a server can add to those of this machine: thousands would hold up the tick.
constexpr qsizetype mostMeetings = 1000;

const QString ackFailed =
    u"Acknowledged on this Mac. Phone acknowledgment could not sync; retry from the phone."_s;

bool holds(const std::vector<Meeting> &meetings, const Meeting &wanted)
{
    return std::ranges::any_of(meetings, [&](const Meeting &meeting) {
        return meeting.id == wanted.id && meeting.start == wanted.start;
    });
}

std::vector<Meeting> nextOf(std::vector<Meeting> meetings, double now)
{
    std::erase_if(meetings, [now](const Meeting &meeting) { return !meeting.eligible(now); });
    if (std::ssize(meetings) <= mostMeetings)
        return meetings;
    std::ranges::nth_element(meetings, meetings.begin() + mostMeetings, {}, &Meeting::start);
    meetings.resize(mostMeetings);
    return meetings;
}

} // namespace

bool AppModel::isServerInCharge() const
{
    return m_server.isAddressStored && m_server.failures < failuresUntilBackup;
}

// An address without a token is no server either, and nobody else would ring the phone.
void AppModel::workAlone()
{
    m_server.isConfigured = false;
    m_server.isSynced = false;
    m_server.failures = m_server.isAddressStored ? failuresUntilBackup : 0;
    m_cloudStatus = u"Local only. Phone delivery stops while this Mac sleeps."_s;
    if (!m_server.meetings.empty()) {
        m_server.meetings.clear();
        applyReading();
    }
}

// A keyring that does not answer hides a token that may well be there: the server then counts as one that
// fails, and not as none.
QCoro::Task<std::optional<bool>> AppModel::readServerConfigured()
{
    if (serverURL().isEmpty())
        co_return std::optional(false);
    const auto token = co_await m_services.secrets.read(Secrets::serverToken);
    if (!token)
        co_return std::optional<bool>();
    co_return std::optional(*token && Characters::count(**token) >= shortestServerToken);
}

QCoro::Task<> AppModel::exchangeWithServer()
{
    const QPointer<AppModel> self(this);
    m_server.isAddressStored = !serverURL().isEmpty();
    // While one is being entered, a token may not be that of the address.
    if (m_isServerChanging || wasJustTold())
        co_return;
    const std::optional<bool> configured = co_await readServerConfigured();
    if (!self)
        co_return;
    if (configured == false) {
        workAlone();
        co_return;
    }
    m_server.isConfigured = true;
    const QString address = serverURL();
    const Result<ServerState> state = co_await m_services.network.state();
    if (!self || address != serverURL()) // what the server before said no longer counts
        co_return;
    if (!state) {
        countServerFailure();
        co_return;
    }
    takeServerState(*state);
    const UploadOutcome uploaded = co_await uploadSchedule();
    if (!self || address != serverURL())
        co_return;
    judgeServer(*state, uploaded);
    if (state->health.delivery == u"ok"_s)
        launch(resendAcknowledgments());
    launch(pollReceipts()); // also of messages that this machine sent before the server was in charge again
}

// Calendars that synchronise announce change after change; a server that knows all there is to know need not
// hear of each.
bool AppModel::wasJustTold() const
{
    return m_server.isAddressStored && m_server.isSynced && m_server.judgedRevision == m_scheduleRevision &&
           m_pendingAcks.isEmpty() && std::abs(now() - m_server.judgedAt) < exchangePause;
}

void AppModel::countServerFailure()
{
    ++m_server.failures;
    m_server.isSynced = false;
    m_cloudStatus =
        u"Server unreachable. Screen alerts remain active; phone backup starts after repeated failures."_s;
}

void AppModel::takeServerState(const ServerState &state)
{
    m_server.meetings = nextOf(state.events, now());
    m_server.acknowledged = QSet<QString>(state.acknowledged.begin(), state.acknowledged.end());
    const QSet<QString> confirmed = m_pendingAcks & m_server.acknowledged;
    for (const QString &id : confirmed)
        settleAcknowledgment(id);
    applyReading(); // which silences what is acknowledged there, before it looks for what is due
}

// Only meetings that are known here: the server's list cannot fill the ledger.
void AppModel::silenceAcknowledged(const std::vector<Meeting> &meetings)
{
    QStringList ids;
    for (const Meeting &meeting : meetings) {
        if (m_server.acknowledged.contains(meeting.id) && !m_records.value(meeting.id).acknowledged)
            ids.append(meeting.id);
    }
    for (const QString &id : std::as_const(ids)) {
        markAcknowledged(id);
        launch(silencePhone(id));
    }
}

// What only the server knows stays its own, or it would live there for as long as we sent it back.
QCoro::Task<AppModel::UploadOutcome> AppModel::uploadSchedule()
{
    if (!uploadMacSnapshot())
        co_return UploadOutcome::notWanted;
    const QPointer<AppModel> self(this);
    const int revision = m_scheduleRevision;
    const QString address = serverURL();
    const Result<OKResponse> answer = co_await m_services.network.snapshot(ownSchedule());
    if (!answer || !answer->ok)
        co_return UploadOutcome::failed;
    if (self && address == serverURL())
        m_server.syncedRevision = revision;
    co_return UploadOutcome::taken;
}

// The server's copies of what was read or added here before go back to it while their source says nothing:
// one that fails neither takes them away nor keeps what the others say from the server.
std::vector<Meeting> AppModel::ownSchedule() const
{
    std::vector<Meeting> own;
    std::ranges::copy_if(m_scheduledMeetings, std::back_inserter(own), [this](const Meeting &meeting) {
        return meeting.source == Meeting::systemSource || m_ownIDs.contains(meeting.id);
    });
    const bool areStoresKnown = m_services.calendarReader.hasAnswered();
    std::ranges::copy_if(m_server.meetings, std::back_inserter(own), [&](const Meeting &copy) {
        const bool isMissed = copy.source == Meeting::systemSource
                                  ? !areStoresKnown
                                  : copy.source == Meeting::manualSource && !m_manual.isKnown();
        return isMissed && isScheduled(copy) && copy.eligible(now()) && !m_manual.wasRemoved(copy.id) &&
               std::ranges::find(own, copy.id, &Meeting::id) == own.end();
    });
    return own;
}

// A server that cannot deliver says so whether it takes the schedule or not.
void AppModel::judgeServer(const ServerState &state, UploadOutcome uploaded)
{
    const bool isUploading = uploaded != UploadOutcome::notWanted;
    const bool holdsAll =
        isUploading ? m_server.syncedRevision == m_scheduleRevision && uploaded == UploadOutcome::taken
                    : std::ranges::all_of(m_scheduledMeetings, [&](const Meeting &meeting) {
                          return holds(m_server.meetings, meeting);
                      });
    const auto report =
        ServerReport::of(state.health, holdsAll ? ScheduleState::synced : ScheduleState::unsynced);
    if (report.canDeliver && uploaded == UploadOutcome::failed) {
        countServerFailure();
        return;
    }
    m_server.judgedAt = now();
    m_server.judgedRevision = m_scheduleRevision;
    m_server.isSynced = report.canDeliver && holdsAll;
    m_server.failures = report.canDeliver ? 0 : failuresUntilBackup;
    m_cloudStatus = report.text;
    if (m_server.isSynced)
        settleUnsynced();
}

// One that the server refuses does not hold up the others, nor is it sent for ever: once its meeting is over
// nobody needs it.
QCoro::Task<> AppModel::resendAcknowledgments()
{
    if (m_isResending)
        co_return;
    const QPointer<AppModel> self(this);
    m_isResending = true;
    const QStringList pending = m_pendingAcks.values();
    for (const QString &id : pending) {
        const Result<OKResponse> answer = co_await m_services.network.ack(id);
        if (!self)
            co_return;
        const bool isRefused = answer ? !answer->ok : answer.error() == NetworkError::rejected;
        if (isRefused ? !isUpcoming(id) : answer.has_value())
            settleAcknowledgment(id);
        else if (!isRefused)
            break; // out of reach; the next refresh tries again
    }
    m_isResending = false;
}

bool AppModel::isUpcoming(const QString &id) const
{
    return std::ranges::any_of(m_calendarEvents, [&](const Meeting &meeting) { return meeting.id == id; });
}

void AppModel::settleAcknowledgment(const QString &id)
{
    if (m_pendingAcks.remove(id))
        keepPendingAcks();
    if (m_pendingAcks.isEmpty() && m_notice == ackFailed)
        setNotice(std::nullopt);
}

void AppModel::keepPendingAcks()
{
    QStringList ids = m_pendingAcks.values();
    ids.sort();
    m_arePendingAcksKept = m_services.preferences.setPendingAcks(ids).has_value();
    if (!m_arePendingAcksKept)
        setNotice(u"Cannot save acknowledgments. Check disk space and app permissions."_s);
}

// Owed from the first moment on, so that an end of the program in between loses nothing.
QCoro::Task<> AppModel::tellServer(QString id)
{
    if (serverURL().isEmpty())
        co_return;
    const QPointer<AppModel> self(this);
    m_pendingAcks.insert(id);
    keepPendingAcks();
    const std::optional<bool> configured = co_await readServerConfigured();
    if (!self)
        co_return;
    if (configured == false) {
        settleAcknowledgment(id);
        co_return;
    }
    const Result<OKResponse> answer = co_await m_services.network.ack(id);
    if (!self)
        co_return;
    if (answer && answer->ok)
        settleAcknowledgment(id);
    else if (m_pendingAcks.contains(id)) // not settled otherwise meanwhile
        setNotice(ackFailed);
}

} // namespace quorvane
