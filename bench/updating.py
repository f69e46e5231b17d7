# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""From the due second of an alert to its picture, while an update is looked for, fetched and unpacked."""
import os
import random
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/system"))
from tray_host import TrayHost  # noqa: E402
from update_feed import FEED_PATH, SUPPORT, Installation, UpdateFeed  # noqa: E402

from desktop import DesktopError, Event, Program, XorgDesktop, wait_until  # noqa: E402
from table import Figure, percentile  # noqa: E402

CHECK = "Check for updates…"
# From asking for the update to the due second: enough for a meeting that is added then to be known, and its alert
# prepared, as for one that was known for long.
AHEAD = 5.5
FETCHING = 9  # seconds, by the server's limit
FILLING = 480_000_000  # bytes in the archive beside the program, so that unpacking takes as long as that
TRIES = 3  # of each alert: what is under way cannot be timed to the tenth of a second


def heavy(root):
    """Makes a version large, and sees to it that it is never installed: so it can be fetched again and again."""
    version = os.path.join(root, "versions/2")
    words = [b"%d words of a document that somebody has written\n" % random.randrange(10 ** 9) for _ in range(20_000)]
    with open(os.path.join(version, "share/filling"), "wb") as file:
        while file.tell() < FILLING:
            file.write(b"".join(random.sample(words, 1_000)))
    program = os.path.join(version, "bin/quorvane")
    os.remove(program)
    with open(program, "w", encoding="utf-8") as file:
        file.write("#!/bin/sh\nexit 10\n")
    os.chmod(program, 0o755)


def long_feed(item):
    """As long as a feed may be: many versions that are no news."""
    old = item.replace("<sparkle:version>2", "<sparkle:version>0").replace(
        "<title>", "<description>" + "What is new, at length. " * 150 + "</description><title>")
    return "\n".join([old] * (3_900_000 // len(old)))


class Course:
    """A running copy whose alerts are measured, one after the other."""

    def __init__(self, desktop, feed, archive, item, old):
        self.desktop = desktop
        self.feed = feed
        self.archive = archive
        self.item = item
        self.host = TrayHost(desktop)
        self.installation = Installation(old, os.path.join(desktop.home, "Applications"))
        self.program = None
        self.entry = None

    def run(self, program):
        self.program = program
        self.entry = self.host.wait_item()

    def is_unpacking(self):
        return len(self.installation.left_in_updates()) > 1

    def is_under_way(self, what):
        sent = [request for request in self.feed.requests() if "quorvane-" in request]
        return {"nothing": True, "a check": not sent, "a download": bool(sent) and not self.is_unpacking(),
                "an unpacking": self.is_unpacking()}[what]

    def begin(self, what):
        """Asks for updates; returns when the alert is to be due at the earliest."""
        if what == "nothing":
            return time.time() + AHEAD
        size = os.path.getsize(self.archive)
        if what == "a check":
            self.feed.announce(long_feed(self.item), rate=int(4_000_000 / (AHEAD + 2)))
        else:
            self.feed.announce(self.item)
            self.feed.offer(self.archive, rate=size // FETCHING)
        self.feed.server.log["requests"].clear()
        wait_until("a look at the feed", lambda: self.feed.requests(FEED_PATH) or self.entry.click(CHECK), 90, interval=0.5)
        return time.time() + (FETCHING + 0.4 if what == "an unpacking" else AHEAD)

    def alert(self, what):
        """Milliseconds from due to painted of one alert; None if that was not under way then."""
        due = int(self.begin(what)) + 1
        event = Event("Design review", due + 60)
        time.sleep(max(due - AHEAD - time.time(), 0))
        self.program.add(event)
        number = len(self.program.painted()) + 1
        time.sleep(max(due - 0.05 - time.time(), 0))
        before = self.is_under_way(what)
        _, _, painted = self.program.wait_painted(number, 10)
        is_it = before and self.is_under_way(what)
        time.sleep(max(due + 0.8 - time.time(), 0))
        self.desktop.press("Return")
        self.program.wait_acknowledged(event.meeting_id())
        return 1000 * (painted - event.due) if is_it else None

    def alerts(self, what, count):
        delays = []
        for _ in range(TRIES * count):
            delay = self.alert(what)
            delays += [] if delay is None else [delay]
            if len(delays) == count:
                return delays
        raise DesktopError(f"{what} was hardly ever under way when an alert was due")


def figures(quick):
    count = 4 if quick else 16
    found = []
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([sys.executable, os.path.join(SUPPORT, "certificates.py"), folder], check=True)
        feed = UpdateFeed(folder)
        old, new = (feed.archive(version) for version in (1, 2))
        desktop = XorgDesktop(sizes=((1920, 1080),))
        heavy_one = feed.changed(new, heavy, "heavy")
        course = Course(desktop, feed, heavy_one, feed.item(heavy_one, like=new), old)
        with desktop, course.host:
            feed.trust(desktop)
            with Program(desktop, executable=course.installation.executable,
                         settings={"automaticallyDownloadsUpdates": "true"}) as program:
                course.run(program)
                course.alerts("nothing", 1)  # the first, cold one
                quiet = course.alerts("nothing", count)
                found += rows("nothing", quiet, quiet)
                for what in ("a check", "a download", "an unpacking"):
                    found += rows(what, course.alerts(what, count), quiet)
    return "Due to painted while an update is under way, X11, one display", found


def rows(what, delays, quiet):
    note = f"of {len(delays)} alerts; {percentile(delays, 0.5) / percentile(quiet, 0.5):.2f} of the quiet run's"
    return [Figure(f"with {what} under way: median", percentile(delays, 0.5), "ms", None, note),
            Figure(f"with {what} under way: 99th percentile", percentile(delays, 0.99), "ms", 40)]
