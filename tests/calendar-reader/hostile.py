#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Caches made to hurt: the reader ends in time, within its memory, and says no more than it knows."""
import json
import os
import random
import resource
import subprocess
import sys
import unittest

from harness import ENVIRONMENT, READER, SCHEMA, ReaderTest, calendar, event, stamp

WORDS = {b"database_unavailable\n", b"unsupported_format\n"}
SANITIZED = b"__asan_init" in subprocess.run(["nm", "-D", READER], capture_output=True, check=False).stdout
# Runs a program and tells its peak memory in kB. By a small process: what is forked begins with its parent's peak.
PEAK = """
import resource, subprocess, sys
status = subprocess.call(sys.argv[1:])
print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss, file=sys.stderr)
sys.exit(status)
"""
LONG_ZONE = ("BEGIN:VTIMEZONE\r\nTZID:Slow\r\n"
             + ("BEGIN:DAYLIGHT\r\nDTSTART:00010101T000000\r\nTZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\n"
                "RRULE:FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30\r\nEND:DAYLIGHT\r\n") * 30 + "END:VTIMEZONE")
SPINNING = calendar(*[LONG_ZONE.replace("Slow", f"Slow{i}") for i in range(50)],
                    *(line for i in range(50) for line in (
                        "BEGIN:VEVENT", f"UID:{i}", f"DTSTART;TZID=Slow{i}:{stamp(3600)[:-1]}",
                        "DURATION:PT1H", "END:VEVENT")))


