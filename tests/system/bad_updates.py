#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Updates that are wrong, that do not live, and that are killed: real archives of the built program."""
import contextlib
import io
import os
import random
import signal
import tarfile
import time

from harness import DesktopError, main, wait_until
from update_feed import FEED, Installation
from update_test import UpdateTest

BOMB = """<?xml version="1.0"?>
<!DOCTYPE rss [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">
<!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;"><!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;">]>
""" + FEED.split("\n", 1)[1].replace("Quorvane</title>", "&e;</title>")
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


def with_entry(archive, path, entry, content=b""):
    """Copies an archive, with one more entry, to `path`."""
    with tarfile.open(archive) as given, tarfile.open(path, "w:xz", preset=0, format=tarfile.USTAR_FORMAT) as made:
        for kept in given:
            made.addfile(kept, given.extractfile(kept) if kept.isreg() else None)
        entry.size = len(content)
        made.addfile(entry, io.BytesIO(content))
    return path


class Refusal(UpdateTest):
    def test_whatever_is_wrong_changes_nothing(self):
        self.install()
        before = self.installation.fingerprint()
        for what, spoil in self.wrong_offers().items():
            with self.subTest(what):
                self.setUp()
                fetches = spoil()
                self.check()
                if fetches:
                    self.feed.wait_request("/quorvane-", 20)
                self.settle()
                self.assertEqual(bool(self.feed.requests("/quorvane-")), fetches)
                self.assertEqual(self.installation.fingerprint(), before)
                self.assertEqual(os.listdir(os.path.dirname(self.installation.root)), ["Quorvane"])
                self.assertEqual(self.running_version(), "1")
        self.offer(self.archives[2])
        self.check()
        wait_until("what nothing is wrong with", lambda: "2" in self.installation.versions(), 30)

    def settle(self):
        """Waits until what was found is dealt with: only then does it look again."""
        self.feed.announce()
        self.check()

    def wrong_offers(self):
        """What is wrong, and a function that announces it; it says whether the archive is fetched at all."""
        good, old = self.archives[2], self.archives[1]
        length = os.path.getsize(good)

        def offer(archive, **item):
            self.offer(archive, **item)
            return True

        def truncated():
            path = os.path.join(self.folder, "quorvane-truncated.tar.xz")
            with open(good, "rb") as whole, open(path, "wb") as part:
                part.write(whole.read(length // 2))
            item = self.feed.item(good).replace(os.path.basename(good), os.path.basename(path))
            self.feed.announce(item)
            self.feed.offer(path)
            return True

        def announce(*items, **how):
            self.feed.announce(*items, **how)
            self.feed.offer(good)
            return False

        escaping = tarfile.TarInfo("Quorvane/versions/2/../../../../../../escaped")
        link = tarfile.TarInfo("Quorvane/versions/2/share/out")
        link.type, link.linkname = tarfile.SYMTYPE, "../../../../.."
        return {
            "wrong signature": lambda: offer(good, key="theirs"),
            "announced too long": lambda: offer(good, length=length + 1),
            "announced too short": lambda: offer(good, length=length - 1),
            "truncated": truncated,
            "an older version": lambda: announce(self.feed.item(old)),
            "an older version as a newer one": lambda: offer(old, version="3"),
            "a path that leads out": lambda: offer(with_entry(good, os.path.join(self.folder, "quorvane-path.tar.xz"),
                                                              escaping, b"escaped")),
            "a link that leads out": lambda: offer(with_entry(good, os.path.join(self.folder, "quorvane-link.tar.xz"), link)),
            "a feed of 50 MB": lambda: announce(self.feed.item(good) + " " * 50_000_000),
            "a feed with entities": lambda: announce(self.feed.item(good), feed=BOMB),
            "a feed that is none": lambda: announce(feed="no feed at all {items}"),
        }


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
