#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the reader does to and asks of the system, as strace sees it, and what the kernel holds it to."""
import os
import pathlib
import re
import subprocess
import time
import unittest

from harness import ENVIRONMENT, READER, ReaderTest, event, stamp

WRITING = r"O_WRONLY|O_RDWR|O_CREAT|O_TRUNC"
CHANGING = r"(unlink|rename|mkdir|rmdir|link|symlink|truncate|ftruncate|chmod|fallocate|mknod)(at)?2?\("


class Confinement(ReaderTest):
    def setUp(self):
        super().setUp()
        self.make(event("a", f"DTSTART;TZID=Europe/Paris:{stamp(3600)[:-1]}", "DURATION:PT1H"))

    def calls(self):
        """The system calls of the process that reads, from the first that concerns the cache's content on."""
        log = self.folder.parent / (self.folder.name + ".strace")
        self.addCleanup(log.unlink, missing_ok=True)
        outcome = self.read(before=["strace", "-f", "-o", str(log)])
        self.assertEqual((outcome.status, outcome.titles()), (0, ["Meeting"]))
        lines = log.read_text().splitlines()
        first = next(number for number, line in enumerate(lines) if 'open' in line and f'"{self.path}"' in line)
        return lines[:first], lines[first:]

    def test_rights_are_gone_before_the_cache_is_opened(self):
        before, after = self.calls()
        said = "\n".join(before)
        self.assertIn("PR_SET_NO_NEW_PRIVS", said)
        self.assertIn("PR_SET_DUMPABLE", said)
        self.assertRegex(said, r"seccomp\(SECCOMP_SET_MODE_FILTER, 0, .*= 0|PR_SET_SECCOMP, SECCOMP_MODE_FILTER.*= 0")
        if re.search(r"landlock_create_ruleset\(NULL, 0, .*\) = [1-9]", said):
            self.assertRegex(said, r"landlock_restrict_self\(.*= 0")
        said = "\n".join(after)
        self.assertNotRegex(said, r"open(at)?\([^)]*(" + WRITING + ")[^)]*\\) = [0-9]")
        self.assertNotRegex(said, "(?m)^[0-9]+ +" + CHANGING + r".*\) = 0")
        self.assertNotRegex(said, r"(?m)^[0-9]+ +(socket|execve|clone3?|fork|vfork)\(")

    def test_only_the_cache_and_time_zones_are_opened(self):
        opened = re.findall(r'open(?:at)?\([^"]*"([^"]+)".*\) = [0-9]', "\n".join(self.calls()[1]))
        allowed = (str(self.folder), "/usr/share/zoneinfo")
        self.assertEqual([path for path in opened if not path.startswith(allowed)], [])

    def test_the_kernel_holds_the_reading_process(self):
        slow = "\r\n".join(["BEGIN:VCALENDAR"] + [
            f"BEGIN:VEVENT\r\nUID:{i}\r\nDTSTART;TZID=Europe/Paris:20180101T000000\r\nRRULE:FREQ=HOURLY\r\nEND:VEVENT"
            for i in range(2_000)] + ["END:VCALENDAR"])
        self.path.unlink()
        self.make(slow)
        with subprocess.Popen([READER, self.path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, env=ENVIRONMENT,
                              stderr=subprocess.PIPE) as parent:
            parent.stdin.write(b"[]")
            parent.stdin.close()
            child = self.child_of(parent.pid)
            status = pathlib.Path(f"/proc/{child}/status").read_text()
            limits = pathlib.Path(f"/proc/{child}/limits").read_text()
            self.assertEqual(re.findall(r"(?:NoNewPrivs|Seccomp):\s*(\d)", status), ["1", "2"])
            self.assertRegex(limits, r"Max core file size\s+0\s+0")
            parent.kill()
            self.assertTrue(self.is_gone(child))

    def child_of(self, parent):
        """The process that reads, once it is confined."""
        for _ in range(200):
            children = pathlib.Path(f"/proc/{parent}/task/{parent}/children").read_text().split()
            if children and "Seccomp:\t2" in pathlib.Path(f"/proc/{children[0]}/status").read_text():
                return int(children[0])
            time.sleep(0.01)
        self.fail("no process reads")

    @staticmethod
    def is_gone(process):
        for _ in range(200):
            if not os.path.exists(f"/proc/{process}") or "State:\tZ" in pathlib.Path(f"/proc/{process}/status").read_text():
                return True
            time.sleep(0.01)
        return False


if __name__ == "__main__":
    unittest.main()
