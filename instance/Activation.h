// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace quorvane {

/// What the running copy is wished to do, and what lets its window come to the front: a desktop takes a
/// window that nobody asked for as an intruder.
struct Activation
{
    enum class Wish {
        /// It should only say that it is there.
        nothing,
        window,
        windowAndSampleAlert,
    };

    Wish wish = Wish::window;
    /// xdg-activation-v1, on Wayland.
    QString token;
    /// Startup Notification Protocol, on X11.
    QString startupId;

    bool operator==(const Activation &) const = default;

    /// What a start by a person wishes that has these arguments, in the environment of this process.
    [[nodiscard]] static Activation ofStart(const QStringList &arguments);

    /// As the desktop hands it over ("platform data", Desktop Entry Specification 1.5, D-Bus activation).
    [[nodiscard]] static Activation fromPlatformData(const QVariantMap &data);
    [[nodiscard]] QVariantMap platformData() const;
};

} // namespace quorvane
