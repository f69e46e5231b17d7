// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/TrayHint.h"

#include "ui/tray/linux/TrayIcon.h"

namespace quorvane {

TrayHint::TrayHint(TrayIcon &icon, std::function<bool()> wasShown, std::function<void()> remember,
                   QObject *parent, std::chrono::milliseconds patience)
    : QObject(parent)
    , m_icon(icon)
    , m_wasShown(std::move(wasShown))
    , m_remember(std::move(remember))
    , m_notice(this)
{
    connect(&m_notice, &DesktopNotice::taken, this, [this] { m_remember(); });
    m_wait.setSingleShot(true);
    m_wait.setInterval(patience);
    connect(&m_wait, &QTimer::timeout, this, &TrayHint::tell);
    m_wait.start();
}

void TrayHint::tell()
{
    if (m_icon.mayAppear()) {
        m_wait.start();
        return;
    }
    if (m_wasShown() || m_icon.hasAppeared())
        return;
    m_notice.show({tr("Quorvane is running without an icon"),
                   tr("This desktop has no tray. To open Quorvane, start it again.")});
}

} // namespace quorvane
