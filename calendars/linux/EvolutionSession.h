// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/ical/GlibPointer.h"
#include "calendars/ical/OwnAddresses.h"
#include "calendars/linux/EvolutionCalendar.h"
#include "calendars/records/CalendarEvent.h"
#include "calendars/records/CalendarOption.h"
#include "core/Result.h"

#include <libecal/libecal.h>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace quorvane {

/// The connection to Evolution Data Server; used and destroyed on one worker thread, whose default main
/// context brings the service's notices. Built up by the first call and again after the service died.
class EvolutionSession final
{
public:
    /// No call into the service may take longer than `callLimit`. `changed` is called on the worker thread.
    EvolutionSession(std::chrono::milliseconds callLimit, std::function<void()> changed);
    ~EvolutionSession();
    Q_DISABLE_COPY_MOVE(EvolutionSession)

    [[nodiscard]] Result<std::vector<CalendarOption>> calendars(const std::stop_token &stop);
    [[nodiscard]] Result<EventReading> events(double from, double to, const QStringList &ids,
                                              const std::stop_token &stop);

private:
    Result<void> connect(const std::stop_token &stop);
    void follow();
    /// The enabled calendars, ordered by identifier.
    [[nodiscard]] std::vector<GlibPointer<ESource>> enabledSources() const;
    std::optional<EventReading> heldReading(double from, double to, const QStringList &ids,
                                            const std::stop_token &stop);
    void forgetReadings();
    void retireAll();
    void retire(const QString &id);
    Result<EventReading> readAll(double from, double to, const QStringList &ids, const std::stop_token &stop);
    Result<std::vector<CalendarEvent>> read(ESource *source, time_t from, time_t to,
                                            const std::stop_token &stop);
    Result<EvolutionCalendar *> open(ESource *source, GCancellable *cancellable);
    [[nodiscard]] OwnAddresses addressesFor(ESource *source) const;

    std::chrono::milliseconds m_callLimit;
    std::function<void()> m_changed;
    GlibPointer<ESourceRegistry> m_registry;
    std::map<QString, std::unique_ptr<EvolutionCalendar>> m_open;
    std::deque<std::unique_ptr<EvolutionCalendar>> m_retired;
    /// Whom the open calendars were opened at.
    std::string m_owner;
};

} // namespace quorvane
