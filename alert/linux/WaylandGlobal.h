// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <memory>

struct wl_display;
struct wl_event_queue;
struct wl_interface;
struct wl_proxy;

namespace quorvane {

/// One of the compositor's globals, bound on Qt's own Wayland connection with an event queue of its own,
/// which the objects made from it inherit. Main thread only; destroy it before QGuiApplication.
class WaylandGlobal final
{
public:
    /// Asks the compositor and waits for its answer. `version` is the newest that the caller knows. Null
    /// unless Qt runs on Wayland and the compositor offers the interface.
    [[nodiscard]] static std::unique_ptr<WaylandGlobal> bind(const wl_interface &interface, uint32_t version);

    ~WaylandGlobal();
    WaylandGlobal(const WaylandGlobal &) = delete;
    WaylandGlobal &operator=(const WaylandGlobal &) = delete;

    [[nodiscard]] wl_proxy *proxy() const { return m_proxy; }

    /// Waits until the compositor has handled what was sent; false when the connection is broken. Dispatches
    /// only the events of the global's own queue, none of Qt's.
    [[nodiscard]] bool roundTrip() const;
    /// Delivers events that have already come for the global's own queue.
    void deliverPending() const;
    /// Sends what is waiting to be sent, without waiting for anything.
    void flush() const;

private:
    WaylandGlobal(wl_display *display, const wl_interface &interface, uint32_t version);

    wl_display *m_display;
    wl_event_queue *m_queue;
    wl_proxy *m_proxy = nullptr;
};

} // namespace quorvane
