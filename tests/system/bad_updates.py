#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Updates that are wrong in whatever way, offered to the built program."""
import io
import os
import tarfile

from harness import main, wait_until
from update_feed import FEED
from update_test import UpdateTest

BOMB = """<?xml version="1.0"?>
<!DOCTYPE rss [<!ENTITY a "ha"><!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">
<!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;"><!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;">]>
""" + FEED.split("\n", 1)[1].replace("Quorvane</title>", "&e;</title>")


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


if __name__ == "__main__":
    main()
