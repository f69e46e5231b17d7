#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The main job on a Wayland compositor without layer-shell, with X beside it and without: two displays, mutter."""
from harness import SystemTest, main
from desktop import MutterDesktop, MutterX11Desktop


class AlertWithoutLayerShell(SystemTest):
    def test_full_screen_windows_cover_two_displays_until_return(self):
        self.assert_covers_until_return(MutterDesktop())

    def test_with_x_beside_it_panels_cover_two_displays_until_return(self):
        self.assert_covers_until_return(MutterX11Desktop())

    def assert_covers_until_return(self, desktop):
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
