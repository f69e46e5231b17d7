# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""An X server on the dummy driver with up to three displays, and openbox. Needs root: the server reads a
configuration of our own."""
import os
import select

from .output import SIZES, Output, capture_each, row
from .processes import DesktopError, wait_until
from .session import Session

CONFIGURATION = os.path.join(os.path.dirname(os.path.abspath(__file__)), "xorg-dummy.conf")


class XorgControls:
    """Keys, clicks and pictures on the X display that `env` names."""

    def press(self, *keys):
        self.run("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "2", text)

    def click(self, x, y):
        """A left click at a position of the whole desktop."""
        self.run("xdotool", "mousemove", str(x), str(y), "click", "1")

    def screenshot(self, folder, prefix="display-"):
        """Writes one picture per display, `folder`/`prefix`N.png, and returns their paths."""
        whole = os.path.join(self.folder, "desktop.miff")
        self.run("import", "-silent", "-window", "root", whole)
        paths = capture_each(self.outputs, folder, prefix, lambda output, path: self.run(
            "convert", whole, "-crop", output.geometry, "+repage", path))
        os.unlink(whole)
        return paths

    def read_outputs(self):
        """The displays as the server tells them, the primary one first."""
        found = []
        for line in self.run("xrandr", "--listactivemonitors").splitlines()[1:]:
            _, flags, geometry, name = line.split()
            size, x, y = geometry.split("+")
            width, height = (int(side.split("/")[0]) for side in size.split("x"))
            found.append(("*" not in flags, Output(name, width, height, int(x), int(y))))
        return [output for _, output in sorted(found, key=lambda pair: (pair[0], pair[1].x))]


class XorgDesktop(XorgControls, Session):
    kind = "xorg"

    def __init__(self, sizes=SIZES, window_manager=("openbox", "--sm-disable"), **options):
        super().__init__(**options)
        self.sizes = sizes
        self.window_manager = window_manager

    def start_display(self):
        if os.geteuid() != 0:
            raise DesktopError("virtual X displays need root; use sway instead (tools/desktop/run sway)")
        number = self._start_server()
        self.env.update(DISPLAY=f":{number}", QT_QPA_PLATFORM="xcb")
        self._arrange()
        if self.window_manager:
            manager = self.start("window-manager", list(self.window_manager))
            wait_until("starting the window manager", self._manager_answers, process=manager,
                       log=self.log("window-manager"))

    def _start_server(self):
        """Starts the server, which chooses a free display number itself and tells it when it is ready."""
        read, write = os.pipe()
        argv = ["Xorg", "-displayfd", str(write), "-noreset", "-nolisten", "tcp", "-novtswitch", "-sharevts",
                "-config", CONFIGURATION, "-logfile", os.path.join(self.folder, "Xorg.log")]
        server = self.processes.start("xorg", argv, self.env, pass_fds=(write,))
        os.close(write)
        try:
            wait_until("starting the X server", lambda: select.select([read], [], [], 0)[0], 15, server,
                       self.log("xorg"))
            number = os.read(read, 16).decode().strip()
        finally:
            os.close(read)
        if not number:
            raise DesktopError(f"the X server did not start, see {self.log('xorg')}")
        return number

    def _arrange(self):
        for index, output in enumerate(self.outputs_wanted()):
            mode = f"{output.width}x{output.height}"
            if index:
                self.run("xrandr", "--addmode", output.name, mode)
            self.run("xrandr", "--output", output.name, "--mode", mode, "--pos", f"{output.x}x{output.y}",
                     *(("--primary",) if index == 0 else ()))
        self.outputs = self.outputs_wanted()
        if self.read_outputs() != self.outputs:
            raise DesktopError(f"the X server shows {self.read_outputs()} instead of {self.outputs}")

    def outputs_wanted(self):
        return row(self.sizes, "DUMMY{}", 0)

    def _manager_answers(self):
        try:
            return bool(self.run("wmctrl", "-m"))
        except DesktopError:
            return False
