# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A private login session without a display: home, XDG folders and buses of its own, thrown away at the end."""
import os
import shutil
import subprocess
import tempfile

from .processes import DesktopError, Processes, wait_until

PASSED_ON = ("PATH", "TZ", "TERM", "USER", "LOGNAME", "SHELL")
PASSED_ON_PREFIXES = ("QUORVANE_", "ASAN_", "UBSAN_", "LSAN_", "QT_LOGGING", "QT_FORCE")

SYSTEM_BUS = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>system</type><listen>unix:path={path}</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/><allow eavesdrop="true"/><allow own="*"/>
</policy></busconfig>
"""


class Session:
    """Base of every desktop. `env` is the environment for programs in it, `home` its folder."""

    kind = "none"

    def __init__(self, system_bus=False, keep=False):
        self.keep = keep
        self.with_system_bus = system_bus
        self.folder = tempfile.mkdtemp(prefix="quorvane-")
        os.chmod(self.folder, 0o711)  # a compositor that runs as nobody has its folder below
        self.processes = Processes(self.folder)
        self.env = self._environment()
        self.outputs = []

    def __enter__(self):
        try:
            self.start_bus()
            if self.with_system_bus:
                self.start_system_bus()
            self.start_display()
        except BaseException:
            self.stop()
            raise
        return self

    def __exit__(self, *_):
        self.stop()

    def start_display(self):
        """What a desktop adds to a session."""

    def stop(self):
        self.processes.end_all()
        if not self.keep:
            shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, name, argv, without=(), **more_env):
        """Starts a program in the session, in its environment without some variables and with others; its output
        goes to `log(name)`."""
        env = {key: value for key, value in self.env.items() if key not in without}
        return self.processes.start(name, argv, {**env, **more_env})

    def end(self, process):
        return self.processes.end(process)

    def log(self, name):
        return self.processes.log(name)

    def run(self, *argv, timeout=20, **options):
        """Runs a program of the session to its end and returns what it printed."""
        try:
            done = subprocess.run(argv, env=self.env, stdin=subprocess.DEVNULL, capture_output=True,
                                  timeout=timeout, check=False, **options)
        except FileNotFoundError as error:
            raise DesktopError(f"{argv[0]} is not installed (./dev deps installs it)") from error
        except subprocess.TimeoutExpired as error:
            raise DesktopError(f"{argv[0]} did not end within {timeout} seconds") from error
        if done.returncode:
            said = done.stderr.decode(errors="replace").strip()[-300:]
            raise DesktopError(f"{' '.join(argv)}: status {done.returncode} {said}")
        return done.stdout.decode(errors="replace")

    @property
    def home(self):
        return self.env["HOME"]

    def start_bus(self):
        address = f"unix:path={self.env['XDG_RUNTIME_DIR']}/bus"
        self.env["DBUS_SESSION_BUS_ADDRESS"] = address
        bus = self.start("session-bus", ["dbus-daemon", "--session", "--nofork", "--nopidfile", f"--address={address}"])
        wait_until("starting the session bus", lambda: os.path.exists(f"{self.env['XDG_RUNTIME_DIR']}/bus"),
                   process=bus, log=self.log("session-bus"))

    def start_system_bus(self):
        path = os.path.join(self.folder, "system-bus")
        with open(path + ".conf", "w", encoding="utf-8") as file:
            file.write(SYSTEM_BUS.format(path=path))
        self.env["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={path}"
        bus = self.start("system-bus", ["dbus-daemon", "--nofork", "--nopidfile", f"--config-file={path}.conf"])
        wait_until("starting the system bus", lambda: os.path.exists(path), process=bus, log=self.log("system-bus"))

    def _environment(self):
        env = {name: value for name, value in os.environ.items()
               if name in PASSED_ON or name.startswith(PASSED_ON_PREFIXES)}
        folders = {"HOME": "home", "XDG_CONFIG_HOME": "config", "XDG_DATA_HOME": "data", "XDG_CACHE_HOME": "cache",
                   "XDG_STATE_HOME": "state", "XDG_RUNTIME_DIR": "run"}
        for name, folder in folders.items():
            env[name] = os.path.join(self.folder, folder)
            os.mkdir(env[name], 0o700)
        env.update(LANG="C.UTF-8", GIO_USE_VFS="local", GSETTINGS_BACKEND="keyfile", NO_AT_BRIDGE="1",
                   QUORVANE_DESKTOP=self.kind,
                   DBUS_SYSTEM_BUS_ADDRESS=f"unix:path={self.folder}/no-system-bus")
        return env
