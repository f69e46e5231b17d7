// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/PanelPlacement.h"
#include "alert/linux/FocusGuard.h"

#include <QElapsedTimer>
#include <QPointer>

#include <optional>
#include <set>
#include <vector>

namespace quorvane {

/// Panels as plain full-screen windows: the last resort, for Wayland with neither layer-shell nor Xwayland.
/// There a window can neither stay above others nor ask for the keyboard, but a newly mapped one gets both:
/// so the panels are mapped anew whenever another program has taken over.
class FullScreenPlacement final : public PanelPlacement
{
public:
    FullScreenPlacement();

    void prepare(MeetingAlertPanel &panel, QScreen &screen) override;
    [[nodiscard]] bool show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role) override;
    void takeKeyboard(MeetingAlertPanel &panel) override;
    void remove(MeetingAlertPanel &panel) override;

private:
    void map(MeetingAlertPanel &panel);
    void mapAgain();
    void mapAgain(MeetingAlertPanel &panel);

    FocusGuard m_guard;
    /// The panels on screen, the one with the keyboard last.
    std::vector<QPointer<MeetingAlertPanel>> m_panels;
    /// Those that the compositor has not let draw since they were mapped last.
    std::set<const MeetingAlertPanel *> m_unpainted;
    QElapsedTimer m_sinceMapping;
    std::optional<bool> m_isStillNeeded;
};

} // namespace quorvane
