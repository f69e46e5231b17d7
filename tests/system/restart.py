#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What outlives a crash: an alert that nobody answered, and an answer."""
import os

from harness import Event, SystemTest, main, seconds_from_now, wait_until
from desktop import SwayDesktop

ONE_DISPLAY = ((1280, 720),)


class Restart(SystemTest):
    def test_an_unanswered_alert_comes_back_after_a_crash_and_an_answered_one_does_not(self):
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        first = self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        program.kill()
        self.assert_no_alert_anywhere(desktop)

        program.start()
        program.wait_shown(event.meeting_id(), 4, after=first)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)
        program.kill()

        program.start()
        self.assertTrue(program.stays_silent(4))
        self.assert_no_alert_anywhere(desktop)
        self.assertEqual(program.stop(), 0)

    def test_an_unreadable_ledger_is_set_aside_and_costs_no_alert(self):
        garbage = '{"half": {"acknowledged": tr'
        event = Event("Design review", seconds_from_now(30))

        def seed(session):
            folder = os.path.join(session.env["XDG_DATA_HOME"], "Quorvane")
            os.makedirs(folder)
            with open(os.path.join(folder, "acknowledgments.json"), "w", encoding="utf-8") as file:
                file.write(garbage)
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop, seed=seed)
        program.add(event)
        program_folder = program.data
        self.wait_until_readable(program)
        program.wait_shown(event.meeting_id(), 5)
        self.assert_return_acknowledges(desktop, program, event)
        kept = [name for name in os.listdir(program_folder) if self.holds(os.path.join(program_folder, name), garbage)]
        self.assertEqual(len(kept), 1)
        self.assertNotEqual(kept[0], "acknowledgments.json")

    def test_ending_the_session_while_it_shows_ends_it_cleanly_and_leaves_the_alert_open(self):
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        self.assertEqual(program.stop(), 0)
        self.assertFalse(program.record(event.meeting_id())["acknowledged"])

    def wait_until_readable(self, program):
        def readable():
            try:
                return program.ledger() is not None
            except ValueError:
                return False
        wait_until("setting the unreadable ledger aside", readable, 5)

    @staticmethod
    def holds(path, text):
        if not os.path.isfile(path):
            return False
        with open(path, encoding="utf-8", errors="replace") as file:
            return file.read() == text


if __name__ == "__main__":
    main()
