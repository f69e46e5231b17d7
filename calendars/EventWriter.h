// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/DefaultCalendar.h"
#include "calendars/records/NewEvent.h"
#include "core/Result.h"

#include <QCoroTask>

#include <optional>

namespace quorvane {

/// A place where new events can be put. Owned by whoever asks for it and called on the main thread only; the
/// work is done elsewhere. Every task ends within `CalendarStore::answerTimeLimit`. Calls do not overlap.
class EventWriter
{
public:
    EventWriter() = default;
    virtual ~EventWriter() = default;
    Q_DISABLE_COPY_MOVE(EventWriter)

    /// The calendar that new events go to. Absent only where the place itself is not there, such as a service
    /// that is not installed: one that is there and does not answer, or does not name a calendar, fails with
    /// `CalendarError` instead. Nothing is made or changed.
    [[nodiscard]] virtual QCoro::Task<Result<std::optional<DefaultCalendar>>> defaultCalendar() = 0;

    /// Puts the event into that calendar, which is looked for anew. Fails with the system's or the service's
    /// error; then it is not there, unless the service hung.
    [[nodiscard]] virtual QCoro::Task<Result<void>> add(NewEvent event) = 0;
};

} // namespace quorvane
