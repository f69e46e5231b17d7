#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""New versions that do not live, that are killed, and that end in their first seconds: real archives of the built program."""
import contextlib
import os
import random
import signal
import time

from harness import DesktopError, main, wait_until
from update_feed import Installation
from update_test import UpdateTest

# A version that finds nothing wrong with itself and ends a moment after its start, unless it has given way by then.
SHORT_LIVED = """#!/bin/sh
[ "$1" = --self-test ] || (sleep 2; [ $(basename "$(readlink /proc/$$/exe)") = program ] && kill -SEGV $$) &
exec "$(dirname "$(readlink -f "$0")")/program" "$@"
"""
# One that does not even begin.
STILLBORN = """#!/bin/sh
[ "$1" = --self-test ] || exit 1
exec "$(dirname "$(readlink -f "$0")")/program" "$@"
"""


class Crash(UpdateTest):
    def test_a_version_that_does_not_live_gives_way_to_the_one_before(self):
        self.install()
        owner = self.program.process.pid
        for version, script in (("2", SHORT_LIVED), ("3", STILLBORN)):
            with self.subTest(version):
                archive = self.feed.archive(version)
                broken = self.feed.changed(archive, lambda root: self.replace_program(root, version, script), f"broken-{version}")
                self.offer(broken, like=archive)
                self.check()
                former = owner
                wait_until("the version's start", lambda: self.installation.current() == version, 60, interval=0.01)
                owner = wait_until("version 1 again", lambda: self.owner() != former and
                                   self.installation.version_of(self.owner()) == "1" and self.owner(), 30)
                self.take_item()
                self.assertEqual(self.installation.current(), "1")
        os.kill(owner, signal.SIGTERM)
        wait_until("its end", lambda: self.owner() is None)
        self.restart()
        self.assertEqual(self.running_version(), "1")

    def test_a_version_that_waits_for_the_next_start_and_does_not_live_gives_way(self):
        self.install()
        archive = self.archives[2]
        self.offer(self.feed.changed(archive, lambda root: self.replace_program(root, "2", STILLBORN), "broken"), like=archive)
        self.check()
        wait_until("version 2 beside version 1", lambda: "2" in self.installation.versions(), 30)
        wait_until("the end of the preparation", lambda: not self.installation.left_in_updates(), 30)
        self.assertEqual(self.program.stop(), 0)
        self.assertEqual(self.installation.current(), "1")
        self.program.start()
        wait_until("version 1 again", lambda: self.owner() and self.running_version() == "1" and
                   os.path.exists(os.path.join(self.installation.root, "rejected.json")), 30)
        self.assertEqual(self.installation.current(), "1")
        self.assertEqual(sorted(name for name in os.listdir(self.installation.root) if name.startswith(("trial", "pending"))), [])

    @staticmethod
    def replace_program(root, version, script):
        program = os.path.join(root, "versions", version, "bin/quorvane")
        os.rename(program, os.path.join(os.path.dirname(program), "program"))
        with open(program, "w", encoding="utf-8") as file:
            file.write(script)
        os.chmod(program, 0o755)

    def test_the_program_starts_whenever_it_was_killed(self):
        """The moments are those at which something has just come to be, and some hundredths of a second after that."""
        self.install()
        root = self.installation.root
        self.offer(self.archives[2])
        for what, has_come in (("an archive", lambda: self.installation.left_in_updates()),
                               ("a folder beside it", lambda: len(self.installation.left_in_updates()) > 1),
                               ("version 2", lambda: "2" in self.installation.versions()),
                               ("the trial", lambda: os.path.exists(os.path.join(root, "trial.json"))),
                               ("the new version", lambda: self.running_version() == "2")):
            with self.subTest(what):
                self.check()
                owner = self.owner()
                wait_until(what, has_come, 60, interval=0.001)
                time.sleep(random.uniform(0, 0.05))
                os.kill(owner, signal.SIGKILL)
                wait_until("its end", lambda: self.owner() != owner)
                self.restart()  # or who looks after a new version has been quicker
                self.assertIn(self.running_version(), ("1", "2"))
                self.assertEqual(self.installation.current(), self.running_version())
                if self.running_version() == "2":
                    break


class Trial(UpdateTest):
    """Version 2 has just been put in place of version 1, and nothing runs."""

    def put_on_trial(self):
        self.install()
        self.assertEqual(self.program.stop(), 0)
        Installation(self.archives[2], os.path.dirname(self.installation.root))  # which leaves version 1 beside it
        with open(self.path("trial.json"), "w", encoding="utf-8") as file:
            file.write('{"version": "2", "previous": "1", "handover": {"window": false}}')

    def path(self, name):
        return os.path.join(self.installation.root, name)

    def start_until_on_trial(self):
        self.program.start()
        wait_until("its trial", lambda: os.path.exists(self.path("trial.running")), 20, interval=0.001)

    def assert_not_judged(self):
        self.assertEqual(self.installation.current(), "2")
        self.assertFalse(os.path.exists(self.path("rejected.json")))

    def test_of_two_starts_at_once_the_one_that_stays_proves_the_version(self):
        self.put_on_trial()
        self.start_until_on_trial()
        first = self.program.process
        first.send_signal(signal.SIGSTOP)
        self.program.start()
        wait_until("the other copy at work", lambda: self.owner() == self.program.process.pid, 20)
        first.send_signal(signal.SIGCONT)
        self.assertEqual(first.wait(15), 0)
        self.assertTrue(os.path.exists(self.path("trial.json")))
        wait_until("the trial's end", lambda: not os.path.exists(self.path("trial.json")), 30)
        self.assert_not_judged()
        self.assertEqual((self.owner(), self.running_version()), (self.program.process.pid, "2"))

    def test_an_end_that_was_asked_for_is_no_failure(self):
        self.put_on_trial()
        self.start_until_on_trial()
        self.assertEqual(self.program.stop(), 0)
        self.assert_not_judged()
        self.assertFalse(os.path.exists(self.path("trial.json")))

    def test_the_end_of_the_session_is_no_failure(self):
        self.put_on_trial()
        self.start_until_on_trial()
        wait_until("a copy at work", self.owner, 20)
        with contextlib.suppress(DesktopError):  # it is gone before it could answer
            self.desktop.message("exit")
        wait_until("its end", lambda: self.program.process.poll() is not None, 20)
        wait_until("the end of who came to look", lambda: not os.path.exists(self.path("trial.running")), 20)
        self.assert_not_judged()
        self.assertTrue(os.path.exists(self.path("trial.json")))


if __name__ == "__main__":
    main()
