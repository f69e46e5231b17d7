# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Quorvane itself, seen from outside: its process, its calendars, its ledger, its log."""
import json
import os
import re
import shlex
import signal
import time

from .events import write_event
from .processes import DesktopError, signal_group, wait_until

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
RELEASE = os.path.join(ROOT, "build/release/quorvane")
PAINTED = re.compile(r"due ([\d.]+) shown ([\d.]+) painted ([\d.]+)")


def binary():
    return os.environ.get("QUORVANE_BINARY", RELEASE)


class Program:
    """`with Program(desktop) as program:` starts Quorvane in the desktop's session and ends it: as at login, with no
    window, unless `window` asks for it. `in_terminal` lets it tell its status; `executable` is another copy of it."""

    def __init__(self, desktop, *arguments, settings=None, in_terminal=False, window=False, executable=None,
                 **environment):
        self.executable = executable or binary()
        if not os.access(self.executable, os.X_OK):
            raise DesktopError(f"there is no program {self.executable} (./dev build makes it)")
        self.desktop = desktop
        self.arguments = arguments
        self.in_terminal = in_terminal
        self.window = window
        self.environment = {"QT_LOGGING_RULES": "quorvane.alert.debug=true", "QT_FORCE_STDERR_LOGGING": "1",
                            **environment}
        self.data = os.path.join(desktop.env["XDG_DATA_HOME"], "Quorvane")
        self.calendars = os.path.join(self.data, "calendars")
        self.process = None
        if settings:
            self.write_settings(settings)

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_):
        if self.process and self.process.poll() is None:
            self.desktop.end(self.process)

    def write_settings(self, settings):
        folder = os.path.join(self.desktop.env["XDG_CONFIG_HOME"], "Quorvane")
        os.makedirs(folder, exist_ok=True)
        with open(os.path.join(folder, "settings.ini"), "w", encoding="utf-8") as file:
            file.write("[General]\n" + "".join(f"{key}={value}\n" for key, value in settings.items()))

    def start(self):
        os.makedirs(self.calendars, exist_ok=True)
        # Which of Qt's platforms suits the session is for the program to find out.
        command = [self.executable, *self.arguments]
        if self.in_terminal:
            # Not every shell gives its place to the last command on its own; the process asked about is the program.
            command = ["script", "-qefc", "exec " + shlex.join(command), "/dev/null"]
        start = {} if self.window else {"QUORVANE_START": "login"}
        self.process = self.desktop.start("quorvane", command, without=("QT_QPA_PLATFORM",), **start,
                                          **self.environment)

    def kill(self):
        """Ends it as a crash would."""
        signal_group(self.process, signal.SIGKILL)
        self.process.wait(5)

    def stop(self):
        """Ends it as a session does and returns its exit status."""
        self.process.send_signal(signal.SIGTERM)
        try:
            return self.process.wait(10)
        except Exception as error:
            raise DesktopError("Quorvane did not end within 10 seconds of SIGTERM") from error

    @property
    def log(self):
        return self.desktop.log("quorvane")

    def said(self):
        """What it printed so far, in a terminal or on standard error."""
        with open(self.log, encoding="utf-8", errors="replace") as file:
            return file.read()

    def add(self, event, calendar="work"):
        return write_event(os.path.join(self.calendars, calendar), event)

    @property
    def ledger_path(self):
        return os.path.join(self.data, "acknowledgments.json")

    def ledger(self):
        try:
            with open(self.ledger_path, encoding="utf-8") as file:
                return json.load(file)
        except FileNotFoundError:
            return {}

    def record(self, meeting_id):
        return self.ledger().get(meeting_id, {})

    def wait_shown(self, meeting_id, seconds, after=0):
        """Waits until the ledger says that the meeting's alert was shown after `after`; returns when it was."""
        def shown():
            at = self.record(meeting_id).get("shownAt", 0)
            return at if at > after else None
        return wait_until("the alert", shown, seconds, self.process, self.log, 0.02)

    def wait_acknowledged(self, meeting_id, seconds=3):
        return wait_until("the acknowledgment in the ledger",
                          lambda: self.record(meeting_id).get("acknowledged") is True, seconds, self.process,
                          self.log, 0.02)

    def painted(self):
        """(due, shown, painted) of every alert so far, Unix times."""
        return [tuple(float(time_) for time_ in found) for found in PAINTED.findall(self.said())]

    def wait_painted(self, count, seconds):
        """Waits until `count` alerts were on all displays; returns the last one's (due, shown, painted)."""
        return wait_until("the alert on all displays",
                          lambda: (self.painted()[count - 1:] or [None])[0], seconds, self.process, self.log, 0.02)

    def stays_silent(self, seconds):
        """Whether nothing was shown for some seconds."""
        before = {key: record["shownAt"] for key, record in self.ledger().items()}
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            if self.process.poll() is not None:
                raise DesktopError("Quorvane has ended")
            if any(record["shownAt"] != before.get(key, 0) for key, record in self.ledger().items()):
                return False
            time.sleep(0.1)
        return True
