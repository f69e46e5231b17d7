// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/SessionProbe.h"

#include <QString>
#include <QtGlobal>

#include <wayland-client.h>

#include <cstring>

namespace quorvane {

namespace {

void noteInterface(void *data, wl_registry *, uint32_t, const char *interface, uint32_t)
{
    auto *probe = static_cast<SessionProbe *>(data);
    probe->hasLayerShell |= std::strcmp(interface, "zwlr_layer_shell_v1") == 0;
}

void passOver(void *, wl_registry *, uint32_t) {}

constexpr wl_registry_listener interfaceListener = {.global = noteInterface, .global_remove = passOver};

} // namespace

SessionProbe SessionProbe::run()
{
    SessionProbe probe;
    probe.hasX11 = !qEnvironmentVariableIsEmpty("DISPLAY");
    // WAYLAND_SOCKET is a connection that can be used once only; it is Qt's.
    if (qEnvironmentVariableIsSet("WAYLAND_SOCKET")) {
        probe.hasWayland = true;
        return probe;
    }
    // Without a word of Wayland in the environment the default socket would be that of another session of the
    // user's.
    const bool isWaylandSession = !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                                  qEnvironmentVariable("XDG_SESSION_TYPE") == QLatin1StringView("wayland");
    if (!isWaylandSession)
        return probe;
    wl_display *display = wl_display_connect(nullptr);
    if (display == nullptr)
        return probe;
    wl_registry *registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &interfaceListener, &probe);
    probe.hasWayland = wl_display_roundtrip(display) >= 0;
    wl_registry_destroy(registry);
    wl_display_disconnect(display);
    return probe;
}

} // namespace quorvane
