// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/FullScreenPlacement.h"

#include "alert/MeetingAlertPanel.h"

#include <QGuiApplication>
#include <QScreen>

namespace quorvane {

FullScreenPlacement::FullScreenPlacement()
    : m_guard([this] { mapAgain(); })
{
}

void FullScreenPlacement::prepare(MeetingAlertPanel &panel, QScreen &screen)
{
    panel.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    panel.setScreen(&screen);
    panel.setGeometry(screen.geometry());
    panel.create();
}

bool FullScreenPlacement::show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role)
{
    prepare(panel, screen);
    panel.showFullScreen();
    m_panels.emplace_back(&panel);
    if (role == KeyboardRole::primary)
        takeKeyboard(panel);
    return true;
}

void FullScreenPlacement::takeKeyboard(MeetingAlertPanel &panel)
{
    std::erase(m_panels, &panel);
    m_panels.emplace_back(&panel);
    m_guard.start();
    panel.requestActivate();
}

void FullScreenPlacement::remove(MeetingAlertPanel &panel)
{
    std::erase(m_panels, &panel);
    if (m_panels.empty())
        m_guard.stop();
    panel.destroy();
}

void FullScreenPlacement::mapAgain()
{
    for (const QPointer<MeetingAlertPanel> &panel : m_panels) {
        panel->hide();
        panel->showFullScreen();
    }
    if (!m_panels.empty())
        m_panels.back()->requestActivate();
}

} // namespace quorvane
