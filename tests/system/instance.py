#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""One copy of the program per session, with and without a session bus, and how a second start shows the first."""
import os
import re
import signal
import subprocess
import time

from harness import Program, SystemTest, main, wait_until
from desktop import SwayDesktop, XorgDesktop
from desktop.program import binary
from desktop.session import Session

NAME = "me.tarnel.Quorvane"
PATH = "/me/tarnel/Quorvane"
NO_BUS = {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}
TIMES = int(os.environ.get("QUORVANE_PAIRS", "100"))


class Copies:
    """Starts copies without a display in a session of their own."""

    def __init__(self, session):
        self.session = session

    def start(self, *arguments, **environment):
        env = {**self.session.env, "QT_QPA_PLATFORM": "offscreen", **environment}
        return subprocess.Popen([binary(), *arguments], env=env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE)

    def owner(self):
        """The process that holds the name on the bus."""
        try:
            answer = self.session.run("dbus-send", "--session", "--print-reply=literal", "--dest=org.freedesktop.DBus", "/",
                                      "org.freedesktop.DBus.GetConnectionUnixProcessID", f"string:{NAME}")
        except Exception:
            return None
        return int(answer.split()[-1])


def wait_one(copies, seconds=20):
    """Waits until all but one have ended, and a moment longer for the last one; returns (the one, those that ended)."""
    wait_until("all copies but one ending", lambda: sum(copy.poll() is None for copy in copies) <= 1, seconds)
    ended = [copy for copy in copies if copy.poll() is not None]
    return next((copy for copy in copies if copy.poll() is None), None), ended


class Instance(SystemTest):
    def setUp(self):
        self.running = []
        self.session = self.enterContext(Session())
        self.copies = Copies(self.session)

    def start(self, *arguments, **environment):
        copy = self.copies.start(*arguments, **environment)
        self.running.append(copy)
        self.addCleanup(self._end, copy)
        return copy

    @staticmethod
    def _end(copy):
        if copy.poll() is None:
            copy.send_signal(signal.SIGCONT)
            copy.terminate()
        copy.communicate(timeout=10)

    def assert_handed_over(self, copy):
        output, errors = copy.communicate(timeout=20)
        errors = re.sub(rb"QStandardPaths: XDG_RUNTIME_DIR not set.*\n", b"", errors)
        self.assertEqual((copy.returncode, output, errors), (0, b"", b""))

    def assert_one_stays(self, *environments):
        copies = [self.copies.start(**environment) for environment in environments]
        try:
            one, ended = wait_one(copies)
            self.assertIsNotNone(one, "no copy is left")
            for copy in ended:
                self.assert_handed_over(copy)
            return one
        finally:
            for copy in copies:
                self._end(copy)

    def test_of_two_at_once_exactly_one_stays(self):
        for number in range(TIMES):
            with self.subTest(number):
                copies = [self.copies.start(), self.copies.start()]
                one, ended = wait_one(copies)
                self.assertIsNotNone(one, "no copy is left")
                self.assert_handed_over(ended[0])
                self.assertEqual((one.poll(), self.copies.owner()), (None, one.pid))
                self._end(one)
                self.assertEqual(one.returncode, 0)

    def test_without_a_bus_too(self):
        for environments in ((NO_BUS, NO_BUS), (NO_BUS, {}), ({}, NO_BUS), (NO_BUS, {}, NO_BUS, {})):
            for number in range(5):
                with self.subTest(environments, number=number):
                    self.assert_one_stays(*environments)

    def test_in_a_session_without_a_runtime_folder(self):
        del self.session.env["XDG_RUNTIME_DIR"]
        self.assert_one_stays(NO_BUS, NO_BUS)

    def test_a_killed_copy_leaves_nothing_in_the_way(self):
        for environment in ({}, NO_BUS):
            with self.subTest(environment):
                first = self.start(**environment)
                self.assert_handed_over_to(first, environment)
                first.kill()
                second = self.start(**environment)
                self.assert_handed_over_to(second, environment)
                self._end(second)

    def assert_handed_over_to(self, copy, environment):
        """Whether `copy` is the one: another start ends, and `copy` does not."""
        time.sleep(0.5)
        other = self.start(**environment)
        self.assert_handed_over(other)
        self.assertIsNone(copy.poll())

    def test_a_copy_that_hangs_is_not_waited_for_for_ever(self):
        first = self.start()
        wait_until("the first copy on the bus", lambda: self.copies.owner() == first.pid)
        first.send_signal(signal.SIGSTOP)
        second = self.start()
        time.sleep(14)
        self.assertIsNone(second.poll(), "nobody raises alerts")

    def test_a_preview_runs_beside_it(self):
        first = self.start()
        wait_until("the first copy on the bus", lambda: self.copies.owner() == first.pid)
        preview = self.start("--preview")
        time.sleep(2)
        self.assertEqual((first.poll(), preview.poll()), (None, None))

    def test_the_desktop_may_call_it(self):
        first = self.start()
        wait_until("the first copy on the bus", lambda: self.copies.owner() == first.pid)
        call = ("gdbus", "call", "--session", "--dest", NAME, "--object-path", PATH, "--method")
        self.assertEqual(self.session.run(*call, "org.freedesktop.Application.Activate", "{}"), "()\n")
        self.assertEqual(self.session.run(*call, "org.freedesktop.Application.Open", "['file:///x']", "{}"), "()\n")
        with self.assertRaisesRegex(Exception, "InvalidArgs"):
            self.session.run(*call, "org.freedesktop.Application.ActivateAction", "format-disk", "[]", "{}")
        self.assertIsNone(first.poll())


