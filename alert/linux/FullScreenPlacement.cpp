// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/FullScreenPlacement.h"

#include "alert/MeetingAlertPanel.h"
#include "alert/linux/FrameSettler.h"

#include <QGuiApplication>
#include <QScreen>

namespace quorvane {

namespace {

/// In milliseconds.
constexpr qint64 mappingPatience = 1000;

} // namespace

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
    map(panel);
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
    m_unpainted.erase(&panel);
    if (m_panels.empty())
        m_guard.stop();
    FrameSettler::whenSettled(panel, [&panel] { delete &panel; });
}

void FullScreenPlacement::map(MeetingAlertPanel &panel)
{
    panel.showFullScreen();
    m_unpainted.insert(&panel);
    m_sinceMapping.start();
    QObject::connect(
        &panel, &QQuickWindow::frameSwapped, &m_guard, [this, &panel] { m_unpainted.erase(&panel); },
        Qt::SingleShotConnection);
}

void FullScreenPlacement::mapAgain()
{
    // A busy compositor may take longer to show the panels than the guard waits; to begin anew each time
    // would never let it finish.
    if (!m_unpainted.empty() && !m_sinceMapping.hasExpired(mappingPatience))
        return;
    m_isStillNeeded.reset();
    for (const QPointer<MeetingAlertPanel> &panel : m_panels)
        FrameSettler::whenSettled(*panel, [this, panel = panel.data()] { mapAgain(*panel); });
}

void FullScreenPlacement::mapAgain(MeetingAlertPanel &panel)
{
    // The keyboard may have come back meanwhile; what the first panel finds holds for all of them.
    if (!m_isStillNeeded)
        m_isStillNeeded = qobject_cast<MeetingAlertPanel *>(QGuiApplication::focusWindow()) == nullptr;
    if (!*m_isStillNeeded)
        return;
    panel.hide();
    map(panel);
    if (!m_panels.empty())
        m_panels.back()->requestActivate();
}

} // namespace quorvane
