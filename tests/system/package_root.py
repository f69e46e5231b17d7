# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Throw-away systems to install packages on: with processes, mounts and files of their own. Making one needs root."""
import os
import shutil
import subprocess
import tempfile

from desktop import DesktopError

# What this machine has; what is changed there is forgotten. An init that does nothing keeps it.
OVER_THIS = """
mount -t tmpfs tmpfs "$1"
mkdir "$1/changed" "$1/work" "$1/root"
mount -t overlay overlay -o "lowerdir=/,upperdir=$1/changed,workdir=$1/work" "$1/root"
"""
ENTER = """
cd "$1/root"
mount -t proc proc proc
mount --rbind /dev dev
mount -t tmpfs tmpfs tmp
mount -t tmpfs tmpfs run
exec chroot . sh -c 'echo ready; exec sleep infinity'
"""
ENVIRONMENT = ["env", "-i", "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "HOME=/tmp/home",
               "XDG_RUNTIME_DIR=/run/session", "LC_ALL=C.UTF-8", "DEBIAN_FRONTEND=noninteractive"]


class PackageRoot:
    """`with PackageRoot() as root:` one over this machine's own files; `bare` makes a Debian 12 of essential packages
    and apt, which takes half a minute and the network."""

    def __init__(self, bare=False):
        self.bare = bare
        self.folder = tempfile.mkdtemp(prefix="quorvane-root-")
        self.namespace = None
        self.init = None

    def __enter__(self):
        if self.bare:
            subprocess.run(["mmdebstrap", "--quiet", "--variant=apt", "bookworm", self.folder + "/root"], check=True)
            shutil.copy("/etc/resolv.conf", self.folder + "/root/etc/resolv.conf")
        script = "set -e\n" + ("" if self.bare else OVER_THIS) + ENTER
        self.namespace = subprocess.Popen(
            ["unshare", "--mount", "--pid", "--fork", "--kill-child", "--propagation", "private", "sh", "-c", script,
             "sh", self.folder], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True)
        if self.namespace.stdout.readline() != "ready\n":
            self.__exit__()
            raise DesktopError("no throw-away system could be made here (mount, unshare)")
        with open(f"/proc/{self.namespace.pid}/task/{self.namespace.pid}/children", encoding="ascii") as file:
            self.init = file.read().strip()
        for folder in ("/tmp/home", "/run/session"):
            os.mkdir(self.path(folder), 0o700)
        if self.bare:
            self.need("apt-get", "update", seconds=300)
        return self

    def __exit__(self, *_):
        self.namespace.kill()
        self.namespace.wait()
        self.namespace.stdout.close()
        shutil.rmtree(self.folder, ignore_errors=self.bare)

    def path(self, path):
        """Where a file of that system is seen from here."""
        return f"/proc/{self.init}/root{path}"

    def command(self, *arguments, **environment):
        settings = [f"{name}={value}" for name, value in environment.items()]
        return ["nsenter", "--target", self.init, "--mount", "--pid", "--root", "--wd", *ENVIRONMENT, *settings,
                *arguments]

    def start(self, *arguments, **environment):
        """A process there; it and its caller end with the same status."""
        return subprocess.Popen(self.command(*arguments, **environment), stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def run(self, *arguments, seconds=60, **environment):
        """(exit status, output) of a program that is run there."""
        done = subprocess.run(self.command(*arguments, **environment), stdin=subprocess.DEVNULL, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=seconds, check=False)
        return done.returncode, done.stdout

    def need(self, *arguments, seconds=60):
        """The output of a program that has to succeed there."""
        status, output = self.run(*arguments, seconds=seconds)
        if status != 0:
            raise DesktopError(f"{' '.join(arguments)}: status {status}\n{output}")
        return output

    def install(self, package):
        """Installs a package file; what it depends on comes from Debian where it is not there yet."""
        inside = "/tmp/" + os.path.basename(package)
        shutil.copy(package, self.path(inside))
        if self.bare:
            self.need("apt-get", "install", "-y", "--no-install-recommends", "--reinstall", inside, seconds=900)
        else:
            self.dpkg("--install", inside)

    def dpkg(self, *arguments):
        # What other packages then do about new files takes longer than all the rest.
        self.need("dpkg", "--no-triggers", *arguments)

    def files_named_after(self, name):
        """Every path of the system itself whose last part has `name` in it."""
        return set(self.need("find", "/etc", "/usr", "/var", "-xdev", "-iname", f"*{name}*").splitlines())
