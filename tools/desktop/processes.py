# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Programs that a desktop starts, and that it ends again: each in a process group of its own, ended by its id."""
import os
import signal
import subprocess
import time


class DesktopError(Exception):
    """A sentence about what a desktop, or a program on it, failed to do."""


def wait_until(what, condition, seconds=10.0, process=None, log=None, interval=0.05):
    """Returns the first true answer of `condition`; a DesktopError naming `what` after `seconds`, or as soon as
    `process`, whose output is in the file `log`, has ended."""
    deadline = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if process is not None and process.poll() is not None:
            raise DesktopError(f"{what}: the program ended with status {process.returncode}{tail(log)}")
        if time.monotonic() > deadline:
            raise DesktopError(f"{what}: not within {seconds:g} seconds{tail(log)}")
        time.sleep(interval)


def tail(log, lines=6):
    """The last lines of a log, as the end of an error message."""
    try:
        with open(log, encoding="utf-8", errors="replace") as file:
            text = file.read().strip().splitlines()[-lines:]
    except (OSError, TypeError):
        return ""
    return "; it said:\n  " + "\n  ".join(text) if text else ""


class Processes:
    """Starts programs with their output in `folder`/NAME.log and ends them in the reverse order."""

    def __init__(self, folder):
        self.folder = folder
        self.started = []

    def log(self, name):
        return os.path.join(self.folder, f"{name}.log")

    def start(self, name, argv, env, user=None, pass_fds=(), stdin=subprocess.DEVNULL):
        identity = {"user": user, "group": user, "extra_groups": []} if user is not None else {}
        with open(self.log(name), "ab") as log:
            try:
                process = subprocess.Popen(argv, env=env, stdin=stdin, stdout=log, stderr=log, pass_fds=pass_fds,
                                           start_new_session=True, **identity)
            except FileNotFoundError as error:
                raise DesktopError(f"{argv[0]} is not installed (./dev deps installs it)") from error
        process.name = name
        self.started.append(process)
        return process

    def end(self, process, seconds=4.0):
        """Asks the process group to end, then makes it. Returns the exit status."""
        for sign, patience in ((signal.SIGTERM, seconds), (signal.SIGKILL, 5.0)):
            signal_group(process, sign)
            signal_group(process, signal.SIGCONT)
            try:
                process.wait(patience)
                break
            except subprocess.TimeoutExpired:
                continue
        signal_group(process, signal.SIGKILL)  # what the leader left behind in its group
        if process in self.started:
            self.started.remove(process)
        return process.returncode

    def end_all(self):
        while self.started:
            self.end(self.started[-1])


def signal_group(process, sign):
    try:
        os.killpg(process.pid, sign)
    except (ProcessLookupError, PermissionError):
        pass
