#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Meetings of a real Evolution Data Server become alerts."""
import time

import evolution
from harness import Event, SystemTest, main, seconds_from_now
from desktop import SwayDesktop, utc

ONE_DISPLAY = ((1280, 720),)


class CalendarService(SystemTest):
    def test_a_meeting_added_by_another_process_70_seconds_before_its_start_alerts(self):
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop, seed=evolution.seed)
        event = Event("Design review", seconds_from_now(70))
        evolution.add(desktop, event)
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)

    def test_a_moved_occurrence_alerts_at_its_new_time_only_and_a_declined_meeting_never(self):
        start = seconds_from_now(67)
        yesterday = start - 86400
        attendee = "ATTENDEE;PARTSTAT={}:mailto:" + evolution.OWN_ADDRESS
        organizer = "ORGANIZER:mailto:boss@example.com"
        declined = Event("Declined", start, extra=(organizer, attendee.format("DECLINED")))
        moved_to = start + 5
        moved = Event("Daily", yesterday, extra=("RRULE:FREQ=DAILY;COUNT=5", organizer, attendee.format("ACCEPTED")),
                      overrides=((f"RECURRENCE-ID:{utc(start)}", f"DTSTART:{utc(moved_to)}",
                                  f"DTEND:{utc(moved_to + 1800)}", "SUMMARY:Daily, later",
                                  "LOCATION:https://zoom.us/j/123456789"),))
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop, seed=lambda session: evolution.seed(session, declined, moved))
        self.assert_alerts_on_time(program, moved, moved_to)
        self.assert_return_acknowledges(desktop, program, moved, moved_to)
        self.assertTrue(program.stays_silent(3))
        shown = [key for key, record in program.ledger().items() if record["shownAt"]]
        self.assertEqual(shown, [moved.meeting_id(moved_to)])

    def test_a_known_meeting_alerts_on_time_while_the_service_hangs(self):
        event = Event("Known before", seconds_from_now(72))
        later = Event("Dropped meanwhile", event.start + 4)
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop, seed=lambda session: evolution.seed(session, event))
        time.sleep(max(event.due - 4 - time.time(), 0))
        with evolution.Stopped(desktop):
            program.add(later)  # and a change that makes the program read while the service hangs
            self.assert_alerts_on_time(program, event)
            self.assert_alert_on_every_display(desktop)
            self.assert_return_acknowledges(desktop, program, event)
            program.wait_shown(later.meeting_id(), 20)
        self.assert_return_acknowledges(desktop, program, later)


if __name__ == "__main__":
    main()
