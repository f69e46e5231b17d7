#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The Debian package: what is in it, and a machine that installs, upgrades and removes it.

QUORVANE_BARE_ROOT=1 uses a bare Debian 12 made for it instead of a copy of this machine, which takes minutes.
"""
import glob
import json
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

from harness import Event, main, seconds_from_now, wait_until
from package_root import PackageRoot
from desktop import ROOT, write_event

BARE = os.environ.get("QUORVANE_BARE_ROOT") == "1"
UNIT = "me.tarnel.quorvane-app.service"
ENABLED = f"/etc/systemd/user/graphical-session.target.wants/{UNIT}"
FLAG = re.compile(r"--[a-z]+(?:-[a-z]+)*")


def output_of(*arguments, **environment):
    """What a program prints on either stream; a failure of it fails the test, with these words."""
    done = subprocess.run(arguments, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False,
                          env={**os.environ, "LC_ALL": "C.UTF-8", **environment})
    if done.returncode != 0:
        raise AssertionError(f"{arguments[0]}: status {done.returncode}\n{done.stdout}")
    return done.stdout


def newer(package, folder):
    """The same package as a later version."""
    tree = os.path.join(folder, "newer")
    output_of("dpkg-deb", "--raw-extract", package, tree)
    output_of("sed", "-i", "s/^Version: .*/Version: 1000.0-1/", os.path.join(tree, "DEBIAN/control"))
    # A file of its own, as another build's is.
    with open(os.path.join(tree, "usr/bin/quorvane"), "ab") as file:
        file.write(b"\n")
    path = os.path.join(folder, "quorvane_1000.0-1.deb")
    output_of("dpkg-deb", "--root-owner-group", "-Znone", "--build", tree, path)
    return path


def setUpModule():
    Package.folder = unittest.enterModuleContext(tempfile.TemporaryDirectory())
    output_of("cpack", "-B", Package.folder, "--config", os.path.join(ROOT, "build/release/CPackConfig.cmake"))
    Package.package, = glob.glob(os.path.join(Package.folder, "*.deb"))
    Package.tree = os.path.join(Package.folder, "tree")
    output_of("dpkg-deb", "--extract", Package.package, Package.tree)


class Package(unittest.TestCase):
    folder = package = tree = None

    def packed(self, path):
        return os.path.join(self.tree, path)

    def read(self, path):
        with open(self.packed(path), encoding="utf-8") as file:
            return file.read()


class Contents(Package):
    def test_debian_has_no_fault_to_find(self):
        output_of("lintian", "--allow-root", "--fail-on", "error", self.package)

    def test_desktops_understand_what_they_are_told(self):
        for entry in ("usr/share/applications", "etc/xdg/autostart"):
            self.assertEqual(output_of("desktop-file-validate", self.packed(entry + "/me.tarnel.Quorvane.desktop")), "")
        output_of("appstreamcli", "validate", "--no-net",
                  self.packed("usr/share/metainfo/me.tarnel.Quorvane.metainfo.xml"))

    def test_the_manual_renders(self):
        manual = output_of("man", "--warnings", "-Tutf8", "-Z", "-l", self.packed("usr/share/man/man1/quorvane.1.gz"),
                           MANROFFSEQ="")
        self.assertNotIn("warning", manual)

    def test_manual_and_shells_know_the_same_flags(self):
        manual = output_of("man", "-E", "ascii", "-l", self.packed("usr/share/man/man1/quorvane.1.gz"), MANWIDTH="200")
        options = manual[manual.index("OPTIONS"):manual.index("Any other argument")]
        flags = set(FLAG.findall(options))
        self.assertEqual(len(flags), 11)
        fish = re.findall(r"-l ([a-z-]+)", self.read("usr/share/fish/vendor_completions.d/quorvane.fish"))
        self.assertEqual({f"--{name}" for name in fish}, flags)
        self.assertEqual(set(FLAG.findall(self.read("usr/share/zsh/vendor-completions/_quorvane"))), flags)
        self.assertEqual(self.completed("--"), flags)

    def test_the_shell_completes(self):
        os.makedirs(self.packed("pictures/old"), exist_ok=True)
        for words, found in ((["--cal"], {"--calendar-status"}),
                             (["--set-secret", ""], {"pushover-user", "pushover-token", "server-token"}),
                             (["--set-secret", "server"], {"server-token"}),
                             (["--render-preview", "pict"], {"pictures"}), (["--nonsense"], set())):
            with self.subTest(words=words):
                self.assertEqual(self.completed(*words), found)

    def completed(self, *words):
        script = """compopt() { :; }; . usr/share/bash-completion/completions/quorvane; COMP_WORDS=(quorvane "$@")
            COMP_CWORD=$#; _quorvane; [ ${#COMPREPLY[@]} = 0 ] || printf '%s\\n' "${COMPREPLY[@]}" """
        done = subprocess.run(["bash", "-c", script, "bash", *words], cwd=self.tree, check=True, text=True,
                              stdout=subprocess.PIPE)
        return set(done.stdout.split())

    def test_everything_says_the_same_version(self):
        version = output_of("dpkg-deb", "--field", self.package, "Version").strip()
        information = json.loads(self.read("usr/share/Quorvane/info.json"))
        self.assertEqual(information["CFBundleShortVersionString"], version.rsplit("-", 1)[0])
        self.assertEqual(output_of("dpkg-parsechangelog", "-l", os.path.join(ROOT, "packaging/debian/changelog"),
                                   "--show-field", "Version").strip(), version)
        self.assertIn(f'version="{information["CFBundleShortVersionString"]}"',
                      self.read("usr/share/metainfo/me.tarnel.Quorvane.metainfo.xml"))

    def test_nothing_points_into_the_folder_it_was_built_in(self):
        for program in ("usr/bin/quorvane", *(f"usr/libexec/quorvane/{name}/{name}"
                                              for name in ("calendar-reader", "update-unpacker"))):
            self.assertNotRegex(output_of("readelf", "--dynamic", self.packed(program)), "RPATH|RUNPATH")
            with open(self.packed(program), "rb") as file:
                self.assertNotIn(ROOT.encode() + b"/build", file.read())