class Front(SystemTest):
    """What a person sees of a second start."""

    def second_start(self, desktop, *arguments, **environment):
        env = {key: value for key, value in desktop.env.items() if key != "QT_QPA_PLATFORM"}
        done = subprocess.run([binary(), *arguments], env={**env, **environment}, stdin=subprocess.DEVNULL,
                              capture_output=True, timeout=20, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))

    def test_its_window_comes_to_the_front_on_x11(self):
        desktop = XorgDesktop(sizes=((1280, 1024),))
        program = self.quorvane(desktop)

        def in_front():
            return desktop.run("xdotool", "getactivewindow", "getwindowname").strip()
        desktop.start("xterm", ["xterm", "-fullscreen", "-T", "Other work"])
        wait_until("the other window", lambda: self._quiet(in_front) == "Other work")
        self.second_start(desktop)
        wait_until("the dashboard in front", lambda: self._quiet(in_front) == "Quorvane")
        desktop.run("wmctrl", "-a", "Other work")
        wait_until("the other window again", lambda: self._quiet(in_front) == "Other work")
        self.second_start(desktop, DESKTOP_STARTUP_ID="launcher-1_TIME1")
        wait_until("the dashboard in front again", lambda: self._quiet(in_front) == "Quorvane")
        self.second_start(desktop, "--preview-overlay")
        self.assert_alert_on_every_display(desktop)
        self.assertIsNone(program.process.poll())

    @staticmethod
    def _quiet(question):
        try:
            return question()
        except Exception:
            return None

    def test_the_launchers_token_goes_to_the_compositor(self):
        desktop = SwayDesktop(sizes=((1280, 1024),))
        program = self.quorvane(desktop, WAYLAND_DEBUG="client")
        wait_until("the program at work", lambda: self._quiet(lambda: desktop.run(
            "dbus-send", "--session", "--print-reply", f"--dest={NAME}", PATH, "org.freedesktop.DBus.Peer.Ping")))
        for token in ("token-of-the-menu", "another-token"):
            self.second_start(desktop, XDG_ACTIVATION_TOKEN=token)
            wait_until("the token at the compositor",
                       lambda text=f'activate("{token}", wl_surface': text in program.said())
        self.assertIn('"name": "Quorvane"', desktop.message("-t", "get_tree"))


if __name__ == "__main__":
    main()
