// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/PanelPlacement.h"

#include <QObject>
#include <QSize>

#include <memory>

class QScreen;
class QWindow;
struct wl_surface;
struct zwlr_layer_surface_v1;

namespace quorvane {

class LayerShell;

/// The layer-shell role of one window: an overlay over the whole of one output. The window must have been
/// created with Qt::BypassWindowManagerHint and have no role yet; it can be shown once the role is there.
class LayerRole final : public QObject
{
    Q_OBJECT

public:
    /// Null when the compositor does not grant the role (the output is going away).
    [[nodiscard]] static std::unique_ptr<LayerRole> give(const LayerShell &shell, QWindow &window,
                                                         QScreen &screen, KeyboardRole keyboard);
    ~LayerRole() override;

    /// The size that the compositor gives the window.
    [[nodiscard]] QSize size() const { return m_size; }

    /// Asks for the keyboard, also when the window should have had it already.
    void takeKeyboard();

Q_SIGNALS:
    /// The compositor has taken the window off the output.
    void closed();

private:
    LayerRole(QWindow &window, QScreen &screen, wl_surface *surface);

    [[nodiscard]] bool request(const LayerShell &shell, KeyboardRole keyboard);
    void configure(zwlr_layer_surface_v1 *role, uint32_t serial, QSize size);
    Q_SLOT void drop();

    QWindow &m_window;
    QScreen &m_screen;
    wl_surface *m_surface;
    zwlr_layer_surface_v1 *m_role = nullptr;
    QSize m_size;
};

} // namespace quorvane
