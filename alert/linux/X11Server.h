// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QWindow>

#include <xcb/xcb.h>

#include <initializer_list>
#include <optional>

namespace quorvane {

/// The X server that Qt is connected to, and the few requests that panels need beyond Qt's own. The requests
/// are sent at once and not waited for.
class X11Server
{
public:
    /// Absent unless Qt runs on the xcb platform.
    [[nodiscard]] static std::optional<X11Server> current();

    /// Whether the server is Xwayland, whose windows a Wayland compositor manages.
    [[nodiscard]] bool isXwayland() const;

    /// Sets a window's property to atoms or to one number, before the window is mapped.
    void setAtoms(const QWindow &window, const char *property, std::initializer_list<const char *> values);
    void setNumber(const QWindow &window, const char *property, uint32_t value);

    /// Asks the window manager for something by a client message to the root window.
    void request(const QWindow &window, const char *type, std::initializer_list<uint32_t> data);

    [[nodiscard]] xcb_atom_t atom(const char *name);

    /// The window that has the keyboard; one round trip.
    [[nodiscard]] xcb_window_t focusedWindow() const;
    /// Gives the keyboard to a window, or does nothing when it cannot take it or is gone.
    void focus(xcb_window_t window) const;

    /// Wakes the displays: resets the screen saver and switches power saving off for now.
    void wakeDisplays() const;

    [[nodiscard]] xcb_window_t root() const { return m_root; }

private:
    explicit X11Server(xcb_connection_t *connection);

    xcb_connection_t *m_connection;
    xcb_window_t m_root;
    QHash<QByteArray, xcb_atom_t> m_atoms;
};

} // namespace quorvane
