#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the reader makes of the events in the cache."""
import datetime
import subprocess
import time
import unittest
import zoneinfo

from harness import NOW, ROOT, ReaderTest, calendar, event, identity, stamp

DAY = 86_400
LOCAL = zoneinfo.ZoneInfo("Asia/Jerusalem")
VTIMEZONE = ["BEGIN:VTIMEZONE", "TZID:Office", "BEGIN:STANDARD", "DTSTART:19700101T000000", "TZOFFSETFROM:-0330",
             "TZOFFSETTO:-0330", "END:STANDARD", "END:VTIMEZONE"]
LINK = "https://zoom.us/j/123"


def local(seconds):
    return datetime.datetime.fromtimestamp(NOW + seconds, LOCAL).strftime("%Y%m%dT%H%M%S")


class Contents(ReaderTest):
    def test_a_meeting_has_all_that_an_alert_needs(self):
        self.make(event("uid-1", "SUMMARY:Plan\\, then act", f"LOCATION:{LINK}", start=7200))
        start = int(NOW) + 7200
        self.assertEqual(self.snapshot().snapshot["events"], [
            {"id": identity("uid-1", start), "title": "Plan, then act", "start": start, "end": start + 3600,
             "calendar": "Work", "joinURL": LINK, "source": "mac", "cancelled": False, "allDay": False}])

    def test_only_what_may_still_begin_for_the_user_is_listed(self):
        attendee = "ATTENDEE;PARTSTAT={}:mailto:{}"
        rows = [
            (True, ["SUMMARY:x"], 3600), (True, ["SUMMARY:x"], -100), (False, ["SUMMARY:x"], -121),
            (True, ["SUMMARY:x"], 14 * DAY - 60), (False, ["SUMMARY:x"], 14 * DAY + 60),
            (False, ["STATUS:CANCELLED"], 3600), (True, ["STATUS:TENTATIVE"], 3600),
            (False, [f"DTSTART;VALUE=DATE:{stamp(DAY, '%Y%m%d')}"], 0),
            (False, [f"DTSTART:{stamp(3600)}"], 0),
            (False, [attendee.format("DECLINED", "me@office.example")], 3600),
            (False, [attendee.format("DECLINED", "ME@home.example")], 3600),
            (True, [attendee.format("DECLINED", "other@office.example")], 3600),
            (True, [attendee.format("ACCEPTED", "me@office.example")], 3600),
            (True, [attendee.format("DECLINED", "me@elsewhere.example")], 3600)]
        for expected, lines, start in rows:
            with self.subTest(lines=lines, start=start):
                self.path.unlink(missing_ok=True)
                passed = int(time.time() - NOW)
                with self.cache(event("a", *lines, start=start + passed)) as database:
                    database.executemany("INSERT INTO own_address VALUES (?, ?)",
                                         [("work", "mailto:me@office.example"), (None, "me@home.example"),
                                          ("other", "me@elsewhere.example")])
                self.assertEqual(len(self.snapshot().titles()), expected)

    def test_times_are_understood_in_their_zone(self):
        rows = {"UTC": (f"DTSTART:{stamp(DAY)}", DAY), "floating": (f"DTSTART:{local(DAY)}", DAY),
                "named": (f"DTSTART;TZID=Asia/Jerusalem:{local(DAY)}", DAY),
                "defined": (f"DTSTART;TZID=Office:{stamp(DAY, '%Y%m%dT%H%M%S')}", DAY + 3.5 * 3600)}
        for name, (start, expected) in rows.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                self.make(calendar(*VTIMEZONE, "BEGIN:VEVENT", "UID:z", start, "DURATION:PT1H", "END:VEVENT"))
                self.assertEqual(self.snapshot().snapshot["events"][0]["start"], int(NOW + expected))

    def test_a_series_keeps_its_exceptions_and_changes(self):
        master = ["BEGIN:VEVENT", "UID:s", "SUMMARY:Standup", f"DTSTART:{stamp(-30 * DAY + 3600)}", "DURATION:PT15M",
                  "RRULE:FREQ=DAILY", f"EXDATE:{stamp(2 * DAY + 3600)}", "END:VEVENT"]
        moved = ["BEGIN:VEVENT", "UID:s", "SUMMARY:Moved", f"RECURRENCE-ID:{stamp(DAY + 3600)}",
                 f"DTSTART:{stamp(DAY + 7200)}", "DURATION:PT15M", f"LOCATION:{LINK}", "END:VEVENT"]
        self.make(calendar(*master, *moved))
        events = self.snapshot().snapshot["events"]
        starts = [meeting["start"] - int(NOW) for meeting in events]
        self.assertEqual(starts[:4], [3600, DAY + 7200, 3 * DAY + 3600, 4 * DAY + 3600])
        self.assertEqual(len(events), 13)
        self.assertEqual([(meeting["title"], meeting.get("joinURL")) for meeting in events[:3]],
                         [("Standup", None), ("Moved", LINK), ("Standup", None)])
        self.assertEqual(len({meeting["id"] for meeting in events}), 13)

    def test_excluded_calendars_are_listed_but_not_read(self):
        with self.cache(event("a", "SUMMARY:Work")) as database:
            database.execute("INSERT INTO calendar VALUES ('\u05d0/home', 'Zuhause', 'Me')")
            self.add(database, event("b", "SUMMARY:Home"), 0, "\u05d0/home")
            self.add(database, "broken", 1, "\u05d0/home")
        outcome = self.snapshot(excluded=["\u05d0/home", "unknown"])
        self.assertEqual((outcome.titles(), outcome.snapshot["skipped"]), (["Work"], 0))
        self.assertEqual(outcome.snapshot["calendars"],
                         [{"id": "work", "name": "Work", "account": "Office"},
                          {"id": "\u05d0/home", "name": "Zuhause", "account": "Me"}])
        self.assertEqual(self.snapshot(excluded=["work", "\u05d0/home"]).titles(), [])

    def test_one_occurrence_in_two_calendars_is_one_meeting(self):
        with self.cache(event("a")) as database:
            database.execute("INSERT INTO calendar VALUES ('copy', 'Copy', 'Office')")
            self.add(database, event("a"), 0, "copy")
        self.assertEqual(len(self.snapshot().titles()), 1)

    def test_bounds_spare_reading_and_are_taken_generously(self):
        now = int(NOW)
        rows = [(None, None, True), (now, None, True), (None, now, True), (now + 13 * DAY, now + 13 * DAY, True),
                (now + 15 * DAY, None, True), (now - DAY, now - DAY, True), (now + 30 * DAY, None, False),
                (None, now - 30 * DAY, False), (now + DAY, now - 30 * DAY, False)]
        for first, last, expected in rows:
            with self.subTest(first=first, last=last):
                self.path.unlink(missing_ok=True)
                with self.cache() as database:
                    database.execute("INSERT INTO event VALUES ('work', 'a', ?, ?, ?)", (first, last, event("a")))
                self.assertEqual(len(self.snapshot().titles()), expected)

    def test_what_cannot_be_understood_costs_only_itself_and_is_counted(self):
        good = event("good", "SUMMARY:good")
        half = calendar("BEGIN:VEVENT", "UID:half", f"DTSTART:{stamp(3600)}", "DURATION:PT1H", "SUMMARY:half",
                        "END:VEVENT", "BEGIN:VEVENT", "UID:half", "RECURRENCE-ID:x", "SUMMARY:broken")
        rows = {"no calendar": "hello", "empty": "", "no UID": event(""), "no start": event("a", "DTSTART:soon"),
                "too long": event("a", "COMMENT:" + "x" * 1_000_000), "a long UID": event("u" * 2_000),
                "half": half, "zeros": "\0" * 5_000}
        for name, content in rows.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                with self.cache(content, good):
                    pass
                outcome = self.snapshot()
                self.assertEqual(outcome.titles(), ["half"] * (name == "half") + ["good"])
                self.assertEqual(outcome.snapshot["skipped"], 1)

    def test_rows_of_the_wrong_kind_are_counted(self):
        self.make(event("good", "SUMMARY:good"))
        with self.cache(event("good", "SUMMARY:good"), schema="DELETE FROM event; DELETE FROM calendar") as database:
            self.add(database, event("a"), 7, "unknown")
            database.execute("INSERT INTO calendar VALUES ('', 'no id', '')")
            database.execute("INSERT INTO calendar VALUES ('long', ?, '')", ("n" * 5_000,))
            database.execute("INSERT INTO calendar VALUES ('raw', CAST(x'ff' AS TEXT), '')")
            database.execute("INSERT INTO own_address VALUES ('work', ?)", ("a" * 5_000,))
        outcome = self.snapshot()
        self.assertEqual((outcome.titles(), outcome.snapshot["skipped"]), (["good"], 5))
        self.assertEqual(len(outcome.snapshot["calendars"]), 1)

    def test_a_snapshot_is_never_too_long_and_keeps_the_earliest(self):
        note = "https://zoom.us/j/1?pwd=" + "x" * 3_000
        self.make(*(event(f"{i}", f"SUMMARY:{i}", f"URL:{note}", start=3600 + i) for i in range(4_000)))
        outcome = self.snapshot()
        self.assertLessEqual(len(outcome.out), 8_000_000)
        self.assertGreater(len(outcome.out), 6_000_000)
        kept = len(outcome.titles())
        self.assertEqual(outcome.titles(), [f"{i}" for i in range(kept)])
        self.assertEqual(outcome.snapshot["skipped"], 4_000 - kept)

    def test_the_tool_makes_a_cache_of_calendar_files(self):
        samples = ROOT / "docs/samples"
        crew = self.folder / "crew"
        crew.mkdir()
        (crew / "a.ics").write_text(event("a", "SUMMARY:one", "X-LONG:" + "x" * 60 + "\r\n y"), encoding="utf-8")
        (crew / "b.ics").write_text(calendar(*VTIMEZONE, "BEGIN:VEVENT", "UID:b", "SUMMARY:two",
                                             f"DTSTART;TZID=Office:{stamp(7200 - 12600, '%Y%m%dT%H%M%S')}",
                                             "DURATION:PT1H", "RRULE:FREQ=YEARLY", "END:VEVENT"), encoding="utf-8")
        cut_off = ["BEGIN:VEVENT", "UID:cut", "DTSTART:20200101T100000Z"]
        (self.folder / "own.ics").write_text(calendar(*cut_off, "BEGIN:VEVENT", "UID:d", "SUMMARY:three",
                                                      f"DTSTART:{stamp(10800)}", "DURATION:PT1H", "END:VEVENT", *cut_off)
                                             + event("c", "ATTENDEE;PARTSTAT=DECLINED:mailto:me@x.example"))
        subprocess.run([ROOT / "tools/make-calendar-cache", self.path, crew, self.folder / "own.ics",
                        *sorted(samples.glob("*.ics")), "--owner", "me@x.example", "--account", "Here"],
                       check=True, capture_output=True)
        outcome = self.snapshot(excluded=[f"Here/{path.stem}" for path in samples.glob("*.ics")])
        self.assertEqual((outcome.titles(), outcome.snapshot["skipped"]), (["one", "two", "three"], 0))
        self.assertEqual([meeting["start"] for meeting in outcome.snapshot["events"]],
                         [int(NOW) + 3600, int(NOW) + 7200, int(NOW) + 10800])
        self.assertEqual(outcome.snapshot["calendars"][0], {"id": "Here/crew", "name": "crew", "account": "Here"})
        self.assertEqual(self.snapshot().snapshot["skipped"], 0)


if __name__ == "__main__":
    unittest.main()
