// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/PanelPlacement.h"
#include "alert/linux/FocusGuard.h"
#include "alert/linux/X11Server.h"

#include <QPointer>

namespace quorvane {

/// Panels under Xwayland where the compositor offers no layer-shell (GNOME): managed windows that ask to be
/// above all others, full-screen and on every desktop. There the compositor keeps such windows on top, while
/// unmanaged ones would not get the keyboard reliably.
class ManagedPlacement final : public PanelPlacement
{
public:
    explicit ManagedPlacement(X11Server server);

    void prepare(MeetingAlertPanel &panel, QScreen &screen) override;
    [[nodiscard]] bool show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role) override;
    void takeKeyboard(MeetingAlertPanel &panel) override;
    void remove(MeetingAlertPanel &panel) override;

private:
    void reclaimKeyboard();

    X11Server m_server;
    FocusGuard m_guard;
    QPointer<MeetingAlertPanel> m_keyboardPanel;
};

} // namespace quorvane
