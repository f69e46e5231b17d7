// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/PanelPlacement.h"
#include "alert/linux/FocusGuard.h"
#include "alert/linux/X11Server.h"

#include <QPointer>

namespace quorvane {

/// Panels on X11 that the window manager does not manage (override-redirect). They lie above every managed
/// window, a full-screen one mapped later included, and on every desktop. The keyboard is taken and guarded
/// by the panels themselves, and given back to the program that had it.
class OverrideRedirectPlacement final : public PanelPlacement
{
public:
    explicit OverrideRedirectPlacement(X11Server server);

    void prepare(MeetingAlertPanel &panel, QScreen &screen) override;
    [[nodiscard]] bool show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role) override;
    void takeKeyboard(MeetingAlertPanel &panel) override;
    void remove(MeetingAlertPanel &panel) override;

private:
    void reclaimKeyboard();
    void returnKeyboard();

    X11Server m_server;
    FocusGuard m_guard;
    QPointer<MeetingAlertPanel> m_keyboardPanel;
    /// The window of another program that had the keyboard last.
    xcb_window_t m_previousFocus = XCB_WINDOW_NONE;
};

} // namespace quorvane
