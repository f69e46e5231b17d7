// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// What the session offers, as the environment and the Wayland compositor say. Usable before QGuiApplication.
struct SessionProbe
{
    /// A Wayland compositor answers.
    bool hasWayland = false;
    /// It knows zwlr_layer_shell_v1.
    bool hasLayerShell = false;
    /// An X server is named (with Wayland: Xwayland).
    bool hasX11 = false;

    /// Connects to the compositor, asks once and disconnects: under 2 milliseconds.
    [[nodiscard]] static SessionProbe run();
};

} // namespace quorvane
