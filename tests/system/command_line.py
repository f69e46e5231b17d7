# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the tests of the command line share: a session without a display, and the program run in it to its end."""
import os
import shutil
import subprocess
import unittest

import harness  # noqa: F401  (finds the package below)
from desktop import Program, Session, binary, wait_until

UNKNOWN = "Unknown or incomplete command. No application window was opened.\n"
NO_ACCESS = "Calendar access is needed. Allow access from Quorvane's Connect calendars button.\n"


def install_tree(folder):
    """Puts the program and what is shipped with it into `folder`, laid out as it is installed."""
    built = os.path.dirname(os.path.realpath(binary()))
    helpers = {f"libexec/quorvane/{name}/{name}": f"{name}/{name}" for name in ("calendar-reader", "update-unpacker")}
    shipped = {"bin/quorvane": os.path.realpath(binary()), "share/Quorvane/info.json": "share/Quorvane/info.json", **helpers}
    for path, source in shipped.items():
        path = os.path.join(folder, path)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        try:
            os.link(os.path.join(built, source), path)
        except OSError:  # another file system
            shutil.copy(os.path.join(built, source), path)


class CommandTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.session = self.enterContext(Session())
        self.session.env["TZ"] = "UTC"

    def start(self, *arguments, wrapper=(), without=(), program=None, **options):
        """Runs the program, or that other copy of it, with `arguments`; by another program where `wrapper` names one."""
        env = {name: value for name, value in self.session.env.items() if name not in without}
        options = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **options}
        return subprocess.Popen([*wrapper, program or binary(), *arguments], env=env, **options)

    def outcome(self, process, given=None, seconds=60):
        """Exit status and output; nothing may have been said on standard error."""
        self.addCleanup(process.kill)
        said, complaint = process.communicate(given, timeout=seconds)
        self.assertEqual(complaint, b"")
        return process.returncode, said.decode() if said is not None else None

    def command(self, *arguments, given=None, **options):
        if given is not None:
            options["stdin"] = subprocess.PIPE
        return self.outcome(self.start(*arguments, **options), given)

    def configure(self, **settings):
        Program(self.session, settings=settings)

    def path(self, folder, *names):
        """A path below one of the session's XDG folders, such as "data"."""
        return os.path.join(self.session.env[f"XDG_{folder.upper()}_HOME"], *names)

    def put(self, path, text=""):
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8", newline="") as file:
            file.write(text)

    def files(self):
        """All files of the user's, but those of the services that a command talks to."""
        services = ("evolution", "keyrings", "glib-2.0", "dconf", "gnome-settings-daemon")
        found = []
        for folder in ("config", "data", "state"):
            top = self.path(folder)
            for place, folders, names in os.walk(top):
                folders[:] = [name for name in folders if name not in services]
                found += [os.path.relpath(os.path.join(place, name), top) for name in names]
        return sorted(found)


__all__ = ["CommandTest", "NO_ACCESS", "UNKNOWN", "install_tree", "wait_until"]
