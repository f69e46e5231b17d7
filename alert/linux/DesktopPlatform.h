// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

namespace quorvane {

class PanelPlacement;

/// The kinds of session that want panels of different kinds.
enum class SessionKind {
    /// Wayland with layer-shell: sway, KDE and others.
    layerShell,
    /// Wayland without it, but with Xwayland: GNOME.
    managedX11,
    /// Wayland with neither.
    bareWayland,
    /// X11.
    x11,
    /// No display server is reachable.
    none,
};

/// Probes the session and prepares Qt for it (platform plugin, rendering by the processor). Call in main()
/// before QGuiApplication. A QT_QPA_PLATFORM or QT_QUICK_BACKEND of the user's is left as it is.
SessionKind preparePlatform();

/// The way of placing panels that fits the platform that QGuiApplication runs on. Destroy it before
/// QGuiApplication.
[[nodiscard]] std::unique_ptr<PanelPlacement> choosePlacement();

} // namespace quorvane
