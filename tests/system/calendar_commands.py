#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The commands about calendars, with the real calendar service and with folders."""
import glob
import os
import re
import socket
import time

import evolution
from command_line import NO_ACCESS, CommandTest
from harness import Event, main, seconds_from_now
from desktop import write_event

# Neither a calendar service nor anything else.
NO_BUS = {"without": ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR")}
ALLOWED = "Calendar access allowed; {} calendars; {} upcoming timed events.\n"
NO_CALENDAR = "No writable default calendar is available.\n"
NOTES = "Private test of Quorvane's screen and phone reminders. No guests have been invited."
READ = """
import gi
gi.require_version('EDataServer', '1.2'); gi.require_version('ECal', '2.0')
from gi.repository import ECal, EDataServer
registry = EDataServer.SourceRegistry.new_sync(None)
client = ECal.Client.connect_sync(registry.ref_default_calendar(), ECal.ClientSourceType.EVENTS, 0xFFFFFFFF, None)
for component in client.get_object_list_sync('#t', None)[1]:
    print(component.as_ical_string())
"""


def unfolded(text):
    return re.sub(r"\r?\n[ \t]", "", text)


class CalendarCommands(CommandTest):
    def own_folder(self, *names):
        return self.path("data", "Quorvane", "calendars", *names)

    def create(self, calendar, **options):
        """Has the test meeting created and returns when it starts."""
        before = int(time.time()) + 300
        status, said = self.command("--create-test-meeting", **options)
        starts = range(before, int(time.time()) + 301)
        lines = {f"Created a test meeting at {time.strftime('%-H:%M', time.gmtime(start))} in {calendar}.\n"
                 for start in starts}
        self.assertEqual(status, 0)
        self.assertIn(said, lines)
        return starts

    def assert_is_test_meeting(self, text, starts):
        text = unfolded(text)
        start, end = (time.strptime(re.search(rf"^{name}:(\w+)", text, re.M)[1] + "UTC", "%Y%m%dT%H%M%SZ%Z")
                      for name in ("DTSTART", "DTEND"))
        self.assertIn(int(time.mktime(start) - time.timezone), starts)
        self.assertEqual(time.mktime(end) - time.mktime(start), 300)
        for wanted in ("SUMMARY:Quorvane reminder test", f"DESCRIPTION:{NOTES}", "ACTION:DISPLAY"):
            self.assertRegex(text, rf"(?m)^{re.escape(wanted)}\r?$")
        self.assertRegex(text, r"(?m)^TRIGGER(;RELATED=START)?:-PT(60S|1M)\r?$")
        self.assertEqual(text.count("BEGIN:VALARM"), 1)
        for absent in ("ATTENDEE", "ORGANIZER"):
            self.assertNotIn(absent, text)

    def choose_default(self, calendar):
        self.put(self.path("config", "glib-2.0/settings/keyfile"),
                 f"[org/gnome/evolution]\ndefault-calendar='{calendar}'\n")

    def test_what_all_calendars_hold_is_counted(self):
        evolution.seed(self.session, *(Event(f"{number}", seconds_from_now(3600 * number)) for number in (1, 2)))
        status, said = self.command("--calendar-status")
        count = int(re.fullmatch(ALLOWED.replace("{}", r"(\d+)", 1).format(2), said)[1])
        self.assertEqual(status, 0)
        write_event(self.own_folder("Team"), Event("3", seconds_from_now(60)))
        write_event(self.path("data", "elsewhere"), Event("4", seconds_from_now(60)))
        self.configure(calendarFolders=self.path("data", "elsewhere"))
        before = self.files()
        self.assertEqual(self.command("--calendar-status"), (0, ALLOWED.format(count + 2, 4)))
        self.configure(calendarFolders=self.path("data", "elsewhere"), excludedCalendars="evolution:meetings1")
        self.assertEqual(self.command("--calendar-status"), (0, ALLOWED.format(count + 2, 2)))
        self.assertEqual(self.files(), before)

    def test_without_any_calendar_there_is_no_access(self):
        for flag in ("--calendar-status", "--create-test-meeting"):
            self.assertEqual(self.command(flag, **NO_BUS), (3, NO_ACCESS))
        self.assertEqual(self.files(), [])
        self.assertFalse(os.path.exists(self.path("data", "Quorvane")))

    def test_a_test_meeting_goes_to_the_default_calendar(self):
        starts = self.create("Personal")
        self.assert_is_test_meeting(self.session.run("/usr/bin/python3", "-c", READ), starts)
        self.assertRegex(self.command("--calendar-status")[1], "; 1 upcoming timed events.$")
        self.assertEqual(self.files(), [])

    def test_without_a_calendar_service_it_goes_to_the_folder(self):
        os.makedirs(self.own_folder())
        starts = self.create("Quorvane", **NO_BUS)
        name, = self.files()
        self.assertRegex(name, r"^Quorvane/calendars/Quorvane/[0-9a-f-]{36}\.ics$")
        with open(self.path("data", name), encoding="utf-8", newline="") as file:
            text = file.read()
        self.assert_is_test_meeting(text, starts)
        for line in text.split("\n")[:-1]:
            self.assertTrue(line.endswith("\r") and len(line) <= 76, line)
        whole = r"\ABEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:.+\r\n(.+\r\n)+END:VCALENDAR\r\n\Z"
        self.assertRegex(unfolded(text), whole)
        self.assertEqual(self.command("--calendar-status", **NO_BUS), (0, ALLOWED.format(1, 1)))
        self.put(self.own_folder("Quorvane", "displayname"), "My\x1b[31m tests\n")
        self.create("My [31m tests", **NO_BUS)
        self.assertEqual(self.command("--calendar-status", **NO_BUS), (0, ALLOWED.format(1, 2)))

    def test_a_default_calendar_that_is_read_only_is_not_got_around(self):
        os.makedirs(self.own_folder())
        self.choose_default("birthdays")
        self.assertEqual(self.command("--create-test-meeting"), (4, NO_CALENDAR))
        self.assertEqual(self.files(), [])

    def test_a_default_calendar_that_is_switched_off_is_not_got_around(self):
        os.makedirs(self.own_folder())
        evolution.seed(self.session, enabled=False)
        self.choose_default("meetings1")
        self.assertEqual(self.command("--create-test-meeting"), (4, NO_CALENDAR))
        self.assertEqual(self.files(), [])

    def test_a_folder_that_cannot_be_written(self):
        os.makedirs(self.own_folder())
        self.put(self.own_folder("Quorvane"))
        self.assertEqual(self.command("--create-test-meeting", **NO_BUS), (4, NO_CALENDAR))

    def test_a_meeting_that_cannot_be_saved(self):
        os.makedirs(self.own_folder())
        full = ("sh", "-c", 'trap "" XFSZ; ulimit -f 0; exec "$@"', "full")
        self.assertEqual(self.command("--create-test-meeting", wrapper=full, **NO_BUS),
                         (5, "Could not create the calendar test.\n"))
        self.assertEqual(self.files(), [])
        self.assertEqual(glob.glob(self.own_folder("*")), [])

    def test_what_hangs_is_not_got_around(self):
        self.command("--calendar-status")
        os.makedirs(self.own_folder())
        bus = socket.socket(socket.AF_UNIX)
        self.addCleanup(bus.close)
        bus.bind(os.path.join(self.session.folder, "silent"))
        bus.listen()
        silent_bus = f"DBUS_SESSION_BUS_ADDRESS=unix:path={bus.getsockname()}"
        nothing = f"XDG_DATA_HOME={os.path.join(self.session.folder, 'nothing')}"
        begin = time.monotonic()
        with evolution.Stopped(self.session):
            running = []
            for hanging in ((), (silent_bus,)):
                for surroundings, status, create in (((), (0, ALLOWED.format(0, 0)), (4, NO_CALENDAR)),
                                                     ((nothing,), (3, NO_ACCESS), (3, NO_ACCESS))):
                    wrapper = ("env", *hanging, *surroundings)
                    running += [(self.start("--calendar-status", wrapper=wrapper), status),
                                (self.start("--create-test-meeting", wrapper=wrapper), create)]
            for process, outcome in running:
                self.assertEqual(self.outcome(process), outcome)
        self.assertLess(time.monotonic() - begin, 40)
        self.assertEqual(self.files(), [])


if __name__ == "__main__":
    main()
