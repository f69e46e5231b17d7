// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/LayerRole.h"

#include "alert/linux/LayerShell.h"
#include "alert/linux/LayerShellProtocol.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformwindow.h>

#include <utility>

namespace quorvane {

namespace {

constexpr uint32_t allEdges = ZWLR_LAYER_SURFACE_V1_ANCHOR_TOP | ZWLR_LAYER_SURFACE_V1_ANCHOR_BOTTOM |
                              ZWLR_LAYER_SURFACE_V1_ANCHOR_LEFT | ZWLR_LAYER_SURFACE_V1_ANCHOR_RIGHT;
/// Over panels and docks too, instead of beside them.
constexpr int overReservedAreas = -1;

uint32_t interactivity(KeyboardRole role)
{
    return role == KeyboardRole::primary ? ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_EXCLUSIVE
                                         : ZWLR_LAYER_SURFACE_V1_KEYBOARD_INTERACTIVITY_NONE;
}

} // namespace

std::unique_ptr<LayerRole> LayerRole::give(const LayerShell &shell, QWindow &window, QScreen &screen,
                                           KeyboardRole keyboard)
{
    auto *native = QGuiApplication::platformNativeInterface();
    auto *surface = static_cast<wl_surface *>(native->nativeResourceForWindow("surface", &window));
    if (surface == nullptr)
        return nullptr;
    std::unique_ptr<LayerRole> role(new LayerRole(window, screen, surface));
    return role->request(shell, keyboard) ? std::move(role) : nullptr;
}

LayerRole::LayerRole(QWindow &window, QScreen &screen, wl_surface *surface)
    : m_window(window)
    , m_screen(screen)
    , m_surface(surface)
{
}

LayerRole::~LayerRole()
{
    drop();
}

bool LayerRole::request(const LayerShell &shell, KeyboardRole keyboard)
{
    // The role must be gone before its surface. Qt destroys the surface on its own when a window is hidden or
    // closed, and its Wayland window (a QObject) says so just before; QPlatformSurfaceEvent comes too late.
    auto *platformWindow = dynamic_cast<QObject *>(m_window.handle());
    if (platformWindow == nullptr ||
        !connect(platformWindow, SIGNAL(wlSurfaceDestroyed()), this, SLOT(drop())))
        return false;

    auto *native = QGuiApplication::platformNativeInterface();
    auto *output = static_cast<wl_output *>(native->nativeResourceForScreen("output", &m_screen));
    m_role = zwlr_layer_shell_v1_get_layer_surface(shell.shell(), m_surface, output,
                                                   ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY, "meeting-alert");
    static constexpr zwlr_layer_surface_v1_listener listener = {
        .configure =
            [](void *data, zwlr_layer_surface_v1 *role, uint32_t serial, uint32_t width, uint32_t height) {
                static_cast<LayerRole *>(data)->configure(
                    role, serial, {static_cast<int>(width), static_cast<int>(height)});
            },
        .closed = [](void *data,
                     zwlr_layer_surface_v1 *) { Q_EMIT static_cast<LayerRole *>(data)->closed(); },
    };
    zwlr_layer_surface_v1_add_listener(m_role, &listener, this);
    zwlr_layer_surface_v1_set_size(m_role, 0, 0);
    zwlr_layer_surface_v1_set_anchor(m_role, allEdges);
    zwlr_layer_surface_v1_set_exclusive_zone(m_role, overReservedAreas);
    zwlr_layer_surface_v1_set_keyboard_interactivity(m_role, interactivity(keyboard));
    wl_surface_commit(m_surface);

    constexpr int patience = 5;
    for (int i = 0; i < patience && m_size.isEmpty(); ++i) {
        if (!shell.roundTrip())
            return false;
    }
    if (m_size.isEmpty())
        return false;
    // From now on Qt's own loop delivers the role's events, on the main thread.
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(m_role), nullptr);
    shell.deliverPending();
    return true;
}

void LayerRole::configure(zwlr_layer_surface_v1 *role, uint32_t serial, QSize size)
{
    zwlr_layer_surface_v1_ack_configure(role, serial);
    const bool isFirst = m_size.isEmpty();
    m_size = size.isEmpty() ? m_screen.geometry().size() : size;
    if (!isFirst && m_window.size() != m_size)
        m_window.resize(m_size);
}

void LayerRole::takeKeyboard()
{
    if (m_role == nullptr)
        return;
    // KWin 5.27 lets a newly mapped window take the keyboard from an exclusive surface; asking for it anew
    // gets it back.
    for (const KeyboardRole keyboard : {KeyboardRole::none, KeyboardRole::primary}) {
        zwlr_layer_surface_v1_set_keyboard_interactivity(m_role, interactivity(keyboard));
        wl_surface_commit(m_surface);
    }
}

void LayerRole::drop()
{
    if (m_role != nullptr)
        zwlr_layer_surface_v1_destroy(std::exchange(m_role, nullptr));
}

} // namespace quorvane
