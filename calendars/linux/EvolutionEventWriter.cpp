// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionEventWriter.h"

#include "calendars/ical/GlibPointer.h"
#include "calendars/ical/NewEventText.h"
#include "calendars/linux/CallLimit.h"
#include "calendars/linux/EvolutionError.h"
#include "calendars/linux/EvolutionService.h"

#include <libecal/libecal.h>

namespace quorvane {

/// Used and destroyed on the worker thread.
class EvolutionEventWriter::Session
{
public:
    explicit Session(std::chrono::milliseconds callLimit)
        : m_callLimit(callLimit)
    {
    }

    Result<std::optional<DefaultCalendar>> defaultCalendar(const std::stop_token &stop)
    {
        const CallLimit limit(m_callLimit, stop);
        const Result<bool> isThere = wakeEvolutionService(limit.cancellable());
        if (!isThere)
            return Failure(isThere.error());
        if (!*isThere)
            return std::nullopt;
        const Result<GlibPointer<ESource>> source = defaultSource(limit.cancellable());
        if (!source)
            return Failure(source.error());
        DefaultCalendar calendar{.title = QString::fromUtf8(e_source_get_display_name(source->get()))};
        if (!e_source_registry_check_enabled(m_registry.get(), source->get()))
            return calendar;
        const Result<GlibPointer<ECalClient>> client = open(source->get(), limit.cancellable());
        if (!client)
            return Failure(client.error());
        calendar.isWritable = e_client_is_readonly(E_CLIENT(client->get())) == FALSE;
        return calendar;
    }

    Result<void> add(const NewEvent &event, const std::stop_token &stop)
    {
        const CallLimit limit(m_callLimit, stop);
        const Result<GlibPointer<ESource>> source = defaultSource(limit.cancellable());
        if (!source)
            return Failure(source.error());
        const Result<GlibPointer<ECalClient>> client = open(source->get(), limit.cancellable());
        if (!client)
            return Failure(client.error());
        const GlibPointer<ICalComponent> component = NewEventText::component(event);
        GError *error = nullptr;
        if (!e_cal_client_create_object_sync(client->get(), component.get(),
                                             E_CAL_OPERATION_FLAG_DISABLE_ITIP_MESSAGE, nullptr,
                                             limit.cancellable(), &error))
            return Failure(make_error_code(calendarError(GlibError(error))));
        return {};
    }

private:
    /// Never null. Ask when the service is awake.
    Result<GlibPointer<ESource>> defaultSource(GCancellable *cancellable)
    {
        if (!m_registry) {
            GError *error = nullptr;
            m_registry.reset(e_source_registry_new_sync(cancellable, &error));
            if (!m_registry)
                return Failure(make_error_code(calendarError(GlibError(error))));
        }
        GlibPointer<ESource> source(e_source_registry_ref_default_calendar(m_registry.get()));
        if (!source)
            return Failure(make_error_code(CalendarError::unavailable));
        return source;
    }

    static Result<GlibPointer<ECalClient>> open(ESource *source, GCancellable *cancellable)
    {
        constexpr auto doNotWait = static_cast<guint32>(-1); // for it to come online
        GError *error = nullptr;
        EClient *client = e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS, doNotWait,
                                                    cancellable, &error);
        if (!client)
            return Failure(make_error_code(calendarError(GlibError(error))));
        return GlibPointer<ECalClient>(E_CAL_CLIENT(client));
    }

    std::chrono::milliseconds m_callLimit;
    GlibPointer<ESourceRegistry> m_registry;
};

EvolutionEventWriter::EvolutionEventWriter(BoundedWorker::Limit limit)
    : m_session(std::make_shared<Session>(limit * 7 / 8))
    , m_worker("calendar-new", limit)
{
}

EvolutionEventWriter::~EvolutionEventWriter()
{
    m_worker.post([session = std::move(m_session)]() mutable { session.reset(); });
}

QCoro::Task<Result<std::optional<DefaultCalendar>>> EvolutionEventWriter::defaultCalendar()
{
    return m_worker.run<std::optional<DefaultCalendar>>(
        [session = m_session](const std::stop_token &stop) { return session->defaultCalendar(stop); });
}

QCoro::Task<Result<void>> EvolutionEventWriter::add(NewEvent event)
{
    return m_worker.run<void>([session = m_session, event = std::move(event)](const std::stop_token &stop) {
        return session->add(event, stop);
    });
}

} // namespace quorvane
