#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The reader beside programs that write the cache: it sees each commit whole, waits for no log and writes nothing."""
import os
import sqlite3
import struct
import subprocess
import sys
import threading
import time
import unittest

from harness import NOBODY, READER, ReaderTest, event

# Makes the last commit of each situation, tells so, and waits to be ended.
WRITER = """
import sqlite3, sys
path, journal, statement, *contents = sys.argv[1:]
database = sqlite3.connect(path, isolation_level=None)
database.execute("PRAGMA journal_mode = " + journal)
database.execute("PRAGMA wal_autocheckpoint = 0")
database.execute("PRAGMA cache_size = 1")
for part in statement.split(";"):
    database.execute(part, contents if "?" in part else [])
print("ready", flush=True)
if sys.stdin.readline():
    database.close()
"""
INSERT = "INSERT INTO event VALUES ('work', 'late', NULL, NULL, ?)"
READ_ONLY = ["unshare", "--mount", "sh", "-c",
             'mount --bind "$0" "$0" && mount -o remount,ro,bind "$0" && exec "$@"']


class Writers(ReaderTest):
    def writer(self, journal, statement, *contents):
        writer = subprocess.Popen([sys.executable, "-c", WRITER, self.path, journal, statement, *contents],
                                  stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(self.end, writer)
        self.assertEqual(writer.stdout.readline(), "ready\n")
        return writer

    @staticmethod
    def end(writer):
        writer.kill()
        writer.communicate()

    def places(self):
        """Ways to run the reader: as it is, where it may not write, and where nobody can."""
        for file in self.folder.iterdir():
            file.chmod(0o644)
        yield "plain", []
        yield "without the right to write", NOBODY
        if subprocess.run(["unshare", "--mount", "true"], capture_output=True, check=False).returncode == 0:
            yield "read-only medium", [*READ_ONLY, str(self.folder)]

    def state(self):
        return {file.name: (file.stat().st_mtime_ns, file.stat().st_ctime_ns, file.read_bytes())
                for file in self.folder.iterdir()}

    def assert_read_everywhere(self, titles):
        for name, before in self.places():
            with self.subTest(name):
                earlier = self.state()
                self.assertEqual(sorted(self.snapshot(before=before).titles()), titles)
                self.assertEqual(self.state(), earlier)

    def test_every_commit_is_seen_whoever_wrote_it_and_nothing_is_written(self):
        rows = {
            "rollback journal": ("DELETE", lambda writer: writer.communicate("end\n")),
            "rollback journal, writer at rest": ("DELETE", lambda writer: None),
            "log, writer at rest": ("WAL", lambda writer: None),
            "log, writer gone in good order": ("WAL", lambda writer: writer.communicate("end\n")),
            "log, writer killed": ("WAL", self.end),
            "log without its index": ("WAL", lambda writer: (self.end(writer), self.drop("-shm"))),
            "log emptied": ("WAL", lambda writer: (writer.communicate("end\n"), self.touch("-wal"))),
        }
        for name, (journal, then) in rows.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                self.make(event("early", "SUMMARY:early"))
                then(self.writer(journal, INSERT, event("late", "SUMMARY:late")))
                self.assert_read_everywhere(["early", "late"])
            for file in self.folder.iterdir():
                file.unlink()

    def drop(self, suffix):
        os.unlink(f"{self.path}{suffix}")

    def touch(self, suffix):
        with open(f"{self.path}{suffix}", "wb"):
            pass

    def test_a_transaction_that_is_under_way_is_not_seen(self):
        for journal in ("WAL", "DELETE"):
            with self.subTest(journal):
                self.path.unlink(missing_ok=True)
                self.make(event("early", "SUMMARY:early"))
                writer = self.writer(journal, "BEGIN IMMEDIATE;" + INSERT, event("late", "SUMMARY:late"))
                self.assert_read_everywhere(["early"])
                self.end(writer)

    def test_a_cache_that_stays_locked_is_given_up(self):
        self.make(event("early"))
        self.writer("DELETE", "BEGIN EXCLUSIVE")
        outcome = self.read()
        self.assert_fails(outcome, "database_unavailable")
        self.assertGreater(outcome.seconds, 1.5)

    def test_a_short_lock_is_waited_for(self):
        self.make(event("early"))
        writer = self.writer("DELETE", "BEGIN EXCLUSIVE")
        threading.Timer(0.5, writer.kill).start()
        self.assertEqual(self.snapshot().titles(), ["Meeting"])

    def test_a_journal_that_has_to_be_rolled_back_needs_the_writer(self):
        self.make(*(event(f"{i}", "DESCRIPTION:" + "x" * 5_000) for i in range(200)))
        self.end(self.writer("DELETE", "BEGIN;UPDATE event SET uid = uid || 'x';UPDATE event SET content = 'gone'"))
        self.assertTrue(os.path.getsize(f"{self.path}-journal") > 0)
        for name, before in self.places():
            with self.subTest(name):
                self.assert_fails(self.read(before=before), "database_unavailable")
        sqlite3.connect(self.path).execute("SELECT count(*) FROM event").fetchall()
        self.assertEqual(len(self.snapshot().titles()), 200)

    def test_a_log_that_may_not_be_read_is_no_reason_to_show_old_events(self):
        self.make(event("early"))
        self.writer("WAL", INSERT, event("late"))
        places = dict(self.places())
        os.chmod(f"{self.path}-wal", 0o200)
        self.assert_fails(self.read(before=places["without the right to write"]), "access_denied")

    def test_a_log_of_another_version_is_no_question_of_rights(self):
        self.make(event("early"))
        self.end(self.writer("WAL", INSERT, event("late")))
        with open(f"{self.path}-wal", "r+b") as log:
            words = list(struct.unpack("<6I", log.read(24)))
            words[1] = 0x01020304
            header, sums = struct.pack("<6I", *words), [0, 0]
            # https://www.sqlite.org/fileformat2.html#checksum_algorithm
            for number, word in enumerate(struct.unpack("<6I" if header[3] == 0x82 else ">6I", header)):
                sums[number % 2] = (sums[number % 2] + word + sums[1 - number % 2]) % 2**32
            log.seek(0)
            log.write(header + struct.pack(">2I", *sums))
        self.assert_fails(self.read(), "database_unavailable")

    def test_the_newest_commit_tells_how_old_the_cache_is(self):
        self.make(event("early"))
        os.utime(self.path, (1_000_000_000, 1_000_000_000.5))
        self.assertEqual(self.snapshot().snapshot["cacheModifiedAt"], 1_000_000_000.5)
        self.writer("WAL", INSERT, event("late"))
        os.utime(self.path, (1_000_000_000, 1_000_000_000.5))
        outcome = self.snapshot()
        self.assertAlmostEqual(outcome.snapshot["cacheModifiedAt"], os.stat(f"{self.path}-wal").st_mtime, 5)
        self.assertAlmostEqual(outcome.snapshot["checkedAt"], time.time(), delta=30)

    def test_a_busy_writer_never_shows_half_a_commit(self):
        self.make(event("a", "SUMMARY:0"), event("b", "SUMMARY:0"))
        database = sqlite3.connect(self.path, isolation_level=None)
        database.execute("PRAGMA journal_mode = WAL")
        database.execute("PRAGMA wal_autocheckpoint = 3")
        seen = set()
        for number in range(1, 200):
            if number % 10 == 0:
                reader = subprocess.Popen([READER, self.path], stdin=subprocess.PIPE, stdout=subprocess.PIPE)
                reader.stdin.write(b"[]")
                reader.stdin.close()
            database.execute("UPDATE event SET content = replace(content, ?, ?)",
                             (f"SUMMARY:{number - 1}\r", f"SUMMARY:{number}\r"))
            time.sleep(0.002)
            if number % 10 == 9 and number > 10:
                out = reader.stdout.read()
                reader.stdout.close()
                if reader.wait() == 0:
                    titles = {part.split(b'"')[0] for part in out.split(b'"title":"')[1:]}
                    self.assertEqual(len(titles), 1, titles)
                    seen |= titles
        database.close()
        self.assertGreater(len(seen), 3)


if __name__ == "__main__":
    unittest.main()
