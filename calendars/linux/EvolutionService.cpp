// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/EvolutionService.h"

#include "calendars/ical/GlibPointer.h"
#include "calendars/linux/EvolutionError.h"

#include <memory>
#include <optional>
#include <string>

namespace quorvane {
namespace {

using Variant = std::unique_ptr<GVariant, decltype(&g_variant_unref)>;

constexpr const char *busName = "org.freedesktop.DBus";
/// A number follows, which counts the versions of the service's interface.
constexpr const char *serviceNamePrefix = "org.gnome.evolution.dataserver.Sources";
constexpr const char *calendarServicePrefix = "org.gnome.evolution.dataserver.Calendar";

Failure unavailable()
{
    return Failure(make_error_code(CalendarError::unavailable));
}

/// The name with this prefix, if the bus lists one; `method` is ListNames or ListActivatableNames.
std::optional<std::string> serviceName(GDBusConnection *bus, const char *prefix, const char *method,
                                       GCancellable *cancellable)
{
    const Variant answer(g_dbus_connection_call_sync(bus, busName, "/org/freedesktop/DBus", busName, method,
                                                     nullptr, G_VARIANT_TYPE("(as)"), G_DBUS_CALL_FLAGS_NONE,
                                                     -1, cancellable, nullptr),
                         g_variant_unref);
    if (!answer)
        return std::nullopt;
    const Variant names(g_variant_get_child_value(answer.get(), 0), g_variant_unref);
    for (gsize i = 0; i < g_variant_n_children(names.get()); ++i) {
        const Variant name(g_variant_get_child_value(names.get(), i), g_variant_unref);
        const char *text = g_variant_get_string(name.get(), nullptr);
        if (g_str_has_prefix(text, prefix))
            return text;
    }
    return std::nullopt;
}

} // namespace

Result<void> wakeEvolutionService(GCancellable *cancellable)
{
    const GlibPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
    if (!bus)
        return unavailable();
    // By default GLib ends the process with its session bus.
    g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
    std::optional<std::string> name = serviceName(bus.get(), serviceNamePrefix, "ListNames", cancellable);
    if (!name)
        name = serviceName(bus.get(), serviceNamePrefix, "ListActivatableNames", cancellable);
    if (!name)
        return unavailable();
    GError *error = nullptr;
    const Variant answer(g_dbus_connection_call_sync(bus.get(), name->c_str(), "/",
                                                     "org.freedesktop.DBus.Peer", "Ping", nullptr, nullptr,
                                                     G_DBUS_CALL_FLAGS_NONE, -1, cancellable, &error),
                         g_variant_unref);
    if (!answer)
        return Failure(make_error_code(calendarError(GlibError(error))));
    return {};
}

std::string calendarServiceOwner(GCancellable *cancellable)
{
    const GlibPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, nullptr));
    const auto name =
        bus ? serviceName(bus.get(), calendarServicePrefix, "ListNames", cancellable) : std::nullopt;
    if (!name)
        return {};
    const Variant answer(g_dbus_connection_call_sync(bus.get(), busName, "/org/freedesktop/DBus", busName,
                                                     "GetNameOwner", g_variant_new("(s)", name->c_str()),
                                                     G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, -1,
                                                     cancellable, nullptr),
                         g_variant_unref);
    const char *owner = "";
    if (answer)
        g_variant_get(answer.get(), "(&s)", &owner);
    return owner;
}

} // namespace quorvane
