#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The pictures of --render-preview: the same each time, like those that people were shown, drawn without any display."""
import filecmp
import os
import re
import socket
import subprocess
import tempfile
import unittest

from harness import main
from desktop.program import ROOT, binary

SHOWN = os.path.join(ROOT, "docs/images")
DONE = "Synthetic previews rendered without displaying a window.\n"
# Other versions of the font library round a pixel here and there.
TOLERANCE = 0.012


class Previews(unittest.TestCase):
    def setUp(self):
        self.home = self.enterContext(tempfile.TemporaryDirectory())
        self.folder = os.path.join(self.home, "some/where")

    def run_program(self, *arguments, **environment):
        env = {"PATH": os.environ["PATH"], "HOME": self.home, "XDG_RUNTIME_DIR": self.home, **environment}
        return subprocess.run([binary(), *arguments], env=env, capture_output=True, text=True, check=False, timeout=120)

    def test_they_are_the_same_each_time_and_as_shown(self):
        again = os.path.join(self.home, "again")
        hanging = self.enterContext(socket.socket(socket.AF_UNIX))
        hanging.bind(os.path.join(self.home, "bus"))
        hanging.listen()
        first = self.run_program("--render-preview", self.folder)
        second = self.run_program("--render-preview", again, LANG="de_DE.UTF-8", TZ="Asia/Tokyo", QT_SCALE_FACTOR="2",
                                  DBUS_SESSION_BUS_ADDRESS=f"unix:path={self.home}/bus")
        for done in (first, second):
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, DONE, ""))
        pictures = sorted(os.listdir(self.folder))
        self.assertEqual(sorted(os.listdir(again)), pictures)
        self.assertEqual(filecmp.cmpfiles(self.folder, again, pictures, shallow=False)[1:], ([], []))
        self.assertEqual(sorted(os.listdir(SHOWN)), pictures)
        for name in pictures:
            with self.subTest(name):
                self.assertLess(self.difference(name), TOLERANCE)

    def difference(self, name):
        """Root mean square of all colour differences, of 1."""
        done = subprocess.run(["compare", "-metric", "RMSE", os.path.join(SHOWN, name), os.path.join(self.folder, name),
                               "null:"], capture_output=True, text=True, check=False)
        return float(re.search(r"\(([\d.e-]+)\)", done.stderr).group(1))

    def test_a_folder_that_cannot_be_made_is_told(self):
        with open(os.path.join(self.home, "file"), "w", encoding="utf-8"):
            pass
        done = self.run_program("--render-preview", os.path.join(self.home, "file/below"))
        self.assertEqual((done.returncode, done.stdout), (9, "Preview rendering failed: Quorvane.PreviewError\n"))

    def test_a_command_without_its_folder_is_incomplete(self):
        done = self.run_program("--render-preview")
        self.assertEqual((done.returncode, done.stdout),
                         (64, "Unknown or incomplete command. No application window was opened.\n"))


if __name__ == "__main__":
    main()
