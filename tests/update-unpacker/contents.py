#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What becomes of good archives, and what the unpacker says when it cannot do its work."""
import os
import resource
import shutil
import stat
import subprocess
import tarfile
import unittest

from harness import ENVIRONMENT, UNPACKER, UnpackerTest, archive, entry, link


class Contents(UnpackerTest):
    def tree(self):
        """A small installation, and what must come out of an archive of it."""
        source = self.folder / "source/Quorvane"
        (source / "bin").mkdir(parents=True)
        (source / "share/Quorvane").mkdir(parents=True)
        shutil.copy("/bin/true", source / "bin/quorvane")
        (source / "share/Quorvane/info.json").write_text("{}")
        (source / "share/Quorvane/empty").touch()
        (source / "share/latest").symlink_to("../bin/quorvane")
        (source / "share/Quorvane/info.json").chmod(0o600)
        (source / "bin/quorvane").chmod(0o4711)
        (source / "share").chmod(0o700)
        return source

    def test_what_tar_packs_is_unpacked(self):
        source = self.tree()
        modes = {"Quorvane/bin/quorvane": 0o755, "Quorvane/share/Quorvane/info.json": 0o644, "Quorvane/share": 0o755}
        for way in ("--xz", "--gzip", "--zstd"):
            for form in ("gnu", "pax", "ustar"):
                with self.subTest(way=way, form=form):
                    subprocess.run(["tar", "-C", source.parent, "-c", way, f"--format={form}", "-f", self.path, "Quorvane"],
                                   check=True)
                    self.assert_done(self.unpack())
                    subprocess.run(["diff", "-r", "--no-dereference", source, self.out / "Quorvane"], check=True)
                    found = {path: stat.S_IMODE((self.out / path).stat().st_mode) for path in modes}
                    self.assertEqual(found, modes)

    def test_modes_do_not_depend_on_who_unpacks(self):
        self.assert_done(self.unpack(archive(entry("Quorvane/a/b", mode=0o700)), umask=0o077))
        self.assertEqual([stat.S_IMODE((self.out / path).stat().st_mode) for path in ("Quorvane/a", "Quorvane/a/b")],
                         [0o755, 0o755])

    def test_folders_may_go_unsaid_and_owners_and_attributes_are_left_out(self):
        foreign = {"uid": 12345, "gid": 12345, "uname": "Jürgen",
                   "pax_headers": {"SCHILY.xattr.user.mine": "x", "comment": "ä"}}
        self.assert_done(self.unpack(archive(entry("Quorvane/a/b/c", content=b"text", **foreign),
                                             form=tarfile.PAX_FORMAT)))
        path = self.out / "Quorvane/a/b/c"
        self.assertEqual((path.read_text(), path.stat().st_uid, os.listxattr(path)), ("text", os.getuid(), []))

    def test_links_may_lead_to_what_comes_later_or_never(self):
        self.assert_done(self.unpack(archive(link("Quorvane/a/b", "../c/d"), link("Quorvane/e", "f"),
                                             entry("Quorvane/c/d"))))
        self.assertEqual(os.readlink(self.out / "Quorvane/a/b"), "../c/d")

    def test_a_large_archive_takes_bounded_memory(self):
        content = os.urandom(10_000_000)
        self.assert_done(self.unpack(archive(entry("Quorvane/a", content=content), way="xz"), megabytes=32))
        self.assertEqual((self.out / "Quorvane/a").read_bytes(), content)

    def test_it_needs_an_archive_and_an_empty_folder(self):
        good = archive(entry("Quorvane/a"))
        self.path.write_bytes(good)
        (self.folder / "pipe").mkdir()
        os.mkfifo(self.folder / "pipe/pipe")
        used = self.folder / "used"
        used.mkdir()
        (used / "file").touch()
        empty = self.folder / "empty"
        empty.mkdir()
        for paths, word in (((self.path, used), "write_failed"), ((self.path, self.folder / "none"), "write_failed"),
                            ((self.path, used / "file"), "write_failed"), ((self.folder / "none", empty), "unpacker_failed"),
                            ((self.folder / "pipe/pipe", empty), "unpacker_failed"), ((empty, empty), "unpacker_failed")):
            with self.subTest(paths=paths):
                done = subprocess.run([UNPACKER, *paths], capture_output=True, env=ENVIRONMENT, check=False, timeout=60)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (2, b"", word.encode() + b"\n"))
        self.assertEqual((os.listdir(empty), os.listdir(used)), ([], ["file"]))

    def test_a_full_disk_is_told_apart(self):
        large = [entry(f"Quorvane/{i}", content=os.urandom(600_000)) for i in range(4)]
        for options, entries in (("size=1m", large), ("nr_inodes=3", large), ("nr_inodes=2", [entry("Quorvane/a/b/c")])):
            with self.subTest(options):
                # A disk of its own that nobody else sees.
                script = f"mount -t tmpfs -o {options} none {self.out} && exec \"$@\""
                outcome = self.unpack(archive(*entries),
                                      before=["unshare", "--user", "--map-root-user", "--mount", "sh", "-c", script, "sh"])
                self.assert_fails(outcome, "disk_full", 2)
                self.assertEqual(os.listdir(self.out), [])

    def test_a_bound_on_files_is_a_full_disk_too(self):
        outcome = self.unpack(archive(entry("Quorvane/a", content=b"a")),
                              preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (0, resource.RLIM_INFINITY)))
        self.assert_fails(outcome, "disk_full", 2)


if __name__ == "__main__":
    unittest.main()
