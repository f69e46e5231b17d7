#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a person's answers lead to: snooze, and meetings that meet."""
import time

from harness import Event, SystemTest, main, seconds_from_now, wait_until
from desktop import EMBER, SwayDesktop, XorgDesktop

ONE_DISPLAY = ((1280, 720),)


class Answers(SystemTest):
    def test_a_snooze_by_mouse_comes_back_on_all_displays(self):
        self.assert_snooze_comes_back(XorgDesktop(), self.click_snooze)

    def test_a_snooze_by_keyboard_comes_back(self):
        # From "I’m ready", which has the focus at first, one step leads to "Remind me in 30 seconds".
        self.assert_snooze_comes_back(SwayDesktop(sizes=ONE_DISPLAY), lambda desktop: desktop.press("Tab", "space"))

    def test_two_meetings_at_the_same_minute_alert_one_after_the_other(self):
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop)
        start = seconds_from_now(62)
        first, second = (Event(title, start) for title in ("Design review", "Budget"))
        program.add(first, "work")
        program.add(second, "private")
        both = {first.meeting_id(): first, second.meeting_id(): second}
        early = self.shown_first(program, both, start)
        late = next(event for key, event in both.items() if key != early.meeting_id())
        self.assertEqual(program.record(late.meeting_id()).get("shownAt", 0), 0)
        self.assert_alert_on_every_display(desktop)
        desktop.press("Return")
        program.wait_acknowledged(early.meeting_id())
        program.wait_shown(late.meeting_id(), 3)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, late)
        self.assertTrue(program.stays_silent(2))

    def test_a_meeting_that_becomes_due_behind_an_open_alert_follows_it(self):
        desktop = SwayDesktop(sizes=ONE_DISPLAY)
        program = self.quorvane(desktop)
        first = Event("Design review", seconds_from_now(62))
        second = Event("Overlapping", first.start + 2)
        program.add(first)
        program.add(second)
        self.assert_alerts_on_time(program, first)
        time.sleep(max(second.due + 1 - time.time(), 0))
        self.assertEqual(program.record(second.meeting_id()).get("shownAt", 0), 0)
        desktop.press("Return")
        program.wait_acknowledged(first.meeting_id())
        program.wait_shown(second.meeting_id(), 3)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, second)

    def assert_snooze_comes_back(self, desktop, snooze):
        """A meeting that has begun comes back five seconds after its snooze."""
        program = self.quorvane(desktop)
        event = Event("Begun", seconds_from_now(-10))
        program.add(event)
        first = program.wait_shown(event.meeting_id(), 5)
        self.assert_alert_on_every_display(desktop)
        snooze(desktop)
        pressed = time.time()
        self.assert_no_alert_anywhere(desktop)
        record = program.record(event.meeting_id())
        self.assertFalse(record["acknowledged"])
        self.assertAlmostEqual(record["snoozedUntil"], pressed + 5, delta=1.5)
        again = program.wait_shown(event.meeting_id(), 8, after=first)
        self.assertGreaterEqual(again, record["snoozedUntil"])
        self.assertLess(again, record["snoozedUntil"] + 1.5)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event)

    def click_snooze(self, desktop):
        """The row of buttons is centred: its last ends as far from the right as the first, a filled one, begins
        from the left. The colour is that of a meeting that has begun."""
        picture = self.pictures(desktop)[0]
        button = picture.box(EMBER, top=0.6)
        main_display = desktop.outputs[0]
        desktop.click(round((1 - button.left) * main_display.width) - 80,
                      round(button.bottom * main_display.height) - 20)

    def shown_first(self, program, both, start):
        time.sleep(max(start - 60 - time.time(), 0))
        return wait_until("the first of two alerts", lambda: next(
            (event for key, event in both.items() if program.record(key).get("shownAt", 0)), None), 3)


if __name__ == "__main__":
    main()
