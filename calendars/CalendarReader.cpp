// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarReader.h"

#include "calendars/CalendarError.h"
#include "calendars/EventMeetings.h"

#include <QPointer>

#include <algorithm>

namespace quorvane {

/// One store with the last good answer that it gave.
struct CalendarReader::Source
{
    std::unique_ptr<CalendarStore> store;
    AuthorizationStatus authorization = AuthorizationStatus::notDetermined;
    std::error_code problem;
    std::vector<CalendarOption> calendars;
    /// By calendar identifier.
    QHash<QString, std::vector<CalendarEvent>> events;

    void takeCalendars(Result<std::vector<CalendarOption>> answer)
    {
        problem = answer ? std::error_code() : answer.error();
        if (answer) {
            authorization = AuthorizationStatus::fullAccess;
            calendars = std::move(*answer);
        } else if (authorization == AuthorizationStatus::notDetermined) {
            authorization = AuthorizationStatus::denied;
        }
    }

    void takeEvents(const QStringList &wanted, Result<EventReading> answer)
    {
        if (!answer) {
            problem = answer.error();
            return;
        }
        if (!answer->unreadableCalendars.isEmpty())
            problem = CalendarError::unreadable;
        for (const QString &id : wanted) {
            if (!answer->unreadableCalendars.contains(id))
                events.insert(id, {});
        }
        for (CalendarEvent &event : answer->events) {
            if (!answer->unreadableCalendars.contains(event.calendarId))
                events[event.calendarId].push_back(std::move(event));
        }
    }

    /// What the user no longer wants, or what is gone, is forgotten.
    void keepEventsOf(const QStringList &wanted)
    {
        events.removeIf([&wanted](const auto &entry) { return !wanted.contains(entry.key()); });
    }
};

CalendarReader::CalendarReader(std::vector<std::unique_ptr<CalendarStore>> stores, QObject *parent)
    : QObject(parent)
{
    for (auto &store : stores) {
        connect(store.get(), &CalendarStore::changed, this, &CalendarReader::changed);
        auto source = std::make_unique<Source>();
        source->store = std::move(store);
        m_sources.push_back(std::move(source));
    }
}

CalendarReader::~CalendarReader() = default;

AuthorizationStatus CalendarReader::authorizationStatus() const
{
    auto status = AuthorizationStatus::notDetermined;
    for (const auto &source : m_sources)
        status = std::max(status, source->authorization);
    return status;
}

QCoro::Task<Result<bool>> CalendarReader::requestAccess()
{
    QPointer<CalendarReader> self(this);
    co_await calendars();
    if (!self)
        co_return false;
    if (authorizationStatus() == AuthorizationStatus::fullAccess)
        co_return true;
    if (const auto failing = problems(); !failing.empty())
        co_return Failure(failing.front().error);
    co_return false;
}

QCoro::Task<std::vector<CalendarOption>> CalendarReader::calendars()
{
    QPointer<CalendarReader> self(this);
    std::vector<QCoro::Task<Result<std::vector<CalendarOption>>>> answers;
    answers.reserve(m_sources.size());
    for (const auto &source : m_sources)
        answers.push_back(source->store->calendars());
    std::vector<CalendarOption> all;
    for (std::size_t i = 0; i < answers.size(); ++i) {
        auto answer = co_await std::move(answers[i]);
        if (!self)
            co_return std::vector<CalendarOption>();
        m_sources[i]->takeCalendars(std::move(answer));
        std::ranges::copy(m_sources[i]->calendars, std::back_inserter(all));
    }
    std::ranges::stable_sort(all, [](const CalendarOption &a, const CalendarOption &b) {
        return a.name.toCaseFolded().localeAwareCompare(b.name.toCaseFolded()) < 0;
    });
    co_return all;
}

QCoro::Task<std::vector<Meeting>> CalendarReader::events(double now, QStringList excluded)
{
    QPointer<CalendarReader> self(this);
    const Wanted wanted = wantedCalendars(excluded);
    const double from = now - Meeting::graceAfterStart;
    const double to = now + EventMeetings::horizon;
    std::vector<std::pair<std::size_t, QCoro::Task<Result<EventReading>>>> answers;
    for (std::size_t i = 0; i < m_sources.size(); ++i) {
        m_sources[i]->keepEventsOf(wanted[i]);
        if (!wanted[i].isEmpty() && !m_sources[i]->problem)
            answers.emplace_back(i, m_sources[i]->store->events(from, to, wanted[i]));
    }
    for (auto &[i, task] : answers) {
        auto answer = co_await std::move(task);
        if (!self)
            co_return std::vector<Meeting>();
        m_sources[i]->takeEvents(wanted[i], std::move(answer));
    }
    co_return EventMeetings::meetings(heldEvents(wanted), now);
}

CalendarReader::Wanted CalendarReader::wantedCalendars(const QStringList &excluded) const
{
    Wanted wanted;
    for (const auto &source : m_sources) {
        QStringList ids;
        for (const CalendarOption &calendar : source->calendars) {
            if (!excluded.contains(calendar.id))
                ids.append(calendar.id);
        }
        wanted.push_back(ids);
    }
    return wanted;
}

std::vector<CalendarEvent> CalendarReader::heldEvents(const Wanted &wanted) const
{
    std::vector<CalendarEvent> held;
    for (std::size_t i = 0; i < m_sources.size(); ++i) {
        for (const QString &id : wanted[i])
            std::ranges::copy(m_sources[i]->events.value(id), std::back_inserter(held));
    }
    return held;
}

std::vector<StoreProblem> CalendarReader::problems() const
{
    std::vector<StoreProblem> problems;
    for (const auto &source : m_sources) {
        const bool neverThere = source->problem == CalendarError::unavailable &&
                                source->authorization != AuthorizationStatus::fullAccess;
        if (source->problem && !neverThere)
            problems.push_back({source->store->name(), source->problem});
    }
    return problems;
}

} // namespace quorvane
