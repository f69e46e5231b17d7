#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A person at the dashboard, with keyboard and pointer, and what settings, keyring and ledger hold afterwards, also after
a restart."""
import configparser
import json
import os
import shutil
import subprocess
import time

from harness import (Event, Program, SystemTest, main, seconds_from_now, start_keyring, store_secret,
                     wait_until)
from screen_reader import ScreenReader, start_accessibility
from desktop import XorgDesktop

SERVICE = "me.tarnel.Quorvane"
LINK = "https://zoom.us/j/987654321"
# It is about noon there, so that an hour ago and an hour ahead are today.
NOON_ZONE = f"Etc/GMT{time.gmtime().tm_hour - 12:+d}"


class Dashboard(SystemTest):
    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(XorgDesktop(sizes=((1920, 1080),)))
        start_accessibility(cls.desktop)
        start_keyring(cls.desktop)

    def secret(self, account):
        return subprocess.run(["secret-tool", "lookup", "service", SERVICE, "account", account], env=self.desktop.env,
                              check=False, capture_output=True, text=True).stdout

    def added_meetings(self):
        return json.loads(self.secret("manual-meetings") or "[]")

    def settings(self):
        file = os.path.join(self.desktop.env["XDG_CONFIG_HOME"], "Quorvane/settings.ini")
        parser = configparser.ConfigParser(interpolation=None)
        parser.optionxform = str
        parser.read(file, encoding="utf-8")
        return dict(parser["General"]) if parser.has_section("General") else {}

    def choices(self):
        text = self.settings().get("meetingChoices", "{}")
        return json.loads(text.removeprefix('"').removesuffix('"').replace('\\"', '"'))

    def setUp(self):
        for folder in ("XDG_CONFIG_HOME", "XDG_DATA_HOME"):
            shutil.rmtree(os.path.join(self.desktop.env[folder], "Quorvane"), ignore_errors=True)
        for account in ("manual-meetings", "pushover-user", "pushover-token"):
            store_secret(self.desktop, account, "")
        self.program = Program(self.desktop, window=True, TZ=NOON_ZONE)
        self.enterContext(self.program)
        self.addCleanup(self._tell_log, self.program)
        self.reader = ScreenReader(self.program.process.pid)

    def restart(self):
        """As after a crash."""
        self.program.kill()
        self.program.start()
        self.reader = ScreenReader(self.program.process.pid)

    def find(self, name, role=None):
        return self.reader.find(name, role)

    def click(self, name):
        self.desktop.click(*self.find(name).middle)

    def names(self):
        return [seen.name for seen in self.reader.objects()]

    def wait_name(self, name, there=True):
        wait_until(f"{name} {'on' if there else 'leaving'} the screen",
                   lambda: any(name in seen for seen in self.names()) == there, 15)

    def focus(self, name):
        """Walks to a control by Tab."""
        for _ in range(80):
            focused = self.reader.focused()
            if focused and focused.name == name:
                return
            self.desktop.press("Tab")
        self.fail(f"Tab does not reach {name}")

    def replace(self, name, text):
        """Types into a field in place of what it holds."""
        self.click(name)
        self.desktop.press("ctrl+a")
        if text:
            self.desktop.type(text)
        else:
            self.desktop.press("BackSpace")

    def switch(self, name):
        """The switch of that name, whose name may go on."""
        return wait_until(f"the switch {name}", lambda: next(
            (seen for seen in self.reader.controls() if seen.name.startswith(name)), None), 15)

    def test_meetings_are_added_only_when_all_is_valid(self):
        self.desktop.press("ctrl+n")
        wait_until("the keyboard in the name", lambda: (self.reader.focused() or self.find("Cancel")).name == "Meeting name")
        for what, name, link in (("no name", "", ""), ("blanks", "   ", ""), ("a long name", "x" * 1001, ""),
                                 ("no link", "Dentist", "no link"), ("an open web page", "Dentist", "http://example.org/"),
                                 ("a blank link", "Dentist", " ")):
            with self.subTest(what):
                self.replace("Meeting name", name)
                self.replace("Meeting link (optional)", link)
                self.assert_return_adds_nothing()
        self.replace("Meeting link (optional)", "")
        with self.subTest("in the past"):
            self.set_time("9", "15")
            self.assert_return_adds_nothing()
        self.set_time("23", "10")
        self.replace("Meeting name", "  Dentist  ")
        self.replace("Meeting link (optional)", LINK)
        self.desktop.press("Return")
        self.wait_name("Alert for Dentist")
        self.assert_dentist_is_kept()
        self.restart()
        self.wait_name("Alert for Dentist")
        self.assert_dentist_is_kept()

    def set_time(self, hour, minute):
        self.click(next(name for name in self.names() if name.startswith("Starts: ")))
        self.find("Hour")
        for part, text in (("Hour", hour), ("Minute", minute)):
            self.replace(part, text)
        self.desktop.press("Return")
        wait_until("the picker closing", lambda: "Hour" not in self.names())

    def assert_return_adds_nothing(self):
        self.desktop.press("Return")
        time.sleep(0.3)
        self.assertIn("Add to alert schedule", self.names())
        self.assertEqual(self.added_meetings(), [])
        self.assertNotIn("meetingChoices", self.settings())

    def assert_dentist_is_kept(self):
        [dentist] = wait_until("the meeting in the keyring", self.added_meetings)
        self.assertEqual((dentist["title"], dentist["source"], dentist["calendar"], dentist["joinURL"]),
                         ("Dentist", "manual", "Added by you", LINK))
        self.assertEqual(dentist["end"] - dentist["start"], 30 * 60)
        self.assertEqual(self.choices()[dentist["id"]], True)

    def test_a_video_meeting_is_switched_off_and_on(self):
        event = Event("Stand-up", seconds_from_now(5400), location=LINK)
        self.program.add(event)
        for expected in (False, True):
            switch = self.switch("Alert for Stand-up")
            self.assertNotEqual(switch.is_checked, expected)
            self.desktop.click(*switch.middle)
            wait_until("the choice in the settings", lambda: self.choices().get(event.meeting_id()) is expected)
            self.restart()
            wait_until("the choice on screen", lambda: self.switch("Alert for Stand-up").is_checked is expected)

    def test_a_calendar_is_left_out_and_taken_back(self):
        self.program.add(Event("Swimming", seconds_from_now(5400), location=LINK), calendar="family")
        self.wait_name("Alert for Swimming")
        self.flip_calendar("family")
        wait_until("the exclusion in the settings", lambda: self.settings().get("excludedCalendars"))
        self.restart()
        self.find("Calendars")
        self.wait_name("Alert for Swimming", there=False)
        self.flip_calendar("family")
        self.wait_name("Alert for Swimming")

    def flip_calendar(self, name):
        self.desktop.press("ctrl+2")
        self.focus(self.switch(name).name)
        self.desktop.press("space")
        self.desktop.press("ctrl+1")

    def test_a_pause_keeps_alerts_away_until_it_is_ended(self):
        self.find("Agenda")
        self.click("Pause for 5 minutes")
        self.wait_name("Resume now")
        event = self.meeting_soon(self.program, "Retrospective", location=LINK)
        self.assertTrue(self.program.stays_silent(5))
        self.find("Resume now").press()
        self.program.wait_shown(event.meeting_id(), 5)
        self.wait_name("Meeting alert: Retrospective")
        self.desktop.press("Return")
        self.program.wait_acknowledged(event.meeting_id())
        self.wait_name("Meeting alert: Retrospective", there=False)

    def test_credentials_go_to_the_keyring_and_never_come_back(self):
        user, token = "u" * 26 + "1234", "t" * 26 + "5678"
        self.open_settings()
        self.replace("Pushover user key", user)
        self.replace("Application token", token[:29])
        self.desktop.press("Tab")
        wait_until("the fault being told", lambda: "30 letters and digits" in self.find("Application token").description)
        self.replace("Application token", f" {token} ")
        self.desktop.press("Return")
        self.wait_name("Credentials saved in macOS Keychain.")
        for _ in range(2):
            self.assertEqual((self.secret("pushover-user"), self.secret("pushover-token")), (user, token))
            self.assert_unseen(user, token)
            self.restart()
            self.open_settings()
        self.assertNotIn(token, json.dumps(self.settings()))

    def open_settings(self):
        self.find("Settings").press()
        self.find("Pushover user key")

    def assert_unseen(self, *secrets):
        seen = [text for control in self.reader.objects() for text in (control.name, control.description, control.text)]
        for secret in secrets:
            self.assertFalse([text for text in seen if secret[:20] in text], "a secret is on screen")

    def test_an_added_meeting_goes_while_its_alert_shows(self):
        start = int(seconds_from_now(75))
        meeting = {"id": "ab" * 32, "title": "Call the school", "start": start, "end": start + 1800,
                   "calendar": "Added by you", "source": "manual", "cancelled": False, "allDay": False}
        before = self.added_meetings()
        self.program.kill()
        store_secret(self.desktop, "manual-meetings", json.dumps([*before, meeting]))
        choices = json.dumps({**self.choices(), meeting["id"]: True})
        self.program.write_settings({**self.settings(), "meetingChoices": json.dumps(choices)})
        self.restart()
        delete = self.find("Delete Call the school")
        self.program.wait_shown(meeting["id"], 30)
        self.wait_name("Meeting alert: Call the school")
        delete.press()
        self.find("Delete Call the school for good").press()
        self.wait_name("Meeting alert: Call the school", there=False)
        wait_until("the keyring without it", lambda: self.added_meetings() == before)
        self.assertIs(self.choices()[meeting["id"]], False)
        self.restart()
        self.find("Agenda")
        self.assertTrue(self.program.stays_silent(4))
        self.assertEqual(self.added_meetings(), before)


if __name__ == "__main__":
    main()
