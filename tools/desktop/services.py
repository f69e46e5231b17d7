# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A session that a real service manager of its own looks after. Needs root, which makes the namespaces; the manager
and what it starts are nobody's."""
import os
import shutil
import subprocess

from .processes import DesktopError, wait_until
from .sway import NOBODY

SYSTEMD = "/lib/systemd/systemd"
# The manager moves all processes of its control group into another one, so it gets one that holds nothing else; and
# it must not be the first process of its namespace, or else it takes itself for the system's.
ENCLOSED = """set -e
mount -t tmpfs tmpfs /run/systemd
mkdir -p /run/systemd/system /run/systemd/users
umount -R /sys/fs/cgroup
mount -t cgroup2 none /sys/fs/cgroup
group=/sys/fs/cgroup/$1
mkdir "$group"
echo 0 > "$group/cgroup.procs"
chown -R "$2:$2" "$group"
setpriv "--reuid=$2" "--regid=$2" --clear-groups "$3" --user --unit=basic.target --log-target=console &
wait
"""
REMOVAL = 'mount -t cgroup2 none /mnt && find "/mnt/$1" -depth -type d -exec rmdir {} +'


class ServicedSession:
    """Goes before the desktop among the bases of a class: `class Desktop(ServicedSession, SwayDesktop)`."""

    def start_bus(self):
        """The manager brings the session bus up."""
        why_not = why_unavailable()
        if why_not:
            raise DesktopError(why_not)
        self.group = os.path.basename(self.folder)
        runtime = self.env["XDG_RUNTIME_DIR"]
        self.env["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={runtime}/bus"
        shutil.chown(runtime, NOBODY, NOBODY)
        self.hand_over()
        self.manager = self.start("systemd", ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--mount-proc",
                                              "--propagation", "private", "sh", "-c", ENCLOSED, "sh", self.group,
                                              str(NOBODY), SYSTEMD])
        wait_until("starting the service manager", lambda: os.path.exists(f"{runtime}/bus") and self.manager_runs(),
                   process=self.manager, log=self.log("systemd"))

    def stop(self):
        super().stop()
        subprocess.run(["unshare", "--mount", "sh", "-c", REMOVAL, "sh", self.group], check=False,
                       stderr=subprocess.DEVNULL)

    def hand_over(self):
        """Gives the folders of the session, and what was put into them, to the user of the manager."""
        for name in ("HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME"):
            for folder, _, files in os.walk(self.env[name]):
                for path in (folder, *(os.path.join(folder, file) for file in files)):
                    shutil.chown(path, NOBODY, NOBODY)

    def manager_runs(self):
        return self.systemctl("is-system-running", check=False) in ("running", "degraded")

    def systemctl(self, *arguments, check=True):
        """What `systemctl --user` prints, without the last newline."""
        done = self.run_inside("systemctl", "--user", *arguments, timeout=60)
        if check and done.returncode:
            raise DesktopError(f"systemctl {' '.join(arguments)}: {done.stderr.decode().strip()}")
        return done.stdout.decode().strip()

    def add_unit(self, name, text):
        """Writes a unit, or a drop-in by UNIT.d/NAME.conf, and has the manager read it."""
        path = os.path.join(self.env["XDG_CONFIG_HOME"], "systemd/user", name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        self.hand_over()
        self.systemctl("daemon-reload")

    def run_inside(self, *argv, timeout=30):
        """Runs a program to its end where the manager's services run, as their user: the finished process."""
        return subprocess.run([*self._inside(), *argv], env=self.env, stdin=subprocess.DEVNULL, capture_output=True,
                              timeout=timeout, check=False)

    def start_inside(self, name, argv):
        """Like `start`, where the manager's services run."""
        return self.start(name, [*self._inside(), *argv])

    def _inside(self):
        with open(f"/proc/{self.manager.pid}/task/{self.manager.pid}/children", encoding="utf-8") as children:
            first = (children.read().split() or ["0"])[0]
        return ["nsenter", f"--target={first}", "--mount", "--pid", "setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}",
                "--clear-groups"]


def why_unavailable():
    """Why there can be no service manager here; None where there can."""
    if os.geteuid() != 0:
        return "a service manager of its own needs root"
    if not os.access(SYSTEMD, os.X_OK):
        return "systemd is not installed (./dev deps installs it)"
    test = subprocess.run(["unshare", "--mount", "--pid", "--fork", "--mount-proc", "mount", "-t", "cgroup2", "none",
                           "/mnt"], capture_output=True, check=False, text=True)
    return f"no namespaces or control groups here: {test.stderr.strip()}" if test.returncode else None
