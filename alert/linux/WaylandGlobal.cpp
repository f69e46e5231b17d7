// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/WaylandGlobal.h"

#include <QGuiApplication>

#include <qpa/qplatformnativeinterface.h>
#include <wayland-client.h>

#include <algorithm>
#include <cstring>

namespace quorvane {

namespace {

struct Search
{
    const wl_interface &interface;
    uint32_t version;
    wl_proxy *found = nullptr;
};

void bindWanted(void *data, wl_registry *registry, uint32_t name, const char *interface, uint32_t version)
{
    auto *search = static_cast<Search *>(data);
    if (search->found != nullptr || std::strcmp(interface, search->interface.name) != 0)
        return;
    search->found = static_cast<wl_proxy *>(
        wl_registry_bind(registry, name, &search->interface, std::min(version, search->version)));
}

void noteRemoval(void *, wl_registry *, uint32_t) {}

constexpr wl_registry_listener registryListener = {.global = bindWanted, .global_remove = noteRemoval};

} // namespace

std::unique_ptr<WaylandGlobal> WaylandGlobal::bind(const wl_interface &interface, uint32_t version)
{
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    if (native == nullptr || !QGuiApplication::platformName().startsWith(QLatin1StringView("wayland")))
        return nullptr;
    auto *display = static_cast<wl_display *>(native->nativeResourceForIntegration("wl_display"));
    if (display == nullptr)
        return nullptr;
    std::unique_ptr<WaylandGlobal> global(new WaylandGlobal(display, interface, version));
    return global->m_proxy != nullptr ? std::move(global) : nullptr;
}

WaylandGlobal::WaylandGlobal(wl_display *display, const wl_interface &interface, uint32_t version)
    : m_display(display)
    , m_queue(wl_display_create_queue(display))
{
    // A queue of our own, so that our waiting never delivers an event of Qt's.
    auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue);
    wl_registry *registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    Search search{.interface = interface, .version = version};
    wl_registry_add_listener(registry, &registryListener, &search);
    wl_display_roundtrip_queue(display, m_queue);
    wl_registry_destroy(registry);
    m_proxy = search.found;
}

WaylandGlobal::~WaylandGlobal()
{
    // Without the application the connection is gone, and everything on it.
    if (qGuiApp == nullptr)
        return;
    if (m_proxy != nullptr)
        wl_proxy_destroy(m_proxy);
    wl_event_queue_destroy(m_queue);
}

bool WaylandGlobal::roundTrip() const
{
    return wl_display_roundtrip_queue(m_display, m_queue) >= 0;
}

void WaylandGlobal::deliverPending() const
{
    wl_display_dispatch_queue_pending(m_display, m_queue);
}

void WaylandGlobal::flush() const
{
    wl_display_flush(m_display);
}

} // namespace quorvane
