// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/EventCollection.h"
#include "calendars/ical/GlibPointer.h"
#include "calendars/ical/OwnAddresses.h"
#include "calendars/records/CalendarEvent.h"
#include "core/Result.h"

#include <libecal/libecal.h>

#include <chrono>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quorvane {

/// One open calendar of Evolution Data Server; made, used and destroyed on the thread whose default main
/// context brings its notices.
class EvolutionCalendar final
{
public:
    /// `changed` is called when an event comes, changes or goes, and when the calendar's service ends.
    EvolutionCalendar(GlibPointer<ECalClient> client, std::function<void()> changed);
    ~EvolutionCalendar();
    Q_DISABLE_COPY_MOVE(EvolutionCalendar)

    /// Begins to watch for changes. Where that fails, changes are found by the next reading only.
    void watch(GCancellable *cancellable);

    /// Whether what was read before still holds for the span (Unix time): the calendar is watched and has
    /// said of no change. It is kept for some minutes at the most.
    [[nodiscard]] bool holds(time_t from, time_t to) const;

    /// The next reading asks the service.
    void forget() { m_held.reset(); }

    /// Asks the calendar's service something that costs it next to nothing. Fails when it is gone or hangs.
    [[nodiscard]] Result<void> ping(GCancellable *cancellable) const;

    /// The unique name of the service on the bus.
    [[nodiscard]] std::string busName() const;

    /// The occurrences that overlap the span, Unix time; without asking the service where `holds`. `id` and
    /// `name` are the calendar's for the store's users, `addresses` the user's own; the calendar adds the one
    /// that it knows for itself.
    [[nodiscard]] Result<std::vector<CalendarEvent>> occurrences(const QString &id, const QString &name,
                                                                 OwnAddresses addresses, time_t from,
                                                                 time_t to, GCancellable *cancellable);

    /// For the signal handlers.
    void noteChange();

private:
    /// What was read, and of which span.
    struct Held
    {
        EventCollection events;
        time_t from = 0;
        time_t to = 0;
        std::chrono::steady_clock::time_point since;
    };

    Result<void> fetch(time_t from, time_t to, GCancellable *cancellable);

    GlibPointer<ECalClient> m_client;
    GlibPointer<ECalClientView> m_view;
    std::function<void()> m_changed;
    std::optional<Held> m_held;
};

} // namespace quorvane