@unittest.skipUnless(os.geteuid() == 0, "only root can make a system to install it on")
class Installation(Package):
    @classmethod
    def setUpClass(cls):
        cls.root = cls.enterClassContext(PackageRoot(bare=BARE))

    def setUp(self):
        self.root.run("dpkg", "--no-triggers", "--purge", "quorvane")
        self.before = self.root.files_named_after("quorvane")
        self.root.install(self.package)

    def start(self):
        """A copy that somebody has started by hand."""
        before = len(self.pids())
        program = self.root.start("/usr/bin/quorvane", "--preview", QT_QPA_PLATFORM="offscreen")
        self.addCleanup(program.wait)
        self.addCleanup(program.kill)
        wait_until("the copy", lambda: len(self.pids()) > before, 10, program)
        return program

    def pids(self):
        """The copies that run there, by their ids here."""
        found = subprocess.run(["pgrep", "--ns", self.root.init, "--nslist", "pid", "--runstates", "DRST", "-x",
                                "quorvane"], text=True,
                               stdout=subprocess.PIPE, check=False)
        return [int(pid) for pid in found.stdout.split()]

    def remove(self, how="--remove"):
        self.root.dpkg(how, "quorvane")

    def test_it_runs_there(self):
        write_event(self.root.path("/tmp/home/.local/share/Quorvane/calendars/work"),
                    Event("Design review", seconds_from_now(3600)))
        for flags, status, line in (
                (["--calendar-status"], 0, "Calendar access allowed; 1 calendars; 1 upcoming timed events."),
                (["--nonsense"], 64, "Unknown or incomplete command. No application window was opened."),
                (["--set-secret", "nobody"], 2, None),
                (["--enable-login"], 0, "Start at login and crash restart are already configured.")):
            with self.subTest(flags=flags):
                self.assertEqual(self.root.run("quorvane", *flags), (status, line + "\n" if line else ""))
        if BARE:  # every view, with what Depends brought
            self.assertEqual(self.root.run("quorvane", "--render-preview", "/tmp/pictures", seconds=120),
                             (0, "Synthetic previews rendered without displaying a window.\n"))
        # Whatever else is amiss there: the reader is found, and every file is as it was packed.
        self.assertNotIn("missing", self.root.run("quorvane", "--verify-connections")[1])
        self.assertEqual(self.root.need("dpkg", "--verify", "quorvane"), "")

    @unittest.skipIf(BARE, "without man the unit's page is not found")
    def test_systemd_understands_the_unit(self):
        self.assertEqual(self.root.run("systemd-analyze", "--user", "verify", f"/usr/lib/systemd/user/{UNIT}"), (0, ""))

    def test_an_upgrade_leaves_running_copies_alone_and_removal_ends_them(self):
        old = self.start()
        self.root.install(newer(self.package, self.folder))
        self.assertIsNone(old.poll())
        first = self.pids()
        self.start()
        hanging, = set(self.pids()) - set(first)
        os.kill(hanging, signal.SIGSTOP)
        began = time.monotonic()
        self.remove()
        self.assertLess(time.monotonic() - began, 20)
        self.assertEqual(old.wait(5), 0)  # asked to, it ended in good order
        self.assertEqual(self.pids(), [])

    def test_every_user_gets_it_until_the_administrator_says_no(self):
        link = self.root.path(ENABLED)
        self.assertTrue(os.path.lexists(link))
        self.root.install(self.package)
        self.assertTrue(os.path.lexists(link))
        os.unlink(link)
        self.root.install(newer(self.package, self.folder))
        self.assertFalse(os.path.lexists(link))

    def test_purging_leaves_nothing_behind(self):
        self.assertGreater(self.root.files_named_after("quorvane"), self.before)
        self.remove()
        # The entry for the start at login is the administrator's, and without the program it does nothing.
        self.assertIn("/etc/xdg/autostart/me.tarnel.Quorvane.desktop", self.root.files_named_after("quorvane"))
        self.remove("--purge")
        self.assertEqual(self.root.files_named_after("quorvane"), self.before)

    def tearDown(self):
        shutil.rmtree(os.path.join(self.folder, "newer"), ignore_errors=True)


if __name__ == "__main__":
    main()
