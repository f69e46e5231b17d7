#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The tray's menu as a person uses it, read and clicked over the session bus as panels do; trays that come late, go and
come back, and one that takes in windows."""
import json
import time

from harness import Event, SystemTest, main, seconds_from_now, wait_until
from tray_host import TrayHost, seen, turn
from desktop import SwayDesktop, XorgDesktop

SIZES = ((1280, 720),)
COMMANDS = ["Open Quorvane", "Preview screen alert", "Check for updates…", "Refresh calendars",
            "Pause screen alerts for 5 minutes", None, "Quit Quorvane"]
RESUME = "Resume screen alerts"


def clock(moment):
    at = time.localtime(moment)
    return f"{at.tm_hour}:{at.tm_min:02}"


def windows_on_x(desktop):
    return desktop.run("wmctrl", "-l").count(" Quorvane\n")


def windows_on_sway(desktop):
    def count(node):
        children = node.get("nodes", []) + node.get("floating_nodes", [])
        return (node.get("pid") is not None and node.get("name") == "Quorvane") + sum(map(count, children))
    return count(json.loads(desktop.message("-t", "get_tree", "-r")))


class Tray(SystemTest):
    def test_the_menu_does_what_it_says_on_x(self):
        self.use_menu(XorgDesktop(sizes=SIZES), windows_on_x)

    def test_the_menu_does_what_it_says_on_wayland(self):
        self.use_menu(SwayDesktop(sizes=SIZES, notes_requests=True), windows_on_sway)

    def use_menu(self, desktop, windows):
        host = TrayHost(desktop)
        program = self.quorvane(desktop, seed=lambda _: self.enterContext(host))
        first = Event("R&D __ review_1", seconds_from_now(3600))
        program.add(first)
        item = host.wait_item()
        self.check_looks(item, first)
        self.check_window(desktop, item, windows)
        self.check_alert_and_pause(desktop, host, item)
        self.check_refresh(program, item)
        before = item.texts()
        item.click("Check for updates…")
        self.assertEqual(item.texts(), before)
        item.click("Quit Quorvane")
        self.assertEqual(program.process.wait(10), 0)

    def check_looks(self, item, first):
        """The menu in the order, with the words and the states that it has."""
        item.wait_text(f"Next: {first.title}")
        entries = item.entries()
        texts = [entry and seen(entry.text) for entry in entries]
        self.assertRegex(texts[0], "1 meetings scheduled for alerts$")
        self.assertEqual(texts[1:], [f"Next: {first.title}", clock(first.start), None, *COMMANDS])
        self.assertEqual([entry.is_enabled for entry in entries if entry], [False] * 3 + [True] * 6)
        about = item.properties()
        self.assertEqual((about["Id"], about["Title"], about["Category"], about["Status"]),
                         ("Quorvane", "Quorvane", "ApplicationStatus", "Active"))
        self.assertEqual(about["ToolTip"][2], f"Quorvane: {texts[0]}")
        self.assertLessEqual({22, 24, 32, 44, 48}, {width for width, _, _ in about["IconPixmap"]})

    def check_window(self, desktop, item, windows):
        self.assertEqual(windows(desktop), 0)
        item.activate("token-of-the-panel")
        wait_until("the window", lambda: windows(desktop) == 1)
        if desktop.kind == "sway":
            wait_until("the panel's token shown to the compositor",
                       lambda: 'activate("token-of-the-panel"' in desktop.requests())
        item.click("Open Quorvane")
        item.texts()  # which is answered after it
        self.assertEqual(windows(desktop), 1)

    def check_alert_and_pause(self, desktop, host, item):
        normal = item.properties()["IconPixmap"]
        item.click("Preview screen alert")
        self.assert_alert_on_every_display(desktop)
        host.heard()
        item.click("Pause screen alerts for 5 minutes")
        item.wait_text(RESUME)
        self.assert_no_alert_anywhere(desktop)
        self.assertIn("NewIcon", host.heard())
        self.assertNotEqual(item.properties()["IconPixmap"], normal)
        item.click(RESUME)
        item.wait_text("Pause screen alerts for 5 minutes")
        self.assertEqual(item.properties()["IconPixmap"], normal)
        self.assertNotIn("LayoutUpdated", host.heard(), "an open menu would have closed")

    def check_refresh(self, program, item):
        sooner = Event("Stand-up", seconds_from_now(1800))
        program.add(sooner)
        item.click("Refresh calendars")
        item.wait_text(f"Next: {sooner.title}")
        self.assertIn(clock(sooner.start), item.texts())

    def test_a_tray_may_come_late_and_come_back(self):
        desktop = SwayDesktop(sizes=SIZES)
        program = self.quorvane(desktop)
        with TrayHost(desktop, without_panel=True) as host:
            host.wait_question()
            self.assertEqual(host.items, [])
            shown = time.monotonic()
            host.show_panel()
            self.assertEqual(host.wait_item().texts()[-1], "Quit Quorvane")
            self.assertGreater(time.monotonic() - shown, 0.9, "some panels lose what comes while they start")
        with TrayHost(desktop) as host:
            self.assertEqual(host.wait_item().texts()[-1], "Quit Quorvane")
        self.assertEqual(program.stop(), 0)

    def test_a_panel_of_the_older_kind_takes_the_icon_in(self):
        desktop = XorgDesktop(sizes=SIZES)
        corner = [side - 12 for side in SIZES[0]]
        # It answers nothing until it is turned.
        stopped = TrayHost(desktop, without_panel=True)

        def panels(_):
            self.enterContext(stopped)
            desktop.start("panel", ["trayer", "--edge", "bottom", "--align", "right", "--height", "24"])

        program = self.quorvane(desktop, seed=panels)
        event = Event("Design review", seconds_from_now(75))
        program.add(event)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)
        wait_until("a click on the icon opening the window",
                   lambda: turn() or desktop.click(*corner) or windows_on_x(desktop), 20, interval=0.5)

        def seen_windows():
            return desktop.run("xdotool", "search", "--onlyvisible", "--pid", str(program.process.pid)).split()

        before = len(seen_windows())
        desktop.run("xdotool", "mousemove", *map(str, corner), "click", "3")
        wait_until("the menu", lambda: len(seen_windows()) > before)
        desktop.press("Up", "Return")
        self.assertEqual(program.process.wait(10), 0)


if __name__ == "__main__":
    main()
