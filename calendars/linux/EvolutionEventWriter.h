// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/EventWriter.h"
#include "calendars/linux/BoundedWorker.h"

#include <memory>

namespace quorvane {

/// New events go to the default calendar of the desktop's accounts, as Evolution Data Server knows it; there
/// is none where the service is not installed or there is no session bus. Nobody is sent an invitation.
class EvolutionEventWriter final : public EventWriter
{
public:
    explicit EvolutionEventWriter(BoundedWorker::Limit limit = BoundedWorker::defaultLimit);
    ~EvolutionEventWriter() override;

    [[nodiscard]] QCoro::Task<Result<std::optional<DefaultCalendar>>> defaultCalendar() override;
    [[nodiscard]] QCoro::Task<Result<void>> add(NewEvent event) override;

private:
    class Session;

    std::shared_ptr<Session> m_session;
    BoundedWorker m_worker;
};

} // namespace quorvane
