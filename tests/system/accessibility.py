#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The dashboard for a person who hears it and uses the keyboard only."""
from harness import Event, Program, SystemTest, main, seconds_from_now, wait_until
from screen_reader import CONTROLS, ScreenReader, start_accessibility
from desktop import XorgDesktop

MOST_STOPS = 120


class Accessibility(SystemTest):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(XorgDesktop(sizes=((1920, 1080),)))
        start_accessibility(cls.desktop)
        cls.program = cls.enterClassContext(Program(cls.desktop, window=True))
        cls.program.add(Event("Design review", seconds_from_now(3600), location="https://zoom.us/j/987654321"))
        cls.program.add(Event("Lunch", seconds_from_now(7200)))
        cls.reader = ScreenReader(cls.program.process.pid)

    def test_every_section_is_heard_and_walked(self):
        for number, section in enumerate(("Agenda", "Calendars", "Settings"), 1):
            with self.subTest(section):
                self.desktop.press(f"ctrl+{number}")
                self.wait_page(section)
                self.assert_all_are_named()
                self.assert_keys_reach_all()

    def test_what_a_screen_reader_presses_is_done(self):
        for section in ("Calendars", "Settings", "Agenda"):
            self.reader.find(section).press()
            self.wait_page(section)
        self.assertTrue(self.reader.find("Alert for Design review", "check box", exactly=False).is_checked)
        self.reader.find("Alert for Design review", "check box", exactly=False).press()
        wait_until("the alert switched off", lambda: not self.reader.find(
            "Alert for Design review", "check box", exactly=False).is_checked)

    def test_the_sheet_keeps_the_keyboard_and_gives_it_back(self):
        self.desktop.press("ctrl+1")
        self.wait_page("Agenda")
        self.assertTrue(self.reader.find("Add meeting").takes_focus())
        self.desktop.press("Return")
        wait_until("the keyboard in the sheet", lambda: self.focused_name() == "Meeting name")
        self.assert_all_are_named()
        reached = {stop.name for stop in self.walk()}
        self.assertIn("Cancel", reached)
        self.assertTrue(reached.isdisjoint({"Agenda", "Calendars", "Settings"}), "Tab left the sheet")
        self.desktop.press("Escape")
        wait_until("the keyboard back at the button", lambda: self.focused_name() == "Add meeting")

    def wait_page(self, section):
        wait_until(f"the page {section}", lambda: ("heading", section) in (
            (seen.role, seen.name) for seen in self.reader.objects()))

    def focused_name(self):
        focused = self.reader.focused()
        return focused.name if focused else None

    def assert_all_are_named(self):
        controls = self.reader.controls()
        self.assertGreater(len(controls), 3)
        self.assertEqual([str(seen) for seen in controls if not seen.name.strip()], [], "controls without a name")
        self.assertEqual([str(seen) for seen in controls if seen.role not in CONTROLS], [], "controls without a role")

    def assert_keys_reach_all(self):
        stops = self.walk()
        for row in [stop for stop in stops if stop.role == "list item"]:
            stops += self.walk_rows(row)
        reached = {stop.path for stop in stops}
        missed = [seen for seen in self.reader.controls() if seen.path not in reached]
        self.assertEqual([str(seen) for seen in missed if seen.takes_focus()], [], "controls that no key reaches")

    def walk(self):
        """Presses Tab until it is where it was before; returns where it stopped."""
        stops = []
        while len(stops) < MOST_STOPS:
            self.desktop.press("Tab")
            stop = self.reader.focused()
            self.assertIsNotNone(stop, f"the keyboard is nowhere after {stops[-1] if stops else 'Tab'}")
            if stops and stop.path == stops[0].path:
                return stops
            self.assertNotIn(stop.path, [earlier.path for earlier in stops], "Tab goes in a circle that leaves some out")
            stops.append(stop)
        return self.fail("Tab does not come back")

    def walk_rows(self, first):
        """The rows below one, by the arrow key, with what Tab reaches in each."""
        stops = []
        row = first
        while len(stops) < MOST_STOPS:
            self.assertTrue(row.takes_focus(), f"{row} does not take the keyboard")
            self.desktop.press("Down")
            below = self.reader.focused()
            if below is None or below.role != "list item" or below.path in (row.path, *(stop.path for stop in stops)):
                return stops
            row = below
            inside = below
            while inside and inside.path[:len(row.path)] == row.path:
                stops.append(inside)
                self.desktop.press("Tab")
                inside = self.reader.focused()
        return self.fail("the list has no end")


if __name__ == "__main__":
    main()
