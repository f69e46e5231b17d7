// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarReader.h"

#include "calendars/CalendarError.h"
#include "calendars/records/EventMeetings.h"

#include <QPointer>

#include <algorithm>

namespace quorvane {

/// One store with the last good answer that it gave.
struct CalendarReader::Source
{
    std::unique_ptr<CalendarStore> store;
    AuthorizationStatus authorization = AuthorizationStatus::notDetermined;
    std::error_code problem;
    bool isBusy = false;
    std::vector<CalendarOption> calendars;
    /// By calendar identifier.
    QHash<QString, std::vector<CalendarEvent>> events;
    QStringList unreadableCalendars;
    /// By account, Unix time in seconds.
    QHash<QString, double> readings;

    [[nodiscard]] bool isAbsent() const
    {
        return problem == CalendarError::unavailable && authorization != AuthorizationStatus::fullAccess;
    }

    void takeCalendars(Result<std::vector<CalendarOption>> answer)
    {
        problem = answer ? std::error_code() : answer.error();
        unreadableCalendars.clear();
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
        unreadableCalendars = answer->unreadableCalendars;
        if (!unreadableCalendars.isEmpty())
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

    /// The accounts all of whose calendars have been read.
    void noteReadings(double now)
    {
        if (problem && unreadableCalendars.isEmpty())
            return;
        QSet<QString> failing;
        for (const CalendarOption &calendar : calendars) {
            if (unreadableCalendars.contains(calendar.id))
                failing.insert(calendar.account);
        }
        for (const CalendarOption &calendar : calendars) {
            if (!failing.contains(calendar.account))
                readings.insert(calendar.account, now);
        }
    }

    [[nodiscard]] QStringList wantedCalendars(const QStringList &excluded) const
    {
        QStringList ids;
        for (const CalendarOption &calendar : calendars) {
            if (!excluded.contains(calendar.id))
                ids.append(calendar.id);
        }
        return ids;
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
    const QPointer<CalendarReader> self(this);
    std::vector<QCoro::Task<>> listings;
    listings.reserve(m_sources.size());
    for (const auto &source : m_sources) {
        if (!source->isBusy)
            listings.push_back(listStore(*source));
    }
    for (QCoro::Task<> &listing : listings)
        co_await std::move(listing);
    if (!self)
        co_return false;
    if (authorizationStatus() == AuthorizationStatus::fullAccess)
        co_return true;
    if (const auto failing = problems(); !failing.empty())
        co_return Failure(failing.front().error);
    co_return false;
}

QCoro::Task<> CalendarReader::read(double now, QStringList excluded)
{
    std::vector<QCoro::Task<>> readings;
    readings.reserve(m_sources.size());
    for (const auto &source : m_sources) {
        if (!source->isBusy)
            readings.push_back(readStore(*source, now, excluded));
    }
    for (QCoro::Task<> &reading : readings)
        co_await std::move(reading);
}

QCoro::Task<> CalendarReader::listStore(Source &source)
{
    const QPointer<CalendarReader> self(this);
    source.isBusy = true;
    auto calendars = co_await source.store->calendars();
    if (!self)
        co_return;
    source.takeCalendars(std::move(calendars));
    source.isBusy = false;
}

QCoro::Task<> CalendarReader::readStore(Source &source, double now, QStringList excluded)
{
    const QPointer<CalendarReader> self(this);
    co_await listStore(source);
    if (!self)
        co_return;
    source.isBusy = true;
    const QStringList wanted = source.wantedCalendars(excluded);
    source.keepEventsOf(wanted);
    if (!wanted.isEmpty() && !source.problem) {
        const double from = now - Meeting::graceAfterStart;
        const double to = now + EventMeetings::horizon;
        auto reading = co_await source.store->events(from, to, wanted);
        if (!self)
            co_return;
        source.takeEvents(wanted, std::move(reading));
    }
    source.isBusy = false;
    source.noteReadings(now);
    Q_EMIT storeRead();
}

std::vector<CalendarOption> CalendarReader::calendars() const
{
    std::vector<CalendarOption> all;
    for (const auto &source : m_sources)
        std::ranges::copy(source->calendars, std::back_inserter(all));
    std::ranges::stable_sort(all, [](const CalendarOption &a, const CalendarOption &b) {
        return a.name.toCaseFolded().localeAwareCompare(b.name.toCaseFolded()) < 0;
    });
    return all;
}

std::vector<Meeting> CalendarReader::events(double now, const QStringList &excluded) const
{
    std::vector<CalendarEvent> held;
    for (const auto &source : m_sources) {
        const QStringList wanted = source->wantedCalendars(excluded);
        for (const QString &id : wanted)
            std::ranges::copy(source->events.value(id), std::back_inserter(held));
    }
    return EventMeetings::meetings(held, now);
}

bool CalendarReader::hasAnswered() const
{
    return std::ranges::all_of(m_sources, [](const auto &source) {
        return source->authorization == AuthorizationStatus::fullAccess ||
               source->problem == CalendarError::unavailable;
    });
}

std::vector<StoreProblem> CalendarReader::problems() const
{
    std::vector<StoreProblem> problems;
    for (const auto &source : m_sources) {
        if (source->problem && !source->isAbsent())
            problems.push_back({source->store->name(), source->problem});
    }
    return problems;
}

std::vector<StoreState> CalendarReader::stores() const
{
    std::vector<StoreState> states;
    states.reserve(m_sources.size());
    for (const auto &source : m_sources)
        states.push_back({.name = source->store->name(),
                          .problem = source->problem,
                          .isBusy = source->isBusy,
                          .isAbsent = source->isAbsent(),
                          .calendars = source->calendars,
                          .unreadableCalendars = source->unreadableCalendars,
                          .readings = source->readings});
    return states;
}

} // namespace quorvane
