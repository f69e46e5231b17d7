# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the built calendar reader on caches that the tests make. $QUORVANE_READER names the program."""
import contextlib
import hashlib
import json
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
READER = os.environ.get("QUORVANE_READER", str(ROOT / "build/release/calendar-reader/calendar-reader"))
SCHEMA = (ROOT / "docs/calendar-cache.sql").read_text(encoding="utf-8")
ENVIRONMENT = {"HOME": "/nonexistent", "PATH": "/usr/bin:/bin", "TZ": "Asia/Jerusalem",
               "ASAN_OPTIONS": "detect_stack_use_after_return=0"}
NOBODY = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
NOW = time.time()


def stamp(seconds, form="%Y%m%dT%H%M%SZ"):
    """An iCalendar time, in UTC, so many seconds from now."""
    return time.strftime(form, time.gmtime(NOW + seconds))


def event(uid, *lines, start=3600):
    """A VCALENDAR with one VEVENT of an hour; further lines may replace the times."""
    times = [] if any(line.startswith("DTSTART") for line in lines) else [f"DTSTART:{stamp(start)}", "DURATION:PT1H"]
    return calendar("BEGIN:VEVENT", f"UID:{uid}", *times, *lines, "END:VEVENT")


def calendar(*lines):
    return "\r\n".join(["BEGIN:VCALENDAR", "VERSION:2.0", *lines, "END:VCALENDAR", ""])


def identity(uid, start):
    return hashlib.sha256(f"{uid}|{int(start)}".encode()).hexdigest()


class Outcome:
    def __init__(self, process, seconds):
        self.status, self.out, self.error = process.returncode, process.stdout, process.stderr
        self.seconds = seconds
        self.snapshot = json.loads(process.stdout) if process.returncode == 0 else None

    def titles(self):
        return [meeting["title"] for meeting in self.snapshot["events"]]


class ReaderTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-reader-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.folder.chmod(0o755)
        self.path = self.folder / "Fantastical-8.fcdata"

    @contextlib.contextmanager
    def cache(self, *contents, schema=SCHEMA):
        """The cache with one calendar and these events in it, open for the test to change."""
        database = sqlite3.connect(self.path)
        with database:
            database.executescript(schema)
            database.execute("INSERT INTO calendar VALUES ('work', 'Work', 'Office')")
            for number, content in enumerate(contents):
                self.add(database, content, number)
            yield database
        database.close()

    @staticmethod
    def add(database, content, number, name="work"):
        database.execute("INSERT INTO event VALUES (?, ?, NULL, NULL, ?)", (name, f"row {number}", content))

    def make(self, *contents):
        with self.cache(*contents):
            pass

    def read(self, *arguments, excluded=(), before=(), stdin=None, **options):
        began = time.monotonic()
        options.setdefault("stdout", subprocess.PIPE)
        process = subprocess.run([*before, READER, *(arguments or [str(self.path)])],
                                 input=json.dumps(list(excluded)).encode() if stdin is None else stdin,
                                 stderr=subprocess.PIPE, env=options.pop("env", ENVIRONMENT), timeout=60, **options)
        return Outcome(process, time.monotonic() - began)

    def snapshot(self, **options):
        outcome = self.read(**options)
        self.assertEqual((outcome.status, outcome.error), (0, b""))
        return outcome

    def assert_fails(self, outcome, word, status=1):
        self.assertEqual((outcome.status, outcome.out, outcome.error), (status, b"", word.encode() + b"\n"))
