#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Archives made to hurt: each is refused in bounded time and memory, and nothing but the folder is touched."""
import io
import random
import subprocess
import tarfile
import unittest
import zipfile

from harness import UnpackerTest, archive, blocks, entry, link, packed

END = b"\0" * 1024
GOOD = entry("Quorvane/good", content=b"good")
FILE = entry("Quorvane/a", content=b"a")


def pax(name, **headers):
    return archive(entry(name, content=b"x" * 600, pax_headers=headers), form=tarfile.PAX_FORMAT)


def sparse():
    """A file with holes, as GNU tar packs one."""
    return subprocess.run("truncate -s 1M a && echo x >>a && tar -cSf - --transform 's,^,Quorvane/,' a | gzip",
                          shell=True, check=True, stdout=subprocess.PIPE).stdout


class Hostile(UnpackerTest):
    place = "/dev/shm"  # a disk takes a minute to remove 20,000 folders

    def refuse(self, content):
        self.assert_fails(self.unpack(content), "archive_invalid")

    def test_what_no_update_holds_is_refused(self):
        device = {"devmajor": 1, "devminor": 3}
        for name, *entries in (
                ("an absolute path", entry("/tmp/a")), ("a path up", entry("../a")),
                ("a path up from within", entry("Quorvane/../../a")), ("another folder", entry("Other/a")),
                ("a dot", entry("./Quorvane/a")), ("no name", entry("")), ("a line break", entry("Quorvane/a\nb")),
                ("another alphabet", entry("Quorvane/ä")), ("a long name", entry("Quorvane/" + "n" * 256)),
                ("a long path", entry("Quorvane" + "/n" * 600)), ("the top as a file", entry("Quorvane")),
                ("a hard link", FILE, entry("Quorvane/b", tarfile.LNKTYPE, linkname="Quorvane/a")),
                ("a hard link out", entry("Quorvane/b", tarfile.LNKTYPE, linkname="/etc/passwd")),
                ("a device", entry("Quorvane/a", tarfile.CHRTYPE, **device)),
                ("a disk", entry("Quorvane/a", tarfile.BLKTYPE, **device)), ("a pipe", entry("Quorvane/a", tarfile.FIFOTYPE)),
                ("an absolute link", link("Quorvane/a", "/etc")), ("a link out", link("Quorvane/a", "../b")),
                ("a link over a link", link("Quorvane/a/b/c", "../.."), link("Quorvane/d", "a/b/c/../e")),
                ("the top as a link", link("Quorvane", "/tmp")), ("a link to nothing", link("Quorvane/a", "")),
                ("through a link", link("Quorvane/a", "b"), entry("Quorvane/b/c"), entry("Quorvane/a/d")),
                ("a file over a link", link("Quorvane/a", "b"), entry("Quorvane/a")), ("a file twice", FILE, FILE),
                ("through a file", FILE, entry("Quorvane/a/b")),
                ("too many", *(entry(f"Quorvane/{i}", tarfile.DIRTYPE) for i in range(20_001)))):
            with self.subTest(name):
                self.refuse(archive(GOOD, *entries))

    def test_tricks_of_later_formats_are_refused(self):
        for name, content in (
                ("an absolute path", pax("Quorvane/a", path="/tmp/a")), ("a link's target", archive(
                    entry("Quorvane/a", tarfile.SYMTYPE, linkname="b", pax_headers={"linkpath": "../b"}),
                    form=tarfile.PAX_FORMAT)),
                ("a name of sparse files", pax("Quorvane/a", **{"GNU.sparse.name": "/tmp/a", "GNU.sparse.major": "1",
                                                                "GNU.sparse.minor": "0", "GNU.sparse.realsize": "9"})),
                ("holes", pax("Quorvane/a", **{"GNU.sparse.size": "1000000", "GNU.sparse.numblocks": "1",
                                               "GNU.sparse.map": "0,1"})),
                ("holes of GNU", sparse()), ("a huge size", pax("Quorvane/a", size="9223372036854775807")),
                ("a negative size", pax("Quorvane/a", size="-1"))):
            with self.subTest(name):
                self.refuse(content)

    def test_other_archives_are_refused(self):
        tar = blocks(GOOD) + END
        zipped = io.BytesIO()
        with zipfile.ZipFile(zipped, "w") as file:
            file.writestr("Quorvane/a", "a")
        for name, content in (("a bare archive", tar), ("packed twice", packed(packed(tar))),
                              ("two ways", packed(packed(tar), "xz")), ("packed by bzip2", packed(tar, "bzip2")),
                              ("zip", zipped.getvalue()), ("zip in gzip", packed(zipped.getvalue())),
                              ("text", packed(b"text\n" * 1000)), ("nothing", b""), ("packed nothing", packed(b"")),
                              ("an archive of nothing", packed(END)), ("bytes", random.Random(5).randbytes(5000))):
            with self.subTest(name):
                self.refuse(content)

    def test_an_archive_ends_where_it_says(self):
        tar = blocks(GOOD, FILE)
        for way in ("gzip", "xz", "zstd"):
            whole = packed(tar + END, way)
            for name, content in (("cut off", whole[:-1]), ("cut off earlier", whole[:len(whole) // 2]),
                                  ("bytes behind it", whole + b"behind"), ("another archive behind it", whole * 2),
                                  ("no end", packed(tar, way)), ("half an end", packed(tar + END[:512], way)),
                                  ("cut off in a header", packed(tar[:1300], way)), ("in a content", packed(tar[:514], way)),
                                  ("bytes behind its end", packed(tar + END * 9 + b"x", way)),
                                  ("an entry behind its end", packed(tar + END + blocks(entry("Quorvane/b")) + END, way))):
                with self.subTest(name, way=way):
                    self.refuse(content)
            self.assert_done(self.unpack(packed(tar + END * 10, way)))

    def test_bombs_cost_little(self):
        zeros = packed(bytes(100_000_000), "zstd")
        announced = packed(blocks(entry("Quorvane/a", size=10_000_000_000)), "zstd")
        for name, seconds, content in (("a file of 10 GB", 5, announced + zeros * 100),
                                       ("10 GB of padding", 60, packed(blocks(GOOD), "zstd") + zeros * 100)):
            with self.subTest(name):
                outcome = self.unpack(content, megabytes=32)
                self.assert_fails(outcome, "archive_invalid")
                self.assertLess(outcome.seconds, seconds)

    def test_damaged_archives_end_in_time(self):
        whole = archive(GOOD, link("Quorvane/l", "good"), *(entry(f"Quorvane/{i}/f", content=b"c" * i) for i in range(5)))
        tar = subprocess.run(["gzip", "-dc"], input=whole, stdout=subprocess.PIPE, check=True).stdout
        chance = random.Random(3)
        for number in range(100):
            damaged = bytearray(tar if number % 2 else whole)
            for _ in range(chance.choice((1, 3, 30))):
                damaged[chance.randrange(len(damaged))] = chance.randrange(256)
            outcome = self.unpack(packed(bytes(damaged)) if number % 2 else bytes(damaged))
            self.assertLess(outcome.seconds, 20)
            if outcome.status == 0:
                self.assert_done(outcome)
            else:
                self.assert_fails(outcome, "archive_invalid")


if __name__ == "__main__":
    unittest.main()
