#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job on a Wayland compositor without layer-shell and without X: two displays, mutter."""
from harness import SystemTest, main
from desktop import MutterDesktop


class AlertWithoutLayerShell(SystemTest):
    def test_full_screen_windows_cover_two_displays_until_return(self):
        desktop = MutterDesktop()
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop, seconds=8)
        self.assert_return_acknowledges(desktop, program, event)

    def test_a_full_screen_window_opened_over_it_does_not_keep_it_hidden(self):
        desktop = MutterDesktop()
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop, seconds=8)
        desktop.start("foot", ["foot", "--fullscreen", "sleep", "30"])
        self.assert_alert_on_every_display(desktop, seconds=8)
        self.assert_return_acknowledges(desktop, program, event)


if __name__ == "__main__":
    main()
