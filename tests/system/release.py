#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The relocatable archive of the built program, and what announces it."""
import base64
import json
import os
import pathlib
import subprocess
import tarfile
import tempfile
import unittest
import xml.etree.ElementTree

from cryptography.hazmat.primitives.asymmetric.ed25519 import Ed25519PublicKey

from harness import main
from desktop import ROOT, binary

TOOLS = pathlib.Path(ROOT, "tools/release")
FEED = "https://updates.example/quorvane/feed.xml"
SPARKLE = "{http://www.andymatuschak.org/xml-namespaces/sparkle}"


def run(tool, *arguments, **environment):
    return subprocess.run([TOOLS / tool, *map(str, arguments)], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.PIPE, text=True, check=False, env={**os.environ, **environment})


def setUpModule():
    Release.folder = pathlib.Path(unittest.enterModuleContext(tempfile.TemporaryDirectory()))
    Release.key = Release.folder / "key.pem"
    Release.public = run("sign.py", "--make-key", Release.key).stdout.strip()
    Release.archive = Release.make("--build-number", "812", "--short-version", "1.2")


class Release(unittest.TestCase):
    folder = key = public = archive = None

    @classmethod
    def make(cls, *options, level=1, **environment):
        done = run("archive.py", "--build-folder", os.path.dirname(binary()), "--output", cls.folder,
                   "--level", level, "--feed-url", FEED, "--feed-key", cls.public, *options, **environment)
        if done.returncode != 0:
            raise AssertionError(done.stderr)
        return pathlib.Path(done.stdout.strip())

    def item(self, *options):
        done = run("sign.py", self.key, self.archive, *options)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        feed = xml.etree.ElementTree.fromstring(f'<rss xmlns:sparkle="{SPARKLE[1:-1]}">{done.stdout}</rss>')
        return feed.find("item")

    def test_unpacking_it_is_an_installation(self):
        self.assertRegex(self.archive.name, r"^quorvane-1\.2-812-linux-[a-z0-9_]+\.tar\.xz$")
        root = self.folder / "home"
        root.mkdir()
        subprocess.run(["tar", "-C", root, "-xJf", self.archive], check=True)
        self.assertEqual(os.listdir(root), ["Quorvane"])
        root /= "Quorvane"
        self.assertEqual(sorted(os.listdir(root)), ["current", "quorvane", "versions"])
        self.assertEqual(os.readlink(root / "current"), "versions/812")
        self.assertEqual(os.readlink(root / "quorvane"), "current/bin/quorvane")
        self.assertEqual(json.loads((root / "current/share/Quorvane/info.json").read_text(encoding="utf-8")), {
            "CFBundleVersion": "812", "CFBundleShortVersionString": "1.2", "SUFeedURL": FEED, "SUPublicEDKey": self.public})
        self.assertEqual(sorted(os.listdir(root / "current")), ["bin", "libexec", "share"])
        for helper in ("calendar-reader", "update-unpacker"):
            self.assertTrue(os.access(root / "current/libexec/quorvane" / helper / helper, os.X_OK), helper)
        tested = subprocess.run([root / "quorvane", "--self-test"], stdout=subprocess.PIPE, text=True, check=False,
                                timeout=60)
        self.assertEqual(tested.returncode, 0, tested.stdout)
        self.assertIn("Quorvane 1.2 (812)", tested.stdout)

    def test_it_is_made_the_same_each_time(self):
        epoch = {"SOURCE_DATE_EPOCH": "1000000000"}
        first = self.make("--build-number", "7", **epoch)
        with tarfile.open(first) as archive:
            entries = archive.getmembers()
        self.assertEqual({(entry.uid, entry.gid, entry.uname, entry.gname, entry.mtime) for entry in entries},
                         {(0, 0, "", "", 1000000000)})
        self.assertLessEqual({oct(entry.mode) for entry in entries}, {"0o755", "0o644", "0o777"})
        names = [entry.name.split("/") for entry in entries]
        self.assertEqual(names, sorted(names))
        before = first.read_bytes()
        self.addCleanup(os.umask, os.umask(0o077))
        self.assertEqual(self.make("--build-number", "7", **epoch, TZ="Asia/Tokyo").read_bytes(), before)

    def test_the_item_announces_exactly_this_archive(self):
        notes = self.folder / "notes.txt"
        notes.write_text("Faster & smaller\n- <b>", encoding="utf-8")
        item = self.item("--notes", notes)
        self.assertEqual(item.findtext(f"{SPARKLE}version"), "812")
        self.assertEqual(item.findtext(f"{SPARKLE}shortVersionString"), "1.2")
        self.assertEqual(item.findtext("description"), "Faster & smaller\n- <b>")
        enclosure = item.find("enclosure").attrib
        self.assertEqual(enclosure["url"], f"https://updates.example/quorvane/{self.archive.name}")
        self.assertEqual(enclosure["length"], str(self.archive.stat().st_size))
        self.assertIn(f"-{enclosure[SPARKLE + 'os']}.tar.xz", self.archive.name)
        key = Ed25519PublicKey.from_public_bytes(base64.b64decode(self.public))
        signature = base64.b64decode(enclosure[f"{SPARKLE}edSignature"], validate=True)
        key.verify(signature, self.archive.read_bytes())

    def test_a_key_is_the_makers_alone_and_never_replaced(self):
        before = self.key.read_bytes()
        self.assertEqual(self.key.stat().st_mode & 0o777, 0o600)
        done = run("sign.py", "--make-key", self.key)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn("stays as it is", done.stderr)
        self.assertEqual(self.key.read_bytes(), before)
        self.assertEqual(run("sign.py", "--public-key", self.key).stdout.strip(), self.public)
        self.assertIn("no place among the sources", run("sign.py", "--make-key", os.path.join(ROOT, "a.pem")).stderr)

    def test_what_could_not_update_itself_is_refused(self):
        for options in (("--build-number", "0"), ("--build-number", "../1"), ("--feed-key", "bm8="),
                        ("--feed-url", "http://a.example/feed.xml"), ("--feed-url", "")):
            with self.subTest(options), self.assertRaisesRegex(AssertionError, "No archive was made: "):
                self.make("--build-number", "9", *options)
        damaged = self.folder / "damaged.tar.xz"
        damaged.write_bytes(self.archive.read_bytes()[:-100])
        self.assertIn("cannot be read", run("sign.py", self.key, damaged).stderr)


if __name__ == "__main__":
    main()
