// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/ConnectionCommand.h"

#include "calendars/FantasticalReader.h"
#include "commands/ExitStatus.h"
#include "core/MeetingSelection.h"
#include "model/ManualMeetingText.h"
#include "model/Preferences.h"
#include "model/SourceStatus.h"
#include "network/Network.h"
#include "network/Secrets.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

QString calendarLine(const FantasticalSnapshot &snapshot)
{
    return u"Fantastical: %1 timed occurrences, %2 skipped records."_s.arg(snapshot.events.size())
        .arg(snapshot.skipped);
}

QString serverLine(const ServerState &state)
{
    return u"Server: %1 events, scheduler %2, Pushover %3"_s.arg(
        QString::number(state.events.size()), state.health.scheduler ? u"running"_s : u"stopped"_s,
        state.health.configured ? u"configured"_s : u"missing"_s);
}

// What a platform or a server says of an error may hold what nobody else is to read.
QString failureLine(const std::error_code &error)
{
    return SourceStatus::readFailure(error).value_or(
        u"Connection verification failed. No credentials or calendar content were logged."_s);
}

} // namespace

ConnectionCommand::ConnectionCommand(Parts parts, PrintLine print)
    : m_parts(parts)
    , m_print(std::move(print))
{
}

QCoro::Task<int> ConnectionCommand::run(Mode mode) const
{
    const Result<int> status = co_await check(mode);
    if (status)
        co_return *status;
    m_print(failureLine(status.error()));
    co_return ExitStatus::connectionFailed;
}

QCoro::Task<Result<int>> ConnectionCommand::check(Mode mode) const
{
    const QStringList excluded = m_parts.preferences.excludedCalendars();
    const Result<FantasticalSnapshot> snapshot = co_await m_parts.fantasticalReader.read(excluded);
    if (!snapshot)
        co_return Failure(snapshot.error());
    m_print(calendarLine(*snapshot));
    if (mode == Mode::sync) {
        const Result<void> uploaded = co_await upload(snapshot->events);
        if (!uploaded)
            co_return Failure(uploaded.error());
    }
    const Result<ServerState> state = co_await m_parts.network.state();
    if (!state)
        co_return Failure(state.error());
    m_print(serverLine(*state));
    const bool isReady = state->health.scheduler && state->health.configured;
    co_return Result<int>(isReady ? ExitStatus::success : ExitStatus::serverNotReady);
}

// Without an answer of the keyring nothing is uploaded: a schedule that lacks what it holds would replace a
// whole one.
QCoro::Task<Result<void>> ConnectionCommand::upload(std::vector<Meeting> meetings) const
{
    const MeetingChoices choices = m_parts.preferences.meetingChoices();
    const QString account = Secrets::manualMeetings;
    const Result<std::optional<QString>> kept = co_await m_parts.secrets.read(account);
    if (!kept)
        co_return Failure(kept.error());
    const ManualMeetingText manual = ManualMeetingText::of(kept->value_or(QString()));
    std::ranges::copy(manual.meetings, std::back_inserter(meetings));
    std::vector<Meeting> selected = MeetingSelection::deduplicated(std::move(meetings));
    std::erase_if(selected, [&choices](const Meeting &meeting) {
        return !MeetingSelection::includes(meeting, choices);
    });
    const Result<OKResponse> answer = co_await m_parts.network.snapshot(selected);
    if (!answer)
        co_return Failure(answer.error());
    if (!answer->ok)
        co_return Failure(std::make_error_code(std::errc::io_error));
    m_print(u"Alert schedule: %1 selected meetings synced."_s.arg(selected.size()));
    co_return Result<void>();
}

} // namespace quorvane
