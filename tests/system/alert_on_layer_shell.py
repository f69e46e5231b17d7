#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job on a Wayland compositor with layer-shell: three displays, sway."""
import os

from harness import Event, SystemTest, main, seconds_from_now, wait_until, words_typed
from desktop import SwayDesktop


class AlertOnLayerShell(SystemTest):
    def test_a_dropped_calendar_file_covers_three_displays_until_return(self):
        desktop = SwayDesktop()
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)
        self.assertEqual(program.stop(), 0)

    def test_it_lies_above_full_screen_windows_and_other_workspaces(self):
        desktop = SwayDesktop()
        program = self.quorvane(desktop)
        typed = os.path.join(desktop.folder, "typed")
        desktop.start("foot", ["foot", "--fullscreen", "sh", "-c", f"cat > {typed}"])
        wait_until("the other window's keyboard", lambda: desktop.press("x", "Return") or words_typed(typed), 8)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        heard = words_typed(typed)
        desktop.message("workspace", "7")
        desktop.start("second-foot", ["foot", "--fullscreen", "sleep", "30"])
        wait_until("the second window", lambda: desktop.message("-t", "get_tree").count('"app_id": "foot"') == 2, 5)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)
        self.assertEqual(words_typed(typed), heard, "the other program got the alert's Return")

    def test_exactly_one_panel_takes_the_keyboard(self):
        desktop = SwayDesktop()
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        before = self.assert_alert_on_every_display(desktop)
        desktop.press("Tab")  # moves the focus ring where the keyboard is
        shares = []

        def moved_on_one():
            shares[:] = [buttons_changed(a, b) for a, b in zip(before, self.pictures(desktop))]
            return sum(share > 0.002 for share in shares) == 1
        try:
            wait_until("the focus ring moving on one display", moved_on_one, 3)
        except Exception:
            self.keep_pictures(desktop)
            print("changed shares of the lower part of each display:", shares)
            raise
        desktop.press("Escape")
        self.assertFalse(program.record(event.meeting_id())["acknowledged"])
        self.assert_return_acknowledges(desktop, program, event)

    def test_a_calendar_of_one_file_alerts_too(self):
        desktop = SwayDesktop(sizes=((1280, 720),))
        program = self.quorvane(desktop)
        event = Event("Weekly", seconds_from_now(62), extra=("RRULE:FREQ=WEEKLY;COUNT=3",))
        with open(os.path.join(program.calendars, "team.ics"), "w", encoding="utf-8", newline="") as file:
            file.write(event.calendar_text())
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)


def buttons_changed(one, two):
    """The share of the lower two fifths of a display, below the ticking clock, that clearly changed."""
    first = one.width * (one.height * 3 // 5)
    pairs = list(zip(one.pixels[first:], two.pixels[first:]))
    return sum(max(abs(a - b) for a, b in zip(*pair)) > 60 for pair in pairs) / len(pairs)


if __name__ == "__main__":
    main()
