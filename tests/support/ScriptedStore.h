// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarStore.h"

#include <QCoroSignal>

namespace quorvane {

/// A calendar store that answers what the test says, when the test says.
class ScriptedStore final : public CalendarStore
{
    Q_OBJECT

public:
    [[nodiscard]] QString name() const override { return QStringLiteral("Test store"); }

    [[nodiscard]] QCoro::Task<Result<std::vector<CalendarOption>>> calendars() override
    {
        ++listings;
        if (hangs)
            co_await qCoro(this, &ScriptedStore::released);
        if (failure)
            co_return Failure(failure);
        co_return std::vector(options); // QCoro 0.8 moves from an lvalue
    }

    [[nodiscard]] QCoro::Task<Result<EventReading>> events(double from, double to,
                                                           QStringList calendarIds) override
    {
        ++queries;
        lastFrom = from;
        lastTo = to;
        lastCalendars = calendarIds;
        if (eventFailure)
            co_return Failure(eventFailure);
        co_return EventReading(reading);
    }

    /// Adds an event to the only calendar.
    void add(const QString &uid, double start, const QString &url = QStringLiteral("https://zoom.us/j/1"))
    {
        reading.events.push_back({.externalIdentifier = uid,
                                  .title = uid,
                                  .start = start,
                                  .end = start + 1800,
                                  .url = url,
                                  .calendarId = options.front().id,
                                  .calendar = options.front().name});
    }

    std::vector<CalendarOption> options{
        {QStringLiteral("c"), QStringLiteral("Calendar"), QStringLiteral("Account")}};
    EventReading reading;
    std::error_code failure;
    std::error_code eventFailure;
    bool hangs = false;
    int listings = 0;
    int queries = 0;
    double lastFrom = 0;
    double lastTo = 0;
    QStringList lastCalendars;

Q_SIGNALS:
    void released();
};

} // namespace quorvane
