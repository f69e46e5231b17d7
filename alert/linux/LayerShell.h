// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

struct wl_display;
struct wl_event_queue;
struct zwlr_layer_shell_v1;

namespace quorvane {

/// The compositor's zwlr_layer_shell_v1 on Qt's own Wayland connection. Main thread only; destroy it before
/// QGuiApplication.
class LayerShell final
{
public:
    /// Null unless Qt runs on Wayland and the compositor offers the protocol.
    [[nodiscard]] static std::unique_ptr<LayerShell> bind();

    ~LayerShell();
    LayerShell(const LayerShell &) = delete;
    LayerShell &operator=(const LayerShell &) = delete;

    [[nodiscard]] zwlr_layer_shell_v1 *shell() const { return m_shell; }

    /// Waits until the compositor has handled what was sent; false when the connection is broken. Dispatches
    /// only the events of objects made from `shell`, none of Qt's.
    [[nodiscard]] bool roundTrip() const;
    /// Delivers events that have already come for objects made from `shell`.
    void deliverPending() const;

private:
    explicit LayerShell(wl_display *display);

    wl_display *m_display;
    wl_event_queue *m_queue;
    zwlr_layer_shell_v1 *m_shell = nullptr;
};

} // namespace quorvane
