// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/OverrideRedirectPlacement.h"

#include "alert/MeetingAlertPanel.h"

#include <QScreen>

#include <utility>

namespace quorvane {

OverrideRedirectPlacement::OverrideRedirectPlacement(X11Server server)
    : m_server(std::move(server))
    , m_guard([this] { reclaimKeyboard(); })
{
}

void OverrideRedirectPlacement::prepare(MeetingAlertPanel &panel, QScreen &screen)
{
    panel.setFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::BypassWindowManagerHint);
    panel.setScreen(&screen);
    panel.setGeometry(screen.geometry());
    panel.create();
}

bool OverrideRedirectPlacement::show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role)
{
    prepare(panel, screen);
    // Nobody else moves an unmanaged window when the display's mode changes.
    QObject::connect(&screen, &QScreen::geometryChanged, &panel,
                     [&panel](const QRect &geometry) { panel.setGeometry(geometry); });
    panel.show();
    panel.raise();
    if (role == KeyboardRole::primary)
        takeKeyboard(panel);
    return true;
}

void OverrideRedirectPlacement::takeKeyboard(MeetingAlertPanel &panel)
{
    m_keyboardPanel = &panel;
    m_guard.start();
    reclaimKeyboard();
}

void OverrideRedirectPlacement::remove(MeetingAlertPanel &panel)
{
    if (m_keyboardPanel == &panel) {
        m_keyboardPanel.clear();
        m_guard.stop();
        returnKeyboard();
    }
    panel.destroy();
    panel.deleteLater();
}

void OverrideRedirectPlacement::reclaimKeyboard()
{
    if (!m_keyboardPanel)
        return;
    const xcb_window_t focused = m_server.focusedWindow();
    if (focused != m_keyboardPanel->winId())
        m_previousFocus = focused;
    m_keyboardPanel->raise();
    m_keyboardPanel->requestActivate();
}

void OverrideRedirectPlacement::returnKeyboard()
{
    const xcb_window_t previous = std::exchange(m_previousFocus, XCB_WINDOW_NONE);
    const bool isWindow = previous > XCB_INPUT_FOCUS_POINTER_ROOT && previous != m_server.root();
    if (isWindow)
        m_server.focus(previous);
}

} // namespace quorvane
