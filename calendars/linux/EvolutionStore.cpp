// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionStore.h"

#include "calendars/linux/EvolutionSession.h"

namespace quorvane {

EvolutionStore::EvolutionStore(BoundedWorker::Limit limit, QObject *parent)
    : CalendarStore(parent)
    , m_changes(ChangeRelay::create())
    , m_session(std::make_shared<EvolutionSession>(limit / 3, [changes = m_changes] { changes->report(); }))
    , m_worker("calendar-eds", limit)
{
    connect(m_changes.get(), &ChangeRelay::changed, this, &CalendarStore::changed);
}

EvolutionStore::~EvolutionStore()
{
    m_worker.post([session = std::move(m_session)]() mutable { session.reset(); });
}

QString EvolutionStore::name() const
{
    return tr("Calendars of your desktop accounts");
}

QCoro::Task<Result<std::vector<CalendarOption>>> EvolutionStore::calendars()
{
    return m_worker.run<std::vector<CalendarOption>>(
        [session = m_session](const std::stop_token &stop) { return session->calendars(stop); });
}

QCoro::Task<Result<EventReading>> EvolutionStore::events(double from, double to, QStringList calendarIds)
{
    return m_worker.run<EventReading>(
        [session = m_session, from, to, ids = std::move(calendarIds)](const std::stop_token &stop) {
            return session->events(from, to, ids, stop);
        });
}

} // namespace quorvane
