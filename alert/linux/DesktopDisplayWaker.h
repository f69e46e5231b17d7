// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/DisplayWaker.h"

#include <QObject>

#include <cstdint>
#include <memory>
#include <optional>

namespace quorvane {

class OutputPower;

/// Lights blanked displays by all the ways that desktops offer: the freedesktop.org idle-inhibition service,
/// GNOME's display configuration, KDE's simulated activity, the X server's screen saver, the power of wlroots
/// compositors' outputs. What is not there stays silent. Destroy it before QGuiApplication.
class DesktopDisplayWaker final : public QObject, public DisplayWaker
{
    Q_OBJECT

public:
    /// Needs QGuiApplication.
    explicit DesktopDisplayWaker(QObject *parent = nullptr);
    ~DesktopDisplayWaker() override;

    void wake() override;
    void release() override;

private:
    void inhibitBlanking();
    void allowBlanking(uint32_t cookie);

    /// Null where the compositor does not offer it.
    std::unique_ptr<OutputPower> m_outputPower;
    /// Counts the calls of `wake` and `release`: an answer that comes after a later call is void.
    int m_turn = 0;
    std::optional<uint32_t> m_cookie;
};

} // namespace quorvane
