# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the system tests share: a program on a desktop, and what a person would see of it."""
import os
import subprocess
import sys
import tempfile
import time
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../tools"))
from desktop import DesktopError, Event, Picture, Program, seconds_from_now, wait_until  # noqa: E402

# A meeting this far away alerts in two to three seconds.
SOON = 62
# How late the alert of a known meeting may be; measured ones are a tenth of it, on a machine that does nothing else.
PUNCTUAL = 0.6


class SystemTest(unittest.TestCase):
    """Test methods get a `desktop` and `program` of their own by `self.quorvane(SomeDesktop())`."""

    maxDiff = None

    def quorvane(self, desktop, *arguments, seed=None, **options):
        """Starts a desktop and on it the program, after `seed(desktop)`. Both end with the test; the program's last
        words are told if the test fails."""
        self.enterContext(desktop)
        if seed:
            seed(desktop)
        program = Program(desktop, *arguments, **options)
        self.enterContext(program)
        self.addCleanup(self._tell_log, program)
        return program

    def _tell_log(self, program):
        result = self._outcome.result if self._outcome else None
        if result is None or not any(self in (test, getattr(test, "test_case", None))
                                     for test, _ in result.failures + result.errors):
            return
        status = program.process.poll() if program.process else None
        print(f"--- {self.id()}: the program {'runs' if status is None else f'ended with status {status}'}; its log",
              file=sys.stderr)
        if os.path.exists(program.log):
            with open(program.log, encoding="utf-8", errors="replace") as file:
                print(f"{file.read()[-3000:]}---", file=sys.stderr)

    def meeting_soon(self, program, title="Design review", **properties):
        """A meeting in the calendar folder whose alert is due in a few seconds."""
        event = Event(title, seconds_from_now(SOON), **properties)
        program.add(event)
        return event

    def assert_alerts_on_time(self, program, event, start=None):
        """The alert comes at its due second, and within a moment of it."""
        due = (start or event.start) - 60
        shown = program.wait_shown(event.meeting_id(start), max(due - time.time(), 0) + 5)
        self.assertGreaterEqual(shown, due)
        self.assertLess(shown, due + PUNCTUAL, "the alert is late")
        return shown

    def pictures(self, desktop):
        folder = tempfile.mkdtemp(dir=desktop.folder)
        return [Picture(path) for path in desktop.screenshot(folder)]

    def assert_alert_on_every_display(self, desktop, seconds=10):
        """Every display shows the alert, once its fade-in is over. Returns the pictures."""
        deadline = time.monotonic() + seconds
        while True:
            pictures = self.pictures(desktop)
            faults = [fault for fault in (picture.why_no_alert() for picture in pictures) if fault]
            if not faults:
                self.assertEqual(len(pictures), len(desktop.outputs))
                return pictures
            if time.monotonic() > deadline:
                self.keep_pictures(desktop)
                self.fail("; ".join(faults))
            time.sleep(0.2)

    def assert_no_alert_anywhere(self, desktop, seconds=3):
        def gone():
            return not any(picture.shows_alert() for picture in self.pictures(desktop))
        wait_until("the alert leaving all displays", gone, seconds)

    def keep_pictures(self, desktop):
        folder = os.path.join(os.environ.get("QUORVANE_PICTURES", "build/failed"), self.id())
        print("pictures of the failure:", *desktop.screenshot(folder), file=sys.stderr)

    def assert_return_acknowledges(self, desktop, program, event, start=None):
        """Return, pressed without a click before, ends the alert on all displays and is kept in the ledger."""
        desktop.press("Return")
        program.wait_acknowledged(event.meeting_id(start))
        self.assert_no_alert_anywhere(desktop)


def start_keyring(session):
    """Starts the keyring service of a session, unlocked, and returns its process. Nothing may ask for it before it has
    its name, or else the bus starts another one, which is locked."""
    with tempfile.TemporaryFile() as password:
        password.write(b"password")
        password.seek(0)
        keyring = session.processes.start("keyring", ["gnome-keyring-daemon", "--foreground", "--unlock",
                                                      "--components=secrets"], session.env, stdin=password)
    wait_until("the keyring on the bus", lambda: "true" in session.run(
        "dbus-send", "--session", "--print-reply", "--dest=org.freedesktop.DBus", "/",
        "org.freedesktop.DBus.NameHasOwner", "string:org.freedesktop.secrets"), 30, keyring, session.log("keyring"))
    wait_until("the keyring", lambda: store_secret(session, "ready", "x"), 30, keyring, session.log("keyring"))
    return keyring


def store_secret(session, account, value):
    """Stores a secret as another program does. Whether that worked."""
    return subprocess.run(["secret-tool", "store", "--label", account, "service", "me.tarnel.Quorvane", "account", account],
                          env=session.env, input=value.encode(), check=False, capture_output=True).returncode == 0


def words_typed(path):
    """What another program's window on the desktop received."""
    try:
        with open(path, encoding="utf-8") as file:
            return file.read()
    except FileNotFoundError:
        return ""


def main():
    unittest.main(module="__main__", verbosity=2, warnings="ignore")


__all__ = ["DesktopError", "Event", "Picture", "Program", "SOON", "SystemTest", "main", "seconds_from_now",
           "start_keyring", "store_secret", "wait_until", "words_typed"]
