// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/LayerShellPlacement.h"

#include "alert/MeetingAlertPanel.h"
#include "alert/linux/FrameSettler.h"
#include "alert/linux/LayerRole.h"
#include "alert/linux/LayerShell.h"

#include <QScreen>
#include <QTimer>

#include <qpa/qplatformscreen.h>

#include <chrono>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// After the compositor has closed a panel: if its output was going away, the news has come by then.
constexpr auto closingTime = 250ms;

} // namespace

LayerShellPlacement::LayerShellPlacement(std::unique_ptr<LayerShell> shell)
    : m_shell(std::move(shell))
    , m_guard([this] { reclaimKeyboard(); })
{
}

LayerShellPlacement::~LayerShellPlacement() = default;

void LayerShellPlacement::prepare(MeetingAlertPanel &panel, QScreen &screen)
{
    panel.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    panel.setScreen(&screen);
    panel.setGeometry(screen.geometry());
    panel.create();
}

bool LayerShellPlacement::show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role)
{
    // With no output left Qt keeps a screen without an output behind it.
    if (screen.handle() == nullptr || screen.handle()->isPlaceholder())
        return false;
    prepare(panel, screen);
    std::unique_ptr<LayerRole> layer = LayerRole::give(*m_shell, panel, screen, role);
    if (!layer) {
        panel.destroy();
        return m_fullScreen.show(panel, screen, role);
    }
    QObject::connect(
        layer.get(), &LayerRole::closed, &panel, [this, &panel] { showAgain(panel); }, Qt::QueuedConnection);
    panel.setGeometry({screen.geometry().topLeft(), layer->size()});
    m_roles.insert_or_assign(&panel, std::move(layer));
    panel.show();
    if (role == KeyboardRole::primary) {
        m_keyboardPanel = &panel;
        m_guard.start();
    }
    return true;
}

void LayerShellPlacement::takeKeyboard(MeetingAlertPanel &panel)
{
    if (!m_roles.contains(&panel)) {
        m_fullScreen.takeKeyboard(panel);
        return;
    }
    m_keyboardPanel = &panel;
    m_guard.start();
    reclaimKeyboard();
}

void LayerShellPlacement::remove(MeetingAlertPanel &panel)
{
    if (m_keyboardPanel == &panel) {
        m_keyboardPanel.clear();
        m_guard.stop();
    }
    if (!m_roles.contains(&panel)) {
        m_fullScreen.remove(panel);
        return;
    }
    FrameSettler::whenSettled(panel, [this, &panel] {
        m_roles.erase(&panel);
        delete &panel;
    });
}

void LayerShellPlacement::showAgain(MeetingAlertPanel &panel)
{
    if (m_roles.erase(&panel) == 0)
        return;
    panel.destroy();
    // Removing the panel meanwhile destroys the pending call's context with it.
    const KeyboardRole role = m_keyboardPanel == &panel ? KeyboardRole::primary : KeyboardRole::none;
    QTimer::singleShot(closingTime, &panel, [this, &panel, role] {
        if (!show(panel, *panel.screen(), role))
            qWarning("A display has closed its meeting alert.");
    });
}

void LayerShellPlacement::reclaimKeyboard()
{
    const auto found = m_roles.find(m_keyboardPanel.data());
    if (found != m_roles.end())
        found->second->takeKeyboard();
}

} // namespace quorvane
