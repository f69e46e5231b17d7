// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/ManagedPlacement.h"

#include "alert/MeetingAlertPanel.h"

#include <QScreen>
#include <QTimer>

#include <chrono>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

// The numbers of the Extended Window Manager Hints (freedesktop.org wm-spec).
constexpr uint32_t onAllDesktops = 0xFFFFFFFF;
constexpr uint32_t stateAdd = 1;
/// "Pager": a request on the user's behalf, which focus-stealing prevention lets pass.
constexpr uint32_t sourcePager = 2;
/// The window manager must have taken the window in before it can activate it.
constexpr auto mappingTime = 50ms;

} // namespace

ManagedPlacement::ManagedPlacement(X11Server server)
    : m_server(std::move(server))
    , m_guard([this] { reclaimKeyboard(); })
{
}

void ManagedPlacement::prepare(MeetingAlertPanel &panel, QScreen &screen)
{
    panel.setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    panel.setScreen(&screen);
    panel.setGeometry(screen.geometry());
    panel.create();
    // Qt reads these when it maps the window, and adds to them.
    m_server.setAtoms(panel, "_NET_WM_STATE",
                      {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_FULLSCREEN",
                       "_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"});
    m_server.setNumber(panel, "_NET_WM_DESKTOP", onAllDesktops);
}

bool ManagedPlacement::show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role)
{
    prepare(panel, screen);
    panel.showFullScreen();
    // Again as requests, for window managers that ignore what a window had before it was mapped.
    m_server.request(
        panel, "_NET_WM_STATE",
        {stateAdd, m_server.atom("_NET_WM_STATE_ABOVE"), m_server.atom("_NET_WM_STATE_STICKY"), sourcePager});
    m_server.request(panel, "_NET_WM_DESKTOP", {onAllDesktops, sourcePager});
    if (role == KeyboardRole::primary)
        takeKeyboard(panel);
    return true;
}

void ManagedPlacement::takeKeyboard(MeetingAlertPanel &panel)
{
    m_keyboardPanel = &panel;
    m_guard.start();
    QTimer::singleShot(mappingTime, &panel, [this] { reclaimKeyboard(); });
}

void ManagedPlacement::remove(MeetingAlertPanel &panel)
{
    if (m_keyboardPanel == &panel) {
        m_keyboardPanel.clear();
        m_guard.stop();
    }
    panel.destroy();
    panel.deleteLater();
}

void ManagedPlacement::reclaimKeyboard()
{
    if (m_keyboardPanel)
        m_server.request(*m_keyboardPanel, "_NET_ACTIVE_WINDOW", {sourcePager, XCB_CURRENT_TIME, 0});
}

} // namespace quorvane
