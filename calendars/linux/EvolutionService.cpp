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

Failure failure(GError *error)
{
    return Failure(make_error_code(calendarError(GlibError(error))));
}

/// Null when there is none. What hangs may be one.
Result<GlibPointer<GDBusConnection>> sessionBus(GCancellable *cancellable)
{
    GError *error = nullptr;
    GlibPointer<GDBusConnection> bus(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable, &error));
    if (!bus && calendarError(GlibError(error)) == CalendarError::timedOut)
        return Failure(make_error_code(CalendarError::timedOut));
    return bus;
}

/// The name with this prefix, if the bus lists one; `method` is ListNames or ListActivatableNames.
Result<std::optional<std::string>> serviceName(GDBusConnection *bus, const char *prefix, const char *method,
                                               GCancellable *cancellable)
{
    GError *error = nullptr;
    const Variant answer(g_dbus_connection_call_sync(bus, busName, "/org/freedesktop/DBus", busName, method,
                                                     nullptr, G_VARIANT_TYPE("(as)"), G_DBUS_CALL_FLAGS_NONE,
                                                     -1, cancellable, &error),
                         g_variant_unref);
    if (!answer)
        return failure(error);
    const Variant names(g_variant_get_child_value(answer.get(), 0), g_variant_unref);
    for (gsize i = 0; i < g_variant_n_children(names.get()); ++i) {
        const Variant name(g_variant_get_child_value(names.get(), i), g_variant_unref);
        const char *text = g_variant_get_string(name.get(), nullptr);
        if (g_str_has_prefix(text, prefix))
            return text;
    }
    return std::nullopt;
}

Result<bool> ping(GDBusConnection *bus, const std::string &name, GCancellable *cancellable)
{
    GError *error = nullptr;
    const Variant answer(g_dbus_connection_call_sync(bus, name.c_str(), "/", "org.freedesktop.DBus.Peer",
                                                     "Ping", nullptr, nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
                                                     cancellable, &error),
                         g_variant_unref);
    if (!answer)
        return failure(error);
    return true;
}

} // namespace

Result<bool> wakeEvolutionService(GCancellable *cancellable)
{
    const Result<GlibPointer<GDBusConnection>> bus = sessionBus(cancellable);
    if (!bus)
        return Failure(bus.error());
    if (!*bus)
        return false;
    // By default GLib ends the process with its session bus.
    g_dbus_connection_set_exit_on_close(bus->get(), FALSE);
    for (const char *list : {"ListNames", "ListActivatableNames"}) {
        const auto name = serviceName(bus->get(), serviceNamePrefix, list, cancellable);
        if (!name)
            return Failure(name.error());
        if (*name)
            return ping(bus->get(), **name, cancellable);
    }
    return false;
}

std::string calendarServiceOwner(GCancellable *cancellable)
{
    const Result<GlibPointer<GDBusConnection>> bus = sessionBus(cancellable);
    if (!bus || !*bus)
        return {};
    const auto name = serviceName(bus->get(), calendarServicePrefix, "ListNames", cancellable);
    if (!name || !*name)
        return {};
    const Variant answer(g_dbus_connection_call_sync(bus->get(), busName, "/org/freedesktop/DBus", busName,
                                                     "GetNameOwner", g_variant_new("(s)", (*name)->c_str()),
                                                     G_VARIANT_TYPE("(s)"), G_DBUS_CALL_FLAGS_NONE, -1,
                                                     cancellable, nullptr),
                         g_variant_unref);
    const char *owner = "";
    if (answer)
        g_variant_get(answer.get(), "(&s)", &owner);
    return owner;
}

} // namespace quorvane
