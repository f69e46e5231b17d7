// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/DisplayWaker.h"

#include <QObject>

#include <cstdint>
#include <optional>

namespace quorvane {

/// Lights blanked displays by all the ways that desktops offer: the freedesktop.org idle-inhibition service,
/// GNOME's display configuration, KDE's simulated activity, the X server's screen saver. What is not there
/// stays silent.
class DesktopDisplayWaker final : public QObject, public DisplayWaker
{
    Q_OBJECT

public:
    explicit DesktopDisplayWaker(QObject *parent = nullptr);

    void wake() override;
    void release() override;

private:
    void inhibitBlanking();
    void allowBlanking(uint32_t cookie);

    /// Counts the calls of `wake` and `release`: an answer that comes after a later call is void.
    int m_turn = 0;
    std::optional<uint32_t> m_cookie;
};

} // namespace quorvane
