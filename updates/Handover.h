// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>

namespace quorvane {

/// What a copy of the program tells the newer one that takes over from it.
struct Handover
{
    enum class Window { closed, open };

    /// Unix time in seconds until which alerts are paused.
    std::optional<double> pausedUntil;
    /// The dashboard.
    Window window = Window::closed;

    bool operator==(const Handover &) const = default;
};

} // namespace quorvane
