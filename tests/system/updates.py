#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A copy of the program that keeps itself current: real archives of the built program, from a feed on this machine, on a
desktop with a tray."""
import io
import json
import os
import random
import signal
import tarfile
import time

from harness import SystemTest, main, wait_until
from tray_host import TrayHost, seen
from update_feed import FEED, FEED_PATH, Installation, UpdateFeed
from desktop import SwayDesktop
from https_peer import make_certificates

SIZES = ((1280, 720),)
CHECK = "Check for updates…"
PAUSE = "Pause screen alerts for 5 minutes"
RESUME = "Resume screen alerts"
# How often an installation that was put off is tried again, in seconds.
PERIOD = 15
# The names under which a panel may still show the icon of a program that has gone.
BUS_NAME = "me.tarnel.Quorvane"
BOMB = """<?xml version="1.0"?>
<!DOCTYPE rss [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">
<!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;"><!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;">]>
""" + FEED.split("\n", 1)[1].replace("Quorvane</title>", "&e;</title>")
# A version that finds nothing wrong with itself and ends a moment after its start.
SHORT_LIVED = """#!/bin/sh
[ "$1" = --self-test ] || (sleep 2; kill -SEGV $$) &
exec "$(dirname "$(readlink -f "$0")")/program" "$@"
"""


def windows(desktop):
    def count(node):
        children = node.get("nodes", []) + node.get("floating_nodes", [])
        return (node.get("pid") is not None and node.get("name") == "Quorvane") + sum(map(count, children))
    return count(json.loads(desktop.message("-t", "get_tree", "-r")))


def with_entry(archive, path, entry, content=b""):
    """Copies an archive, with one more entry, to `path`."""
    with tarfile.open(archive) as given, tarfile.open(path, "w:xz", preset=0, format=tarfile.USTAR_FORMAT) as made:
        for kept in given:
            made.addfile(kept, given.extractfile(kept) if kept.isreg() else None)
        entry.size = len(content)
        made.addfile(entry, io.BytesIO(content))
    return path


class UpdateTest(SystemTest):
    @classmethod
    def setUpClass(cls):
        make_certificates(cls)
        cls.feed = UpdateFeed(cls.folder)
        cls.archives = {version: cls.feed.archive(version) for version in (1, 2)}

    def setUp(self):
        self.feed.server.behaviours.clear()
        self.feed.server.tell(status=404)
        self.feed.server.log["requests"].clear()

    def install(self, archive=None, **settings):
        """Unpacks version 1, or another archive, on a desktop with a tray, and starts it there."""
        self.desktop = SwayDesktop(sizes=SIZES)
        self.host = TrayHost(self.desktop)
        self.installation = Installation(archive or self.archives[1], os.path.join(self.desktop.home, "Applications"))

        def seed(desktop):
            self.enterContext(self.host)
            self.feed.trust(desktop)
        self.addCleanup(self.end_owner)
        self.program = self.quorvane(self.desktop, seed=seed, executable=self.installation.executable,
                                     settings={"automaticallyDownloadsUpdates": "true", "soundEnabled": "false", **settings})
        self.item = self.host.wait_item()

    def offer(self, archive, **item):
        self.feed.announce(self.feed.item(archive, **item))
        self.feed.offer(archive)

    def check(self):
        """Asks for updates until the program does look."""
        before = len(self.feed.requests(FEED_PATH))
        wait_until("a look at the feed", lambda: len(self.feed.requests(FEED_PATH)) > before or
                   self.item.click(CHECK), 40, interval=0.3)

    def restart(self):
        """Starts what a person would start, and waits until a copy works."""
        items = len(self.host.items)
        self.program.start()
        self.item = self.host.wait_item(20, items + 1)

    def running_version(self):
        """The version of the one copy."""
        return self.installation.version_of(self.owner())

    def owner(self):
        """The process that is the one copy of the program on the bus; None while there is none."""
        try:
            return int(self.desktop.run("dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
                                        "org.freedesktop.DBus.GetConnectionUnixProcessID", f"string:{BUS_NAME}").split()[-1])
        except Exception:
            return None

    def end_owner(self):
        """Ends a copy that another one has started."""
        owner = self.owner()
        if owner and self.installation.version_of(owner):
            os.kill(owner, signal.SIGKILL)


class Update(UpdateTest):
    def test_the_new_version_waits_for_the_alert_and_takes_everything_over(self):
        self.install(trayHintShown="true")
        pid = self.program.process.pid
        self.offer(self.archives[2])
        self.check()
        event = self.meeting_soon(self.program)
        wait_until("version 2 beside version 1", lambda: "2" in self.installation.versions(), 30)
        prepared = time.time()
        self.assert_alerts_on_time(self.program, event)
        self.assert_alert_on_every_display(self.desktop)
        time.sleep(max(prepared + PERIOD + 2 - time.time(), 0))  # a firing that has to let the alert stand
        self.assertEqual((self.installation.current(), self.running_version()), ("1", "1"))
        self.assert_return_acknowledges(self.desktop, self.program, event)
        self.item.click(PAUSE)
        self.item.wait_text(RESUME)
        paused = time.time()
        self.close_windows()

        wait_until("version 2 in the same process", lambda: self.installation.version_of(pid) == "2", PERIOD + 5,
                   self.program.process, self.program.log)
        self.assertLess(self.installation.swapped() - paused, PERIOD + 1)
        self.item = self.host.wait_item(20, 2)
        self.assertIsNone(self.program.process.poll())
        self.assertEqual((self.program.process.pid, self.owner()), (pid, pid))
        self.assertIn(RESUME, [text and seen(text) for text in self.item.texts()])
        self.assertTrue(self.program.record(event.meeting_id())["acknowledged"])
        self.assert_settings("automaticallyDownloadsUpdates=true", "soundEnabled=false", "trayHintShown=true")
        self.assertEqual(windows(self.desktop), 0)
        self.assert_no_alert_anywhere(self.desktop)
        wait_until("the trial's end", lambda: not os.path.exists(os.path.join(self.installation.root, "trial.json")), 30)
        self.assertEqual(self.program.stop(), 0)
        self.restart()
        self.assertEqual(self.running_version(), "2")

    def close_windows(self):
        """Should looking for updates have opened the dashboard, it is not to come up again."""
        wait_until("the window closing", lambda: not windows(self.desktop) or
                   self.desktop.message('[title="^Quorvane$"]', "kill") and False)

    def assert_settings(self, *lines):
        path = os.path.join(self.desktop.env["XDG_CONFIG_HOME"], "Quorvane/settings.ini")
        with open(path, encoding="utf-8") as file:
            self.assertLessEqual(set(lines), set(file.read().split("\n")))

    def test_a_copy_without_a_feed_looks_nowhere(self):
        self.install(self.feed.archive(1, with_feed=False))
        before = self.installation.fingerprint()
        self.item.click(CHECK)
        self.item.texts()
        self.program.stays_silent(2)
        self.assertEqual(self.feed.requests(), [])
        self.assertEqual(self.installation.fingerprint(), before)
        self.assertEqual(self.program.stop(), 0)


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
        def shorten(root):
            program = os.path.join(root, "versions/2/bin/quorvane")
            os.rename(program, os.path.join(os.path.dirname(program), "program"))
            with open(program, "w", encoding="utf-8") as file:
                file.write(SHORT_LIVED)
            os.chmod(program, 0o755)

        self.install()
        pid = self.program.process.pid
        self.offer(self.feed.changed(self.archives[2], shorten, "short-lived"), like=self.archives[2])
        self.check()
        wait_until("version 2", lambda: self.running_version() == "2", 60, self.program.process, self.program.log)
        wait_until("its end", lambda: self.running_version() is None, 20)
        owner = wait_until("version 1 again", lambda: self.installation.version_of(self.owner()) == "1" and self.owner(), 20)
        self.assertNotEqual(owner, pid)
        self.item = self.host.wait_item(20, len(self.host.items))
        self.assertEqual(self.installation.current(), "1")
        os.kill(owner, signal.SIGTERM)
        wait_until("its end", lambda: self.owner() is None)
        self.restart()
        self.assertEqual(self.running_version(), "1")

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
                wait_until(what, has_come, 60, self.program.process, self.program.log, 0.001)
                time.sleep(random.uniform(0, 0.05))
                self.program.kill()
                self.restart()
                self.assertIn(self.running_version(), ("1", "2"))
                self.assertEqual(self.installation.current(), self.running_version())
                if self.running_version() == "2":
                    break
        self.assertEqual(self.program.stop(), 0)


if __name__ == "__main__":
    main()
