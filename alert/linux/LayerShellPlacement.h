// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/PanelPlacement.h"
#include "alert/linux/FocusGuard.h"
#include "alert/linux/FullScreenPlacement.h"

#include <QPointer>

#include <memory>
#include <unordered_map>

namespace quorvane {

class LayerRole;
class LayerShell;

/// Panels on Wayland as overlays of the layer-shell protocol: above everything but the lock screen, on every
/// workspace, the keyboard held by the compositor's rule. A display whose compositor refuses the role gets a
/// plain full-screen panel.
class LayerShellPlacement final : public PanelPlacement
{
public:
    explicit LayerShellPlacement(std::unique_ptr<LayerShell> shell);
    ~LayerShellPlacement() override;

    void prepare(MeetingAlertPanel &panel, QScreen &screen) override;
    [[nodiscard]] bool show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role) override;
    void takeKeyboard(MeetingAlertPanel &panel) override;
    void remove(MeetingAlertPanel &panel) override;

private:
    void showAgain(MeetingAlertPanel &panel);
    void reclaimKeyboard();

    std::unique_ptr<LayerShell> m_shell;
    std::unordered_map<MeetingAlertPanel *, std::unique_ptr<LayerRole>> m_roles;
    FullScreenPlacement m_fullScreen;
    FocusGuard m_guard;
    QPointer<MeetingAlertPanel> m_keyboardPanel;
};

} // namespace quorvane
