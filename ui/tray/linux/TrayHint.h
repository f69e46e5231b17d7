// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/linux/DesktopNotice.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace quorvane {

class TrayIcon;

/// Tells the user once, ever, by a notification of the desktop, that there is no tray and how to open the
/// program without one. A tray that comes up in time makes that needless; one that comes later is its own
/// word.
class TrayHint final : public QObject
{
    Q_OBJECT

public:
    /// How long a tray may take to appear.
    static constexpr std::chrono::milliseconds usualPatience{15'000};

    /// Waits for `patience` from now on, and as long again while a tray may still appear. `wasShown` says
    /// whether the user has been told, in this run of the program or an earlier one; `remember` is called
    /// once a notification service has taken the word. `icon` must outlive this.
    TrayHint(TrayIcon &icon, std::function<bool()> wasShown, std::function<void()> remember,
             QObject *parent = nullptr, std::chrono::milliseconds patience = usualPatience);

private:
    void tell();

    const TrayIcon &m_icon;
    std::function<bool()> m_wasShown;
    std::function<void()> m_remember;
    DesktopNotice m_notice;
    QTimer m_wait;
};

} // namespace quorvane
