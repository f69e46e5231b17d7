// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/linux/WaylandGlobal.h"

#include <memory>

struct zwlr_layer_shell_v1;

namespace quorvane {

/// The compositor's zwlr_layer_shell_v1 on Qt's own Wayland connection. Main thread only; destroy it before
/// QGuiApplication.
class LayerShell final
{
public:
    /// Null unless Qt runs on Wayland and the compositor offers the protocol.
    [[nodiscard]] static std::unique_ptr<LayerShell> bind();

    [[nodiscard]] zwlr_layer_shell_v1 *shell() const;

    /// Waits until the compositor has handled what was sent; false when the connection is broken. Dispatches
    /// only the events of objects made from `shell`, none of Qt's.
    [[nodiscard]] bool roundTrip() const { return m_global->roundTrip(); }
    /// Delivers events that have already come for objects made from `shell`.
    void deliverPending() const { m_global->deliverPending(); }

private:
    explicit LayerShell(std::unique_ptr<WaylandGlobal> global);

    std::unique_ptr<WaylandGlobal> m_global;
};

} // namespace quorvane
