// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/LayerShell.h"

#include "alert/linux/LayerShellProtocol.h"

#include <QGuiApplication>

#include <qpa/qplatformnativeinterface.h>

#include <algorithm>
#include <cstring>

namespace quorvane {

namespace {

constexpr uint32_t knownVersion = 4;

void noteGlobal(void *data, wl_registry *registry, uint32_t name, const char *interface, uint32_t version)
{
    auto *shell = static_cast<zwlr_layer_shell_v1 **>(data);
    if (*shell != nullptr || std::strcmp(interface, zwlr_layer_shell_v1_interface.name) != 0)
        return;
    *shell = static_cast<zwlr_layer_shell_v1 *>(
        wl_registry_bind(registry, name, &zwlr_layer_shell_v1_interface, std::min(version, knownVersion)));
}

void noteRemoval(void *, wl_registry *, uint32_t) {}

constexpr wl_registry_listener registryListener = {.global = noteGlobal, .global_remove = noteRemoval};

} // namespace

std::unique_ptr<LayerShell> LayerShell::bind()
{
    QPlatformNativeInterface *native = QGuiApplication::platformNativeInterface();
    if (native == nullptr || !QGuiApplication::platformName().startsWith(QLatin1StringView("wayland")))
        return nullptr;
    auto *display = static_cast<wl_display *>(native->nativeResourceForIntegration("wl_display"));
    if (display == nullptr)
        return nullptr;
    std::unique_ptr<LayerShell> shell(new LayerShell(display));
    return shell->m_shell != nullptr ? std::move(shell) : nullptr;
}

LayerShell::LayerShell(wl_display *display)
    : m_display(display)
    , m_queue(wl_display_create_queue(display))
{
    // A queue of our own, so that our waiting never delivers an event of Qt's.
    auto *wrapper = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(wrapper), m_queue);
    wl_registry *registry = wl_display_get_registry(wrapper);
    wl_proxy_wrapper_destroy(wrapper);
    wl_registry_add_listener(registry, &registryListener, &m_shell);
    wl_display_roundtrip_queue(display, m_queue);
    wl_registry_destroy(registry);
}

LayerShell::~LayerShell()
{
    // Without the application the connection is gone, and everything on it.
    if (qGuiApp == nullptr)
        return;
    if (m_shell != nullptr)
        wl_proxy_destroy(reinterpret_cast<wl_proxy *>(m_shell));
    wl_event_queue_destroy(m_queue);
}

bool LayerShell::roundTrip() const
{
    return wl_display_roundtrip_queue(m_display, m_queue) >= 0;
}

void LayerShell::deliverPending() const
{
    wl_display_dispatch_queue_pending(m_display, m_queue);
}

} // namespace quorvane
