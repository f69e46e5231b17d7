# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the built unpacker on archives that the tests make. $QUORVANE_UNPACKER names the program."""
import os
import pathlib
import shutil
import subprocess
import sys
import tarfile
import tempfile
import time
import unittest

sys.dont_write_bytecode = True
ROOT = pathlib.Path(__file__).resolve().parents[2]
UNPACKER = os.environ.get("QUORVANE_UNPACKER", str(ROOT / "build/release/update-unpacker/update-unpacker"))
ENVIRONMENT = {"PATH": "/usr/bin:/bin", "ASAN_OPTIONS": "detect_stack_use_after_return=0"}
SANITIZED = b"__asan_init" in subprocess.run(["nm", "-D", UNPACKER], capture_output=True, check=False).stdout


def entry(name, kind=tarfile.REGTYPE, content=b"", **fields):
    """An entry of an archive and its content, whatever the fields say."""
    info = tarfile.TarInfo(name)
    info.type, info.size, info.mode = kind, len(content), 0o644
    for field, value in fields.items():
        setattr(info, field, value)
    return info, content


def link(name, target):
    return entry(name, tarfile.SYMTYPE, linkname=target)


def blocks(*entries, form=tarfile.GNU_FORMAT):
    """The entries as they stand in an archive, without its end."""
    return b"".join(info.tobuf(form) + content + b"\0" * (-len(content) % 512) for info, content in entries)


def packed(tar, way="gzip"):
    return subprocess.run([way, "-1", "-c"], input=tar, stdout=subprocess.PIPE, check=True).stdout


def archive(*entries, way="gzip", **options):
    return packed(blocks(*entries, **options) + b"\0" * 1024, way)


class Outcome:
    def __init__(self, process, seconds):
        self.status, self.out, self.error = process.returncode, process.stdout, process.stderr
        self.seconds = seconds


class UnpackerTest(unittest.TestCase):
    place = None  # where folders are made

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="quorvane-unpacker-", dir=self.place))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.path = self.folder / "archive"
        self.out = self.folder / "out"

    def unpack(self, content=None, before=(), megabytes=None, **options):
        """Unpacks `content`, or what is in the archive already, into a folder that was made for it, and with so much
        memory of its own at most."""
        if content is not None:
            self.path.write_bytes(content)
        shutil.rmtree(self.out, ignore_errors=True)
        self.out.mkdir()
        if megabytes and not SANITIZED:
            before = ["prlimit", f"--data={megabytes * 1_000_000}", *before]
        began = time.monotonic()
        process = subprocess.run([*before, UNPACKER, self.path, self.out], capture_output=True, env=ENVIRONMENT,
                                 timeout=150, check=False, **options)
        return Outcome(process, time.monotonic() - began)

    def unpacked(self):
        return sorted(str(path.relative_to(self.out)) for path in self.out.rglob("*"))

    def assert_done(self, outcome):
        self.assertEqual((outcome.status, outcome.out, outcome.error), (0, b"", b""))

    def assert_fails(self, outcome, word, status=1):
        self.assertEqual((outcome.status, outcome.out, outcome.error), (status, b"", word.encode() + b"\n"))
        self.assertLessEqual(set(os.listdir(self.folder)), {"archive", "out"})
        self.assertEqual([path for path in self.out.rglob("*") if not path.resolve().is_relative_to(self.out)], [])
