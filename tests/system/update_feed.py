# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Versions of the built program, the feed that announces them on a server of this machine, and an installation that was
unpacked by hand. Nothing but the numbers, the feed's address and the key makes the versions differ."""
import base64
import hashlib
import os
import re
import shutil
import subprocess
import sys

from cryptography.hazmat.primitives.serialization import load_pem_private_key

import harness  # noqa: F401  (finds the package below)
from desktop import ROOT, binary, wait_until

SUPPORT = os.path.join(ROOT, "tests/support")
sys.path.insert(0, SUPPORT)
from https_peer import HttpsPeer  # noqa: E402

FEED = """<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle">
<channel><title>Quorvane</title>
{items}
</channel></rss>
"""
FEED_PATH = "/appcast.xml"


def tool(name, *arguments):
    """Runs a tool of the release and returns what it prints."""
    done = subprocess.run([sys.executable, os.path.join(ROOT, "tools/release", name), *arguments], capture_output=True,
                          text=True, check=False)
    if done.returncode:
        raise AssertionError(f"{name}: {done.stderr}")
    return done.stdout.strip()


class UpdateFeed:
    """`folder` has the servers' certificates (`make_certificates`); archives and keys are put there too."""

    def __init__(self, folder):
        self.folder = folder
        self.server = HttpsPeer(folder, "pinned")
        self.server.tell(status=404)
        self.host = f"https://127.0.0.1:{self.server.log['port']}"
        self.keys = {name: self._make_key(name) for name in ("ours", "theirs")}

    def _make_key(self, name):
        path = os.path.join(self.folder, f"{name}.pem")
        return path, tool("sign.py", "--make-key", path)

    def trust(self, session):
        """Has the programs of the session know the server."""
        data = os.path.join(session.env["XDG_DATA_HOME"], "Quorvane")
        os.makedirs(data, exist_ok=True)
        shutil.copy(os.path.join(self.folder, "pinned.cer"), os.path.join(data, "quorvane-server.cer"))

    def archive(self, version, with_feed=True):
        """Makes the archive of a version, by its number."""
        path = os.path.join(self.folder, f"quorvane-{version}{'' if with_feed else '-without-feed'}.tar.xz")
        feed = ("--feed-url", self.host + FEED_PATH, "--feed-key", self.keys["ours"][1]) if with_feed else ()
        tool("archive.py", "--build-folder", os.path.dirname(os.path.realpath(binary())), "--build-number", str(version),
             "--short-version", f"{version}.0", "--level", "0", "--output", path, *feed)
        return path

    def changed(self, archive, change, name):
        """A copy of an archive after `change` of the folder that it was unpacked to."""
        place = os.path.join(self.folder, name)
        os.makedirs(place)
        subprocess.run(["tar", "-xf", archive, "-C", place], check=True)
        change(os.path.join(place, "Quorvane"))
        path = os.path.join(self.folder, f"quorvane-{name}.tar.xz")
        self.pack(path, "-C", place, "Quorvane")
        shutil.rmtree(place)
        return path

    @staticmethod
    def pack(path, *arguments):
        subprocess.run(["tar", "-cJf", path, "--format=ustar", "--owner=0", "--group=0", "-P", *arguments], check=True,
                       env={**os.environ, "XZ_OPT": "-0"})

    def item(self, archive, key="ours", like=None, version=None, length=None):
        """The item of an archive, signed with that key. `like` is another archive that says of itself what the item is to
        say, where no release would be made of this one; `version` and `length` are what it says instead."""
        name = os.path.basename(archive)
        item = tool("sign.py", self.keys[key][0], like or archive, "--url", f"{self.host}/{name}")
        if like:
            item = re.sub('edSignature="[^"]*"', f'edSignature="{self._signature(archive, key)}"', item)
        if version:
            item = re.sub("(<sparkle:version>)[^<]*", rf"\g<1>{version}", item)
        return re.sub('length="[0-9]*"', f'length="{length or os.path.getsize(archive)}"', item)

    def _signature(self, archive, key):
        with open(self.keys[key][0], "rb") as file:
            private = load_pem_private_key(file.read(), None)
        with open(archive, "rb") as file:
            return base64.b64encode(private.sign(file.read())).decode()

    def announce(self, *items, feed=FEED, **behaviour):
        self.server.tell(FEED_PATH, body=feed.format(items="\n".join(items)), **behaviour)

    def offer(self, *archives, **behaviour):
        for archive in archives:
            self.server.tell("/" + os.path.basename(archive), file=archive, **behaviour)

    def requests(self, wanted=""):
        """The requests so far that begin so, after the method."""
        return [request for request in self.server.log["requests"] if request.startswith(f"GET {wanted}")]

    def wait_request(self, wanted, seconds=15):
        wait_until(f"a request for {wanted}", lambda: self.requests(wanted), seconds)


class Installation:
    """An archive that somebody has unpacked into a folder."""

    def __init__(self, archive, folder):
        os.makedirs(folder, exist_ok=True)
        subprocess.run(["tar", "-xf", archive, "-C", folder], check=True)
        self.root = os.path.join(folder, "Quorvane")

    @property
    def executable(self):
        return os.path.join(self.root, "quorvane")

    @property
    def updates(self):
        return os.path.join(self.root, ".updates")

    def current(self):
        """The version that is started from now on."""
        return os.path.basename(os.readlink(os.path.join(self.root, "current")))

    def versions(self):
        return sorted(os.listdir(os.path.join(self.root, "versions")))

    def swapped(self):
        """When another version became the current one, Unix time."""
        return os.lstat(os.path.join(self.root, "current")).st_mtime

    def version_of(self, pid):
        """The version that a process runs, None if none."""
        try:
            path = os.readlink(f"/proc/{pid}/exe")
        except OSError:
            return None
        return path.split("/")[-3] if path.startswith(self.root + "/versions/") else None

    def left_in_updates(self):
        """What lies in the folder of things that come and go, without what is always there."""
        if not os.path.isdir(self.updates):
            return []
        return sorted(name for name in os.listdir(self.updates) if name != "lock")

    def fingerprint(self):
        """Everything in it but what comes and goes: path, mode, and what is there."""
        found = []
        for place, folders, names in os.walk(self.root):
            if place == self.root and ".updates" in folders:
                folders.remove(".updates")
            for name in sorted(folders) + names:
                path = os.path.join(place, name)
                if os.path.islink(path):
                    what = os.readlink(path)
                elif os.path.isfile(path):
                    with open(path, "rb") as file:
                        what = hashlib.sha256(file.read()).hexdigest()
                else:
                    what = ""
                found.append((path, oct(os.lstat(path).st_mode), what))
        return sorted(found)
