// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionCalendar.h"

#include "calendars/ical/EventAdapter.h"
#include "calendars/ical/EventCollection.h"
#include "calendars/ical/TimeZoneResolver.h"
#include "calendars/linux/EvolutionError.h"

#include <string>

namespace quorvane {
namespace {

constexpr time_t day = 86'400;
/// How long a reading is kept at the most, should word of a change ever get lost.
constexpr auto heldAtMost = std::chrono::minutes(10);
/// Calendars with more components than this are read anew each time rather than kept in memory.
constexpr std::size_t mostHeld = 5'000;
/// Costs the service next to nothing, and only a service that works answers it.
constexpr auto emptyQuery =
    R"((occur-in-time-range? (make-time "19700101T000000Z") (make-time "19700102T000000Z")))";

std::string utcText(time_t time)
{
    return icaltime_as_ical_string(icaltime_from_timet_with_zone(time, 0, icaltimezone_get_utc_timezone()));
}

/// All series and their overrides, and what takes place around the span; the rest is worked out here. (The
/// library's own expansion shows moved occurrences at their old times too and cannot be cancelled.)
std::string queryFor(time_t from, time_t to)
{
    return "(or (has-recurrences?) (occur-in-time-range? (make-time \"" + utcText(from - day) +
           "\") (make-time \"" + utcText(to + day) + "\")))";
}

Result<void> collect(ECalClient *client, const std::string &query, EventCollection &collection,
                     GCancellable *cancellable)
{
    GSList *list = nullptr;
    GError *error = nullptr;
    if (!e_cal_client_get_object_list_sync(client, query.c_str(), &list, cancellable, &error))
        return Failure(make_error_code(calendarError(GlibError(error))));
    for (GSList *item = list; item; item = item->next)
        collection.add(GlibPointer<ICalComponent>(static_cast<ICalComponent *>(item->data)));
    g_slist_free(list);
    return {};
}

/// Connected with its arguments swapped, so that one handler serves signals of any signature.
void notice(gpointer calendar)
{
    static_cast<EvolutionCalendar *>(calendar)->noteChange();
}

struct ZoneSource
{
    ECalClient *client;
    GCancellable *cancellable;

    ICalTimezone *operator()(const char *id) const
    {
        GError *error = nullptr; // an unknown zone is looked for elsewhere
        ICalTimezone *zone = e_cal_client_tzlookup_cb(id, client, cancellable, &error);
        g_clear_error(&error);
        return zone;
    }
};

} // namespace

EvolutionCalendar::EvolutionCalendar(GlibPointer<ECalClient> client, std::function<void()> changed)
    : m_client(std::move(client))
    , m_changed(std::move(changed))
{
    g_signal_connect_swapped(m_client.get(), "backend-died", G_CALLBACK(notice), this);
}

EvolutionCalendar::~EvolutionCalendar()
{
    if (m_view)
        g_signal_handlers_disconnect_by_data(m_view.get(), this);
    g_signal_handlers_disconnect_by_data(m_client.get(), this);
}

void EvolutionCalendar::watch(GCancellable *cancellable)
{
    ECalClientView *view = nullptr;
    if (!e_cal_client_get_view_sync(m_client.get(), "#t", &view, cancellable, nullptr))
        return;
    m_view.reset(view);
    for (const char *signal : {"objects-added", "objects-modified", "objects-removed"})
        g_signal_connect_swapped(view, signal, G_CALLBACK(notice), this);
    e_cal_client_view_set_flags(view, E_CAL_CLIENT_VIEW_FLAGS_NONE,
                                nullptr); // no listing of what is there already
    e_cal_client_view_start(view, nullptr);
}

void EvolutionCalendar::noteChange()
{
    m_held.reset();
    m_changed();
}

bool EvolutionCalendar::holds(time_t from, time_t to) const
{
    return m_held && m_held->from <= from && to <= m_held->to &&
           std::chrono::steady_clock::now() - m_held->since < heldAtMost;
}

Result<void> EvolutionCalendar::ping(GCancellable *cancellable) const
{
    EventCollection none;
    return collect(m_client.get(), emptyQuery, none, cancellable);
}

std::string EvolutionCalendar::busName() const
{
    const GlibText name(e_client_dup_bus_name(E_CLIENT(m_client.get())));
    return name ? name.get() : "";
}

Result<void> EvolutionCalendar::fetch(time_t from, time_t to, GCancellable *cancellable)
{
    if (holds(from, to))
        return {};
    // Spans move on with the clock: a day more keeps this reading good for the next ones.
    Held held{.events = {}, .from = from - day, .to = to + day, .since = std::chrono::steady_clock::now()};
    const auto done = collect(m_client.get(), queryFor(held.from, held.to), held.events, cancellable);
    if (done)
        m_held = std::move(held);
    return done;
}

Result<std::vector<CalendarEvent>> EvolutionCalendar::occurrences(const QString &id, const QString &name,
                                                                  OwnAddresses addresses, time_t from,
                                                                  time_t to, GCancellable *cancellable)
{
    if (const auto done = fetch(from, to, cancellable); !done)
        return Failure(done.error());

    gchar *address = nullptr;
    if (e_client_get_backend_property_sync(E_CLIENT(m_client.get()), E_CAL_BACKEND_PROPERTY_CAL_EMAIL_ADDRESS,
                                           &address, cancellable, nullptr))
        addresses.add(QString::fromUtf8(GlibText(address).get()));
    TimeZoneResolver zones(ZoneSource{m_client.get(), cancellable});
    auto events = m_held->events.occurrences(EventAdapter(id, name, addresses), zones, from, to);
    if (!m_view || m_held->events.size() > mostHeld)
        m_held.reset();
    return events;
}

} // namespace quorvane
