// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarEvent.h"
#include "calendars/linux/EventCollection.h"
#include "calendars/linux/GlibPointer.h"
#include "calendars/linux/OwnAddresses.h"
#include "core/Result.h"

#include <libecal/libecal.h>

#include <chrono>
#include <ctime>
#include <functional>
#include <optional>
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

    /// The occurrences that overlap the span, Unix time. As long as the calendar is watched and says of no
    /// change, what was read of it is kept for some minutes and only worked out anew; the service is asked
    /// whether it still answers all the same. `id` and `name` are the calendar's for the store's users,
    /// `addresses` the user's own; the calendar adds the one that it knows for itself.
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

    [[nodiscard]] bool holds(time_t from, time_t to) const;
    Result<void> fetch(time_t from, time_t to, GCancellable *cancellable);

    GlibPointer<ECalClient> m_client;
    GlibPointer<ECalClientView> m_view;
    std::function<void()> m_changed;
    std::optional<Held> m_held;
};

} // namespace quorvane
