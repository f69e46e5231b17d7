#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the unpacker does to and asks of the system, as strace sees it, and what the kernel holds it to."""
import os
import pathlib
import re
import signal
import subprocess
import unittest

from harness import ENVIRONMENT, UNPACKER, UnpackerTest, archive, entry, link

CHANGING = r"(creat|unlink|rename|rmdir|link|truncate|ftruncate|chmod|fchmod|chown|fallocate|mknod|setxattr)(at)?2?\("
WANTED = r"openat\(\d+, \"[^/]+\", O_WRONLY\|O_CREAT\|O_EXCL\|O_NOFOLLOW\|O_CLOEXEC"


class Confinement(UnpackerTest):
    def calls(self):
        """The system calls of the process that unpacks, before and after it gave its rights up."""
        log = self.folder.parent / (self.folder.name + ".strace")
        self.addCleanup(log.unlink, missing_ok=True)
        content = archive(entry("Quorvane/bin/a", content=b"a", mode=0o755), link("Quorvane/b", "bin/a"))
        self.assert_done(self.unpack(content, before=["strace", "-f", "-o", str(log)]))
        lines = log.read_text().splitlines()
        last, = (number for number, line in enumerate(lines) if "SECCOMP_SET_MODE_FILTER, 0" in line)
        return "\n".join(lines[:last + 1]), "\n".join(lines[last + 1:])

    def test_rights_are_gone_before_the_archive_is_read(self):
        before, after = self.calls()
        before, opened, between = before.partition(f'"{self.path}", O_RDONLY|')
        archive_file = re.search(r"= (\d+)", between)[1]
        self.assertTrue(opened)
        self.assertNotIn(f"read({archive_file},", between)
        self.assertRegex(after, rf"(?m)^\d+ +read\({archive_file},")
        for said in ("PR_SET_NO_NEW_PRIVS, 1", "PR_SET_DUMPABLE, SUID_DUMP_DISABLE", "RLIMIT_CORE", "RLIMIT_CPU",
                     "RLIMIT_FSIZE", "ioprio_set"):
            self.assertRegex(between, said + ".* = 0")
        if re.search(r"landlock_create_ruleset\(NULL, 0, .*\) = [1-9]", between):
            self.assertRegex(between, r"landlock_restrict_self\(.*= 0")
        self.assertNotRegex(after, "(?m)^[0-9]+ +" + CHANGING)
        self.assertNotRegex(after, r"(?m)^[0-9]+ +(socket|execve|clone3?|fork|vfork)\(")
        made = re.findall(r"(?m)^.*(?:openat|mkdirat|symlinkat)\(.*$", after)
        self.assertTrue(any(re.search(WANTED, line) for line in made))
        self.assertEqual([line for line in made if "AT_FDCWD" in line], [])

    def test_everything_is_flushed(self):
        flushed = re.findall(r"fsync\(.* = (-?\d+)", self.calls()[1])
        # A file, two folders, and the folder they are in.
        self.assertEqual(flushed, ["0"] * 4)

    def test_one_that_is_ended_is_a_failure_with_one_word(self):
        self.path.write_bytes(archive(*(entry(f"Quorvane/{i}", content=b"a" * 9000) for i in range(3_000))))
        self.out.mkdir()
        with subprocess.Popen([UNPACKER, self.path, self.out], stderr=subprocess.PIPE, env=ENVIRONMENT) as parent:
            while not (child := self.confined_child_of(parent.pid)):
                self.assertIsNone(parent.poll())
            self.assertEqual(os.getpriority(os.PRIO_PROCESS, child), 19)
            os.kill(child, signal.SIGKILL)
            self.assertEqual((parent.stderr.read(), parent.wait(60)), (b"unpacker_failed\n", 2))

    @staticmethod
    def confined_child_of(parent):
        for child in pathlib.Path(f"/proc/{parent}/task/{parent}/children").read_text().split():
            if "Seccomp:\t2" in pathlib.Path(f"/proc/{child}/status").read_text():
                return int(child)
        return None


if __name__ == "__main__":
    unittest.main()
