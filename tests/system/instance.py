#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""One copy of the program for a user, with and without a session bus, and how a second start shows the first."""
import os
import re
import signal
import socket
import subprocess
import time

from harness import Event, SystemTest, main, seconds_from_now, wait_until
from desktop import SwayDesktop, XorgDesktop, binary, write_event
from desktop.session import Session

NAME = "me.tarnel.Quorvane"
PATH = "/me/tarnel/Quorvane"
NO_BUS = {"DBUS_SESSION_BUS_ADDRESS": "unix:path=/nowhere"}
OTHER_OWNER = """
import sys
from gi.repository import Gio, GLib
Gio.bus_own_name(Gio.BusType.SESSION, sys.argv[1], Gio.BusNameOwnerFlags.NONE, None, None, None)
GLib.MainLoop().run()
"""
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
    """Waits until all but one have ended; returns (the one, those that ended)."""
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

    def assert_ended(self, copy):
        copy.communicate(timeout=20)
        self.assertEqual(copy.returncode, 0)

    def assert_handed_over(self, copy):
        output, errors = copy.communicate(timeout=20)
        errors = re.sub(rb"QStandardPaths: .*\n", b"", errors)
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
        far = os.path.join(self.session.folder, "x" * 120)
        for unusable in ("", "/proc/nowhere", "relative"):
            for data in (self.session.env["XDG_DATA_HOME"], far):
                with self.subTest(unusable=unusable, data=data):
                    lacking = {**NO_BUS, "XDG_RUNTIME_DIR": unusable, "XDG_DATA_HOME": data}
                    self.assert_one_stays(lacking, lacking)

    def test_a_name_that_belongs_to_another_program_is_no_obstacle(self):
        self.session.start("other", ["/usr/bin/python3", "-c", OTHER_OWNER, NAME])
        wait_until("the other program's name", self.copies.owner)
        self.assert_one_stays({}, {})

    def test_a_start_without_a_display_shows_the_one_that_runs(self):
        first = self.start()
        self.wait_at_work(first)
        env = {key: value for key, value in self.session.env.items() if key != "QT_QPA_PLATFORM"}
        done = subprocess.run([binary()], env=env, stdin=subprocess.DEVNULL, capture_output=True, timeout=20, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))

    def wait_at_work(self, copy, environment=None):
        """Until another start would find it."""
        if environment == NO_BUS:
            socket = os.path.join(self.session.env["XDG_RUNTIME_DIR"], f"{NAME}.socket")
            wait_until("the copy's socket", lambda: self._answers(socket), 20, copy)
        else:
            wait_until("the copy on the bus", lambda: self.copies.owner() == copy.pid, 20, copy)

    @staticmethod
    def _answers(path):
        with socket.socket(socket.AF_UNIX) as peer:
            peer.settimeout(5)
            try:
                peer.connect(path)
                peer.sendall(b'{"wish":0}\n')
                return peer.recv(8) == b"ok\n"
            except OSError:
                return False

    def test_a_killed_copy_leaves_nothing_in_the_way(self):
        for environment in ({}, NO_BUS):
            with self.subTest(environment):
                for _ in range(2):
                    copy = self.start(**environment)
                    self.wait_at_work(copy, environment)
                    self.assert_handed_over(self.start(**environment))
                    self.assertIsNone(copy.poll())
                    copy.kill()

    def test_a_copy_that_hangs_is_replaced(self):
        """The new one works beside it, and is the one that others find as soon as the old one is gone."""
        first = self.start()
        self.wait_at_work(first)
        first.send_signal(signal.SIGSTOP)
        second = self.start()
        ledger = os.path.join(self.session.env["XDG_DATA_HOME"], "Quorvane/acknowledgments.json")
        write_event(os.path.join(self.session.env["XDG_DATA_HOME"], "Quorvane/calendars/work"),
                            Event("Stand-up", seconds_from_now(62), location="https://zoom.us/j/987654321"))
        wait_until("its alert", lambda: os.path.exists(ledger), 30, second)
        third = self.start()
        time.sleep(0.1)
        first.kill()
        one, ended = wait_one([second, third], 60)
        self.assert_ended(ended[0])
        self.wait_at_work(one)
        self.assert_handed_over(self.start())

    def test_a_copy_that_wakes_up_again_is_the_one(self):
        first = self.start(**NO_BUS)
        self.wait_at_work(first, NO_BUS)
        first.send_signal(signal.SIGSTOP)
        second = self.start(**NO_BUS)
        with self.assertRaises(subprocess.TimeoutExpired):
            second.wait(11)
        first.send_signal(signal.SIGCONT)
        self.assert_ended(second)
        self.assertIsNone(first.poll())

    def test_a_bus_that_hangs_keeps_nobody_from_starting(self):
        address = os.path.join(self.session.folder, "hanging")
        with socket.socket(socket.AF_UNIX) as bus:
            bus.bind(address)
            bus.listen()
            copy = self.start(DBUS_SESSION_BUS_ADDRESS=f"unix:path={address}")
            self.wait_at_work(copy, NO_BUS)

    def test_a_preview_runs_beside_it(self):
        first = self.start()
        self.wait_at_work(first)
        preview = self.start("--preview", WAYLAND_DEBUG="", QT_LOGGING_RULES="")
        self.assert_handed_over(self.start())
        self.assertEqual((first.poll(), preview.poll()), (None, None))

    def test_the_desktop_may_call_it(self):
        first = self.start()
        self.wait_at_work(first)
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
        desktop = SwayDesktop(sizes=((1280, 1024),), notes_requests=True)
        self.quorvane(desktop)
        wait_until("the program at work", lambda: self._quiet(lambda: desktop.run(
            "dbus-send", "--session", "--print-reply", f"--dest={NAME}", PATH, "org.freedesktop.DBus.Peer.Ping")))
        for token in ("token-of-the-menu", "another-token"):
            self.second_start(desktop, XDG_ACTIVATION_TOKEN=token)
            wait_until("the token at the compositor",
                       lambda text=f'activate("{token}", wl_surface': text in desktop.requests())
        self.assertIn('"name": "Quorvane"', desktop.message("-t", "get_tree"))


if __name__ == "__main__":
    main()
