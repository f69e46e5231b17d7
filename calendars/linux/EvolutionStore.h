// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarStore.h"
#include "calendars/linux/BoundedWorker.h"
#include "calendars/linux/ChangeRelay.h"

#include <memory>

namespace quorvane {

class EvolutionSession;

/// The calendars of the user's desktop accounts (GNOME, Google, Exchange, CalDAV) as Evolution Data Server
/// keeps them; those that are switched on there. Fails with `CalendarError::unavailable` where the service is
/// not installed or there is no session bus. A service that was killed is started again by the next call, one
/// that hangs costs its calendars a third of the limit each.
/// One per process: the service counts all openings of a calendar by one process as one, so that the end of
/// one store would close the calendars of another.
class EvolutionStore final : public CalendarStore
{
    Q_OBJECT

public:
    explicit EvolutionStore(BoundedWorker::Limit limit = BoundedWorker::defaultLimit,
                            QObject *parent = nullptr);
    ~EvolutionStore() override;

    [[nodiscard]] QString name() const override;
    [[nodiscard]] QCoro::Task<Result<std::vector<CalendarOption>>> calendars() override;
    [[nodiscard]] QCoro::Task<Result<EventReading>> events(double from, double to,
                                                           QStringList calendarIds) override;

private:
    std::shared_ptr<ChangeRelay> m_changes;
    std::shared_ptr<EvolutionSession> m_session;
    BoundedWorker m_worker;
};

} // namespace quorvane
