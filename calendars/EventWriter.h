// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/NewEvent.h"
#include "core/Result.h"

#include <QCoroTask>
#include <QString>

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

    /// The title of the calendar that new events go to, as people see it; absent when there is none that can
    /// be written. Nothing is made or changed. Fails with `CalendarError::timedOut`, or with the service's
    /// own error, when that cannot be told.
    [[nodiscard]] virtual QCoro::Task<Result<std::optional<QString>>> defaultCalendar() = 0;

    /// Puts the event into that calendar, which is looked for anew. Fails with the system's or the service's
    /// error; then it is not there, unless the service hung.
    [[nodiscard]] virtual QCoro::Task<Result<void>> add(NewEvent event) = 0;
};

} // namespace quorvane
