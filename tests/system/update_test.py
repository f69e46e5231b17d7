# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A copy of the program that keeps itself current, on a desktop with a tray, and its feed on this machine."""
import os
import signal

from harness import SystemTest, wait_until
from tray_host import GLib, TrayHost
from update_feed import FEED_PATH, Installation, UpdateFeed
from desktop import SwayDesktop
from https_peer import make_certificates

SIZES = ((1280, 720),)
CHECK = "Check for updates…"
BUS_NAME = "me.tarnel.Quorvane"


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
        self.program.start()
        wait_until("a copy at work", self.owner, 20)
        self.take_item()

    def take_item(self):
        """Waits for the icon of the copy that works now."""
        def answering():
            item = self.host.wait_item(1, len(self.host.items))
            try:
                return item.texts() and item
            except GLib.GError:
                return None
        self.item = wait_until("an icon with a menu", answering, 20)

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
