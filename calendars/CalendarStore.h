// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/records/CalendarEvent.h"
#include "calendars/records/CalendarOption.h"
#include "core/Result.h"

#include <QCoroTask>
#include <QObject>
#include <QStringList>

#include <vector>

namespace quorvane {

/// A place where calendars are kept. Owned by `CalendarReader` and called on the main thread only; the work
/// is done elsewhere, so that no call ever blocks its caller. Every task ends within `answerTimeLimit`,
/// whatever becomes of the service behind it, and may be started again at once. Calls do not overlap.
class CalendarStore : public QObject
{
    Q_OBJECT

public:
    /// The longest that a task may take, in milliseconds.
    static constexpr int answerTimeLimit = 10'000;

    /// What people call the store, for a status line.
    [[nodiscard]] virtual QString name() const = 0;

    /// All event calendars, in any order. Fails with `CalendarError`, or with the service's own error.
    [[nodiscard]] virtual QCoro::Task<Result<std::vector<CalendarOption>>> calendars() = 0;

    /// The occurrences that overlap the span from `from` to `to` (Unix time, seconds) in the calendars named
    /// by `calendarIds`, in the store's own stable order; cancelled and declined ones included and marked.
    /// Identifiers that the store does not know are passed over. Fails as `calendars` does when nothing could
    /// be read; a calendar that fails among others is named in `EventReading::unreadableCalendars`.
    [[nodiscard]] virtual QCoro::Task<Result<EventReading>> events(double from, double to,
                                                                   QStringList calendarIds) = 0;

Q_SIGNALS:
    /// Something in the store changed: read again. May come in bursts.
    void changed();

protected:
    using QObject::QObject;
};

} // namespace quorvane
