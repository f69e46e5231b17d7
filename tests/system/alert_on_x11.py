#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job on X11: three displays, openbox."""
import os

from harness import SystemTest, main, wait_until, words_typed
from desktop import XorgDesktop


class AlertOnX11(SystemTest):
    def test_a_dropped_calendar_file_covers_three_displays_until_return(self):
        desktop = XorgDesktop()
        program = self.quorvane(desktop)
        before = self.pictures(desktop)
        self.assertFalse(any(picture.shows_alert() for picture in before))
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        self.assert_one_display_has_the_keyboard(desktop)
        self.assert_return_acknowledges(desktop, program, event)
        self.assertEqual(os.stat(program.ledger_path).st_mode & 0o777, 0o600)
        self.assertEqual(program.stop(), 0)

    def test_it_lies_above_another_programs_full_screen_window_and_takes_its_keyboard(self):
        desktop = XorgDesktop()
        program = self.quorvane(desktop)
        typed = os.path.join(desktop.folder, "typed")
        desktop.start("xterm", ["xterm", "-fullscreen", "-e", f"cat > {typed}"])
        wait_until("the other window's keyboard", lambda: desktop.press("x", "Return") or words_typed(typed), 8)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        heard = words_typed(typed)
        self.assert_return_acknowledges(desktop, program, event)
        self.assertEqual(words_typed(typed), heard, "the other program got the alert's Return")
        wait_until("the other window getting its keyboard back",
                   lambda: desktop.press("y", "Return") or "y" in words_typed(typed), 4)

    def test_no_key_and_no_window_command_dismisses_it(self):
        desktop = XorgDesktop()
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        desktop.press("Escape", "alt+F4", "q", "ctrl+w", "ctrl+q")
        for window in desktop.run("xdotool", "search", "--class", "quorvane").split():
            desktop.run("wmctrl", "-i", "-c", window)
        desktop.run("wmctrl", "-s", "1")
        self.assert_alert_on_every_display(desktop)
        self.assertFalse(program.record(event.meeting_id())["acknowledged"])
        self.assert_return_acknowledges(desktop, program, event)

    def test_a_display_switched_on_while_it_shows_gets_a_panel(self):
        desktop = XorgDesktop(sizes=((1280, 720), (1024, 768)))
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        desktop.run("xrandr", "--output", "DUMMY1", "--off")
        desktop.outputs = desktop.read_outputs()
        self.assertEqual(len(desktop.outputs), 1)
        self.assert_alert_on_every_display(desktop)
        desktop.run("xrandr", "--output", "DUMMY1", "--mode", "1024x768", "--pos", "1280x0")
        desktop.outputs = desktop.read_outputs()
        self.assertEqual(len(desktop.outputs), 2)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)

    def assert_one_display_has_the_keyboard(self, desktop):
        """The focused window is the panel of the main display, and covers it."""
        def focused():
            lines = desktop.run("xdotool", "getwindowfocus", "getwindowgeometry", "--shell").splitlines()
            found = dict(line.split("=") for line in lines if "=" in line)
            return f"{found.get('WIDTH')}x{found.get('HEIGHT')}+{found.get('X')}+{found.get('Y')}"
        main_display = desktop.outputs[0].geometry
        wait_until(f"the keyboard on {main_display}", lambda: focused() == main_display, 2)


if __name__ == "__main__":
    main()
