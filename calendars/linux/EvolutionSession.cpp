// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionSession.h"

#include "calendars/ical/EventCollection.h"
#include "calendars/linux/CallLimit.h"
#include "calendars/linux/EvolutionError.h"
#include "calendars/linux/EvolutionService.h"
#include "calendars/records/CalendarColor.h"

#include <algorithm>

namespace quorvane {
namespace {

/// The library must not wait for a calendar to come online: with any other value it waits that many seconds.
constexpr guint32 doNotWait = static_cast<guint32>(-1);

QString idOf(ESource *source)
{
    return QStringLiteral("evolution:") + QString::fromUtf8(e_source_get_uid(source));
}

QString nameOf(ESource *source)
{
    return QString::fromUtf8(e_source_get_display_name(source));
}

std::optional<QString> colorOf(ESource *source)
{
    auto *calendar =
        static_cast<ESourceSelectable *>(e_source_get_extension(source, E_SOURCE_EXTENSION_CALENDAR));
    return CalendarColor::normalized(
        QString::fromUtf8(GlibText(e_source_selectable_dup_color(calendar)).get()));
}

GlibPointer<ESource> parentOf(ESourceRegistry *registry, ESource *source)
{
    const char *parent = e_source_get_parent(source);
    return GlibPointer<ESource>(parent ? e_source_registry_ref_source(registry, parent) : nullptr);
}

void notice(gpointer, gpointer, gpointer changed)
{
    (*static_cast<std::function<void()> *>(changed))();
}

} // namespace

EvolutionSession::EvolutionSession(std::chrono::milliseconds callLimit, std::function<void()> changed)
    : m_callLimit(callLimit)
    , m_changed(std::move(changed))
{
}

EvolutionSession::~EvolutionSession()
{
    m_open.clear();
    if (m_registry)
        g_signal_handlers_disconnect_by_data(m_registry.get(), &m_changed);
}

Result<void> EvolutionSession::connect(const std::stop_token &stop)
{
    if (m_registry)
        return {};
    const CallLimit limit(m_callLimit * 2, stop); // the service may have to be started
    const Result<bool> isAwake = wakeEvolutionService(limit.cancellable());
    if (!isAwake)
        return Failure(isAwake.error());
    if (!*isAwake)
        return Failure(make_error_code(CalendarError::unavailable));
    GError *error = nullptr;
    m_registry.reset(e_source_registry_new_sync(limit.cancellable(), &error));
    if (!m_registry)
        return Failure(make_error_code(calendarError(GlibError(error))));
    follow();
    return {};
}

void EvolutionSession::follow()
{
    for (const char *signal :
         {"source-added", "source-changed", "source-removed", "source-enabled", "source-disabled"})
        g_signal_connect(m_registry.get(), signal, G_CALLBACK(notice), &m_changed);
}

std::vector<GlibPointer<ESource>> EvolutionSession::enabledSources() const
{
    std::vector<GlibPointer<ESource>> sources;
    GList *list = e_source_registry_list_sources(m_registry.get(), E_SOURCE_EXTENSION_CALENDAR);
    for (GList *item = list; item; item = item->next) {
        GlibPointer<ESource> source(static_cast<ESource *>(item->data));
        if (e_source_registry_check_enabled(m_registry.get(), source.get()))
            sources.push_back(std::move(source));
    }
    g_list_free(list);
    std::sort(sources.begin(), sources.end(),
              [](const auto &a, const auto &b) { return idOf(a.get()) < idOf(b.get()); });
    return sources;
}

Result<std::vector<CalendarOption>> EvolutionSession::calendars(const std::stop_token &stop)
{
    if (const Result<void> connected = connect(stop); !connected)
        return Failure(connected.error());
    std::vector<CalendarOption> options;
    for (const GlibPointer<ESource> &source : enabledSources()) {
        const GlibPointer<ESource> account = parentOf(m_registry.get(), source.get());
        options.push_back({idOf(source.get()), nameOf(source.get()),
                           account ? nameOf(account.get()) : QString(), colorOf(source.get())});
    }
    return options;
}

/// A calendar that was opened before the service died must not be used again: its address may by now be that
/// of another calendar. So everything is opened and read anew when the service was started in between.
Result<EventReading> EvolutionSession::events(double from, double to, const QStringList &ids,
                                              const std::stop_token &stop)
{
    if (const Result<void> connected = connect(stop); !connected)
        return Failure(connected.error());
    if (auto held = heldReading(from, to, ids, stop))
        return std::move(*held);
    const CallLimit limit(m_callLimit * 3, stop);
    constexpr int attempts = 3;
    for (int attempt = 1;; ++attempt) {
        const std::string owner = calendarServiceOwner(limit.cancellable());
        if (owner != m_owner)
            retireAll();
        const bool wasOpen = !m_open.empty();
        Result<EventReading> reading = readAll(from, to, ids, stop);
        m_owner = calendarServiceOwner(limit.cancellable());
        const bool isWhole = reading && reading->unreadableCalendars.isEmpty();
        const bool isFirstStart = owner.empty() && !wasOpen && isWhole;
        if (owner == m_owner || isFirstStart || attempt == attempts || stop.stop_requested())
            return reading;
        retireAll();
    }
}

/// What the calendars said before, worked out for the span, when none of them has changed and their services
/// still answer under the names they had.
std::optional<EventReading> EvolutionSession::heldReading(double from, double to, const QStringList &ids,
                                                          const std::stop_token &stop)
{
    std::map<std::string, EvolutionCalendar *> services;
    for (const GlibPointer<ESource> &source : enabledSources()) {
        if (!ids.contains(idOf(source.get())))
            continue;
        const auto open = m_open.find(idOf(source.get()));
        if (open == m_open.end() || !open->second->holds(static_cast<time_t>(from), static_cast<time_t>(to)))
            return std::nullopt;
        services.emplace(open->second->busName(), open->second.get());
    }
    const CallLimit limit(m_callLimit, stop);
    for (const auto &[name, calendar] : services) {
        if (!calendar->ping(limit.cancellable())) {
            forgetReadings();
            return std::nullopt;
        }
    }
    auto reading = readAll(from, to, ids, stop);
    return reading && reading->unreadableCalendars.isEmpty() ? std::optional(std::move(*reading))
                                                             : std::nullopt;
}

void EvolutionSession::forgetReadings()
{
    for (const auto &[id, calendar] : m_open)
        calendar->forget();
}

void EvolutionSession::retireAll()
{
    while (!m_open.empty())
        retire(m_open.begin()->first);
}

/// Letting go of a calendar sends word to its address to close it, and once the service was restarted that is
/// the address of another calendar, perhaps of one just opened. So calendars that failed are kept for a good
/// while.
void EvolutionSession::retire(const QString &id)
{
    constexpr std::size_t most = 100;
    const auto found = m_open.find(id);
    m_retired.push_back(std::move(found->second));
    m_open.erase(found);
    if (m_retired.size() > most)
        m_retired.pop_front();
}

Result<EventReading> EvolutionSession::readAll(double from, double to, const QStringList &ids,
                                               const std::stop_token &stop)
{
    EventReading reading;
    std::error_code firstError;
    bool anyRead = false;
    for (const GlibPointer<ESource> &source : enabledSources()) {
        const QString id = idOf(source.get());
        if (!ids.contains(id))
            continue;
        auto events = read(source.get(), static_cast<time_t>(from), static_cast<time_t>(to), stop);
        if (events) {
            anyRead = true;
            std::move(events->begin(), events->end(), std::back_inserter(reading.events));
        } else {
            reading.unreadableCalendars.append(id);
            firstError = firstError ? firstError : events.error();
        }
    }
    if (!anyRead && firstError)
        return Failure(firstError);
    return reading;
}

Result<std::vector<CalendarEvent>> EvolutionSession::read(ESource *source, time_t from, time_t to,
                                                          const std::stop_token &stop)
{
    if (stop.stop_requested())
        return Failure(make_error_code(CalendarError::timedOut));
    const CallLimit limit(m_callLimit, stop);
    const Result<EvolutionCalendar *> calendar = open(source, limit.cancellable());
    if (!calendar)
        return Failure(calendar.error());
    auto events = (*calendar)->occurrences(idOf(source), nameOf(source), addressesFor(source), from, to,
                                           limit.cancellable());
    if (!events && events.error() != make_error_code(CalendarError::timedOut))
        retire(idOf(source));
    return events;
}

Result<EvolutionCalendar *> EvolutionSession::open(ESource *source, GCancellable *cancellable)
{
    std::unique_ptr<EvolutionCalendar> &calendar = m_open[idOf(source)];
    if (calendar)
        return calendar.get();
    GError *error = nullptr;
    EClient *client =
        e_cal_client_connect_sync(source, E_CAL_CLIENT_SOURCE_TYPE_EVENTS, doNotWait, cancellable, &error);
    if (!client) {
        m_open.erase(idOf(source));
        return Failure(make_error_code(calendarError(GlibError(error))));
    }
    calendar = std::make_unique<EvolutionCalendar>(GlibPointer<ECalClient>(E_CAL_CLIENT(client)), m_changed);
    calendar->watch(cancellable);
    return calendar.get();
}

/// The addresses of the user's mail accounts and of the account that the calendar belongs to.
OwnAddresses EvolutionSession::addressesFor(ESource *source) const
{
    OwnAddresses addresses;
    GList *identities = e_source_registry_list_sources(m_registry.get(), E_SOURCE_EXTENSION_MAIL_IDENTITY);
    for (GList *item = identities; item; item = item->next) {
        const GlibPointer<ESource> mail(static_cast<ESource *>(item->data));
        auto *identity = static_cast<ESourceMailIdentity *>(
            e_source_get_extension(mail.get(), E_SOURCE_EXTENSION_MAIL_IDENTITY));
        addresses.add(QString::fromUtf8(GlibText(e_source_mail_identity_dup_address(identity)).get()));
        const GlibText aliases(e_source_mail_identity_dup_aliases(identity));
        for (const QString &alias : QString::fromUtf8(aliases.get()).split(u','))
            addresses.add(alias.section(u'<', -1).remove(u'>'));
    }
    g_list_free(identities);
    const GlibPointer<ESource> account = parentOf(m_registry.get(), source);
    if (account && e_source_has_extension(account.get(), E_SOURCE_EXTENSION_COLLECTION)) {
        auto *collection = static_cast<ESourceCollection *>(
            e_source_get_extension(account.get(), E_SOURCE_EXTENSION_COLLECTION));
        addresses.add(QString::fromUtf8(GlibText(e_source_collection_dup_identity(collection)).get()));
    }
    return addresses;
}

} // namespace quorvane