class Hostile(ReaderTest):
    def test_damaged_files_end_in_time_and_tell_nothing_wrong(self):
        self.make(*(event(f"{i}", f"SUMMARY:{i}", "DESCRIPTION:" + "y" * (i * 40)) for i in range(150)))
        whole = self.path.read_bytes()
        chance = random.Random(7)
        succeeded = 0
        for number in range(300):
            damaged = bytearray(whole)
            for _ in range(chance.choice((1, 3, 30))):
                place = chance.randrange(len(damaged)) if chance.random() < 0.7 else chance.randrange(4096)
                damaged[place] = chance.randrange(256)
            if number % 10 == 0:
                page = chance.randrange(len(damaged) // 4096) * 4096
                damaged[page:page + 4096] = chance.randbytes(4096)
            self.path.write_bytes(damaged)
            outcome = self.read()
            self.assertLess(outcome.seconds, 10)
            if outcome.status == 0:
                succeeded += 1
                self.assertLessEqual(len(outcome.snapshot["events"]), 150)
            else:
                self.assertIn((outcome.status, outcome.out, outcome.error), {(1, b"", word) for word in WORDS})
        self.assertGreater(succeeded, 10)
        most = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss / 1024
        self.assertLess(most, 1_000 if SANITIZED else 200)

    def test_what_libraries_spin_over_costs_only_itself(self):
        slow = {
            "a rule without days": event("a", "RRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30"),
            "a rule for ever": event("a", f"DTSTART:{stamp(-900)}", "DURATION:PT1H", "RRULE:FREQ=SECONDLY"),
            "many series": calendar(*(line for i in range(400) for line in (
                "BEGIN:VEVENT", f"UID:{i}", "DTSTART;TZID=Europe/Paris:20180101T000000", "DURATION:PT1H",
                "RRULE:FREQ=HOURLY;BYMONTH=2;BYMONTHDAY=30", "END:VEVENT"))),
            "a zone": SPINNING,
        }
        for name, content in slow.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                self.make(event("first", "SUMMARY:first"), content, event("last", "SUMMARY:last", start=7200))
                outcome = self.snapshot()
                self.assertLess(outcome.seconds, 12)
                titles = outcome.titles()
                self.assertEqual((titles[0], titles[-1]), ("first", "last"))
                self.assertEqual(outcome.snapshot["skipped"], 1)

    def test_rows_that_are_given_up_hide_nothing_behind_them(self):
        self.make(event("first", "SUMMARY:first"), *[SPINNING] * 2, event("last", "SUMMARY:last", start=7200))
        outcome = self.snapshot()
        self.assertEqual((outcome.titles(), outcome.snapshot["skipped"]), (["first", "last"], 2))

    def test_too_many_rows_to_give_up_are_a_failure(self):
        self.make(event("first"), *[SPINNING] * 9, event("last"))
        outcome = self.read()
        self.assertLess(outcome.seconds, 14)
        self.assert_fails(outcome, "reader_failed", 2)

    def test_the_last_row_is_not_blamed_for_the_work_after_it(self):
        often = [f"DTSTART:{stamp(-900)}", "DURATION:PT1H", "RRULE:FREQ=MINUTELY;INTERVAL=5"]
        self.make(*(event(f"{i}", *often) for i in range(8)), event("last", "SUMMARY:last", start=60))
        outcome = self.snapshot()
        self.assertIn("last", outcome.titles())
        self.assertEqual(outcome.snapshot["skipped"], 0)

    def test_many_slow_rows_are_a_failure(self):
        slow = calendar(*(line for i in range(2_000) for line in (
            "BEGIN:VEVENT", f"UID:{i}", "DTSTART;TZID=Europe/Paris:20180101T000000", "RRULE:FREQ=HOURLY", "END:VEVENT")))
        self.make(event("first", "SUMMARY:first"), *[slow] * 20, event("last", "SUMMARY:last"))
        outcome = self.read()
        self.assertLess(outcome.seconds, 14)
        self.assert_fails(outcome, "reader_failed", 2)

    def test_too_little_memory_is_a_failure_of_the_reader(self):
        columns = ", ".join(f"c{i}" for i in range(2_000))
        with self.cache(event("a")) as database:
            database.executescript("BEGIN;" + ";".join(f"CREATE TABLE t{i} ({columns})" for i in range(1_500)) + ";END")
        self.assert_fails(self.read(), "reader_failed", 2)

    def test_a_large_cache_is_read_in_time(self):
        filler = event("x", "DTSTART:20010101T000000Z", "DURATION:PT1H", "DESCRIPTION:" + "z" * 20_000)
        with self.cache(event("soon", "SUMMARY:soon")) as database:
            database.executemany("INSERT INTO event VALUES ('work', ?, 978307200, 978310800, ?)",
                                 ((f"{i}", filler) for i in range(10_000)))
            database.execute("INSERT INTO event VALUES ('work', 'huge', NULL, NULL, printf('%.*c', 50000000, 'x'))")
        self.assertGreater(os.path.getsize(self.path), 200_000_000)
        outcome = self.snapshot()
        self.assertEqual((outcome.titles(), outcome.snapshot["skipped"]), (["soon"], 1))
        self.assertLess(outcome.seconds, 8)

    def test_long_descriptions_are_not_all_in_memory_at_once(self):
        with self.cache() as database:
            for number in range(4_000):
                self.add(database, event(f"{number}", "DESCRIPTION:" + "words and more " * 1_400), number)
        self.assertGreater(os.path.getsize(self.path), 80_000_000)
        environment = {**ENVIRONMENT, "ASAN_OPTIONS": "quarantine_size_mb=1"}
        outcome = self.read(before=[sys.executable, "-c", PEAK], env=environment)
        self.assertEqual((outcome.status, len(outcome.titles())), (0, 4_000))
        self.assertLess(int(outcome.error) / 1024, 150 if SANITIZED else 60)

    def test_tables_made_to_run_code_run_none(self):
        rows = {
            "a check": SCHEMA.replace("content TEXT NOT NULL", "content TEXT NOT NULL CHECK (length(content) > 0)"),
            "an index of an expression": SCHEMA + "CREATE INDEX more ON event (abs(first_start))",
            "a trigger": SCHEMA + "CREATE TRIGGER more AFTER INSERT ON calendar BEGIN SELECT 1; END",
            "more tables": SCHEMA + "CREATE TABLE more (a); CREATE VIEW most AS SELECT * FROM event",
        }
        for name, schema in rows.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                with self.cache(event("a", "SUMMARY:a"), schema=schema):
                    pass
                self.assertEqual(self.snapshot().titles(), ["a"])

    def test_garbage_on_standard_input_ends_at_once(self):
        self.make(event("a"))
        for text in (b"[" * 500_000, b'["' + b"\\u0000" * 100_000, json.dumps([[]] * 10).encode(), os.urandom(5_000)):
            self.assert_fails(self.read(stdin=text), "invalid_input", 2)
        many = json.dumps([f"{i}" for i in range(80_000)]).encode()
        self.assertEqual(self.read(stdin=many).titles(), ["Meeting"])


if __name__ == "__main__":
    unittest.main()
