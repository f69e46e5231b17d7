// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QScreen;

namespace quorvane {

class MeetingAlertPanel;

/// Whether a panel takes the keyboard by itself: exactly one of an alert does, the one on the main display.
enum class KeyboardRole { none, primary };

/// Puts panels in front of everything on a display, full-screen windows of other programs included, on every
/// desktop. Owned by the composition root; called by `Overlay` on the main thread. No call waits for a
/// person.
class PanelPlacement
{
public:
    virtual ~PanelPlacement() = default;

    /// Sets the panel up for `screen` without showing it, so that `show` is quick. Optional before `show`.
    virtual void prepare(MeetingAlertPanel &panel, QScreen &screen) = 0;

    /// Shows the panel over the whole of `screen`. False when the display cannot take it (it is going away).
    [[nodiscard]] virtual bool show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole role) = 0;

    /// Gives the keyboard to a panel that is already shown (the main display went away).
    virtual void takeKeyboard(MeetingAlertPanel &panel) = 0;

    /// Takes the panel off the screen and deletes it, as soon as the display server lets it go but never
    /// before the event loop is back: the call may come from inside the panel's own event handler. Safe when
    /// it is not shown.
    virtual void remove(MeetingAlertPanel &panel) = 0;
};

} // namespace quorvane
