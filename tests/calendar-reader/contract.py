#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the reader says of a cache that it cannot read, of its input and of its output."""
import os
import pathlib
import pty
import re
import shutil
import sqlite3
import subprocess
import unittest

from harness import ENVIRONMENT, NOBODY, READER, SCHEMA, ReaderTest, event


class Contract(ReaderTest):
    def test_a_file_that_is_no_cache_is_told_apart(self):
        self.make(event("a"))
        whole = self.path.read_bytes()
        rows = {
            "missing": (None, "database_unavailable"),
            "empty": (b"", "database_unavailable"),
            "cut within the first word": (whole[:10], "database_unavailable"),
            "cut within the header": (whole[:60], "database_unavailable"),
            "cut": (whole[:-4096], "database_unavailable"),
            "half": (whole[:len(whole) // 2], "database_unavailable"),
            "text": (b"BEGIN:VCALENDAR\r\n" * 500, "unsupported_format"),
            "short text": (b"x", "unsupported_format"),
            "first page overwritten": (whole[:100] + os.urandom(3996) + whole[4096:], "database_unavailable"),
        }
        for name, (content, word) in rows.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                if content is not None:
                    self.path.write_bytes(content)
                self.assert_fails(self.read(), word)

    def test_a_database_with_another_layout_is_not_understood(self):
        event_table = re.search(r"CREATE TABLE event .*?STRICT;", SCHEMA, re.S).group(0)
        columns = "SELECT '' AS calendar, '' AS uid, 1 AS first_start, 1 AS last_end, '' AS content"
        loose = event_table.replace("STRICT", "")
        rows = {
            "empty database": "VACUUM",
            "foreign tables": "CREATE TABLE note (text)",
            "a later version": SCHEMA + "PRAGMA user_version = 2",
            "another application": SCHEMA + "PRAGMA application_id = 7",
            "a table is missing": SCHEMA + "DROP TABLE own_address",
            "a column is missing": SCHEMA + "ALTER TABLE event DROP COLUMN content",
            "another type": SCHEMA.replace("first_start INTEGER", "first_start TEXT"),
            "no strict types": SCHEMA.replace(event_table, loose),
            "a view": SCHEMA + "DROP TABLE event; CREATE VIEW event AS " + columns,
            "a virtual table": SCHEMA + "DROP TABLE event;"
                               "CREATE VIRTUAL TABLE event USING fts5(calendar, uid, first_start, last_end, content)",
            "a computed column": SCHEMA.replace("content TEXT NOT NULL", "content TEXT AS (zeroblob(9))"),
            "UTF-16": SCHEMA.replace("UTF-8", "UTF-16"),
        }
        for name, script in rows.items():
            with self.subTest(name):
                self.path.unlink(missing_ok=True)
                database = sqlite3.connect(self.path)
                database.executescript(script)
                database.close()
                self.assert_fails(self.read(), "unsupported_format")

    def test_what_may_not_be_opened_is_told_from_what_is_not_there(self):
        self.make(event("a"))
        folder = pathlib.Path(self.folder, "folder")
        folder.mkdir()
        os.mkfifo(self.folder / "fifo")
        (self.folder / "link").symlink_to(self.path)
        rows = [(folder, 0o755, "database_unavailable"), (self.folder / "fifo", 0o644, "database_unavailable"),
                (folder / "none", 0o755, "database_unavailable"), (self.path / "below", 0o644, "database_unavailable"),
                (self.path, 0o200, "access_denied"), (self.folder / "link", 0o200, "access_denied")]
        reader = ["cp", READER, str(self.folder / "reader")]  # nobody may not enter every build folder
        subprocess.run(reader, check=True)
        for path, mode, word in rows:
            with self.subTest(path.name):
                if path.exists():
                    path.chmod(mode)
                run = subprocess.run([*NOBODY, self.folder / "reader", path], input=b"[]", capture_output=True,
                                     env=ENVIRONMENT, check=False)
                self.assertEqual((run.returncode, run.stdout, run.stderr), (1, b"", word.encode() + b"\n"))
        self.path.chmod(0o644)
        self.assertEqual(self.snapshot(before=[]).titles(), ["Meeting"])
        self.assertEqual(len(self.read(str(self.folder / "link")).snapshot["events"]), 1)

    def test_without_an_argument_the_cache_is_below_the_home_folder(self):
        self.make(event("a"))
        place = self.folder / "Library/Group Containers/85C27NK92C.com.flexibits.fantastical2.mac/Database"
        place.mkdir(parents=True)
        shutil.move(self.path, place)
        def read_at(home):
            run = subprocess.run([READER], input=b"[]", capture_output=True, check=False, env={**ENVIRONMENT, **home})
            return run.returncode, run.stderr
        self.assertEqual(read_at({"HOME": str(self.folder)}), (0, b""))
        self.assertEqual(read_at({"HOME": "/nonexistent"}), (1, b"database_unavailable\n"))
        self.assertEqual(read_at({"HOME": ""}), (1, b"database_unavailable\n"))

    def test_input_is_one_list_of_texts(self):
        self.make(event("a"))
        for text in (b"", b"{}", b"[1]", b'["a"', b'["a"] x', b"null", b"\xff\xfe", b'["' + b"a" * 1_000_000 + b'"]'):
            with self.subTest(text[:20]):
                self.assert_fails(self.read(stdin=text), "invalid_input", 2)
        self.assertEqual(self.read(stdin=b' ["other", "\\u05d0"]\n').titles(), ["Meeting"])

    def test_input_that_does_not_end_is_not_waited_for(self):
        self.make(event("a"))
        with subprocess.Popen([READER, self.path], stdin=subprocess.PIPE, stderr=subprocess.PIPE, env=ENVIRONMENT,
                              stdout=subprocess.PIPE) as process:
            process.stdin.write(b"[")
            process.stdin.flush()
            self.assertEqual(process.wait(timeout=15), 2)

    def test_a_person_is_told_how_to_use_it(self):
        screen, terminal = pty.openpty()
        for stdin, arguments in ((terminal, [self.path]), (subprocess.DEVNULL, [self.path, "more"])):
            run = subprocess.run([READER, *arguments], stdin=stdin, capture_output=True, env=ENVIRONMENT,
                                 timeout=30, check=False)
            self.assertEqual((run.returncode, run.stdout), (2, b""))
            self.assertIn(b"usage: ", run.stderr)
        os.close(terminal)
        os.close(screen)

    def test_output_that_nobody_takes_is_a_failure(self):
        self.make(*(event(f"{i}") for i in range(5)))
        end, other = os.pipe()
        os.close(end)
        with open("/dev/full", "wb") as full:
            for stdout in (other, full):
                outcome = self.read(stdout=stdout)
                self.assertEqual((outcome.status, outcome.error), (2, b"output_failed\n"))
        os.close(other)


if __name__ == "__main__":
    unittest.main()
