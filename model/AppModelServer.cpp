// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "core/Characters.h"
#include "async/Launch.h"
#include "model/ServerReport.h"

#include <QPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qsizetype shortestServerToken = 32;

const QString ackFailed =
    u"Acknowledged on this Mac. Phone acknowledgment could not sync; retry from the phone."_s;

bool holds(const std::vector<Meeting> &meetings, const Meeting &wanted)
{
    return std::ranges::any_of(meetings, [&](const Meeting &meeting) {
        return meeting.id == wanted.id && meeting.start == wanted.start;
    });
}

} // namespace

bool AppModel::isServerInCharge() const
{
    return m_serverAddressStored && m_serverFailures < failuresUntilBackup;
}

// An address without a token is no server either, and nobody else would ring the phone.
void AppModel::workAlone()
{
    m_serverConfigured = false;
    m_scheduleSynced = false;
    m_serverFailures = m_serverAddressStored ? failuresUntilBackup : 0;
    m_cloudStatus = u"Local only. Phone delivery stops while this Mac sleeps."_s;
    if (!m_serverMeetings.empty()) {
        m_serverMeetings.clear();
        applyReading();
    }
}

// A keyring that does not answer hides a token that may well be there: the server then counts as one that
// fails, and not as none.
QCoro::Task<std::optional<bool>> AppModel::readServerConfigured()
{
    if (m_services.preferences.serverURL().isEmpty())
        co_return std::optional(false);
    const auto token = co_await m_services.secrets.read(Secrets::serverToken);
    if (!token)
        co_return std::optional<bool>();
    co_return std::optional(*token && Characters::count(**token) >= shortestServerToken);
}

QCoro::Task<> AppModel::exchangeWithServer()
{
    const QPointer<AppModel> self(this);
    m_serverAddressStored = !m_services.preferences.serverURL().isEmpty();
    const std::optional<bool> configured = co_await readServerConfigured();
    if (!self)
        co_return;
    if (configured == false) {
        workAlone();
        co_return;
    }
    m_serverConfigured = true;
    const Result<ServerState> state = co_await m_services.network.state();
    if (!self)
        co_return;
    if (!state) {
        countServerFailure();
        co_return;
    }
    takeServerState(*state);
    const bool uploaded = co_await uploadSchedule();
    if (!self)
        co_return;
    if (uploaded)
        judgeServer(*state);
    else
        countServerFailure();
    if (state->health.delivery == u"ok"_s)
        co_await resendAcknowledgments();
    if (self && isServerInCharge())
        launch(pollReceipts()); // of messages that this machine sent before the server was in charge again
}

void AppModel::countServerFailure()
{
    ++m_serverFailures;
    m_scheduleSynced = false;
    m_cloudStatus =
        u"Server unreachable. Screen alerts remain active; phone backup starts after repeated failures."_s;
}

// An acknowledgment given on the phone counts here before the merged schedule can alert once more.
void AppModel::takeServerState(const ServerState &state)
{
    m_serverMeetings = state.events;
    for (const QString &id : state.acknowledged) {
        settleAcknowledgment(id);
        const bool isKnown =
            m_records.contains(id) ||
            std::ranges::any_of(m_calendarEvents, [&](const Meeting &meeting) { return meeting.id == id; });
        if (isKnown && !m_records.value(id).acknowledged) {
            markAcknowledged(id);
            launch(silencePhone(id));
        }
    }
    applyReading();
}

// True when there was nothing to upload, too.
QCoro::Task<bool> AppModel::uploadSchedule()
{
    if (!m_services.preferences.uploadMacSnapshot())
        co_return true;
    const QPointer<AppModel> self(this);
    const int revision = m_scheduleRevision;
    const Result<OKResponse> answer = co_await m_services.network.snapshot(m_scheduledMeetings);
    const bool isTaken = answer && answer->ok;
    if (self && isTaken)
        m_syncedRevision = revision;
    co_return isTaken;
}

void AppModel::judgeServer(const ServerState &state)
{
    const bool holdsAll = m_services.preferences.uploadMacSnapshot()
                              ? m_syncedRevision == m_scheduleRevision
                              : std::ranges::all_of(m_scheduledMeetings, [&](const Meeting &meeting) {
                                    return holds(state.events, meeting);
                                });
    const auto report =
        ServerReport::of(state.health, holdsAll ? ScheduleState::synced : ScheduleState::unsynced);
    m_scheduleSynced = report.canDeliver && holdsAll;
    m_serverFailures = report.canDeliver ? 0 : failuresUntilBackup;
    m_cloudStatus = report.text;
}

QCoro::Task<> AppModel::resendAcknowledgments()
{
    const QPointer<AppModel> self(this);
    const QStringList pending = m_pendingAcks.values();
    for (const QString &id : pending) {
        const Result<OKResponse> answer = co_await m_services.network.ack(id);
        if (!self)
            co_return;
        if (!answer || !answer->ok)
            co_return; // the next refresh tries again
        settleAcknowledgment(id);
    }
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

QCoro::Task<> AppModel::tellServer(QString id)
{
    const QPointer<AppModel> self(this);
    if (co_await readServerConfigured() == false || !self)
        co_return;
    m_pendingAcks.insert(id);
    keepPendingAcks();
    const Result<OKResponse> answer = co_await m_services.network.ack(id);
    if (!self)
        co_return;
    if (answer && answer->ok)
        settleAcknowledgment(id);
    else
        setNotice(ackFailed);
}

} // namespace quorvane
