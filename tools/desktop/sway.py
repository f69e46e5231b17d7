# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Headless sway: Wayland with layer-shell. sway refuses root, so root runs it as nobody and stays root itself."""
import json
import os
import shutil
import time

from .output import SIZES, Output, capture_each, row
from .processes import DesktopError, wait_until
from .session import Session

NOBODY = 65534
HOUR = "3600000"  # ms


class SwayControls:
    """Keys and pictures on the sway session that `env` names."""

    def press(self, *keys):
        # The pause lets the new virtual keyboard's keymap arrive before its first key.
        for key in keys:
            self.run("wtype", "-s", "200", "-k", key)

    def click(self, x, y):
        raise DesktopError("a headless sway has no pointer; press keys instead")

    def screenshot(self, folder, prefix="display-"):
        return capture_each(self.outputs, folder, prefix,
                            lambda output, path: self.run("grim", "-l", "1", "-o", output.name, path))

    def read_outputs(self):
        outputs = json.loads(self.run("swaymsg", "-t", "get_outputs", "-r"))
        return sorted((Output(o["name"], o["rect"]["width"], o["rect"]["height"], o["rect"]["x"], o["rect"]["y"])
                       for o in outputs if o["active"]), key=lambda output: output.x)

    def message(self, *words):
        """One command to sway."""
        return self.run("swaymsg", *words)


class SwayDesktop(SwayControls, Session):
    kind = "sway"

    def __init__(self, sizes=SIZES, notes_requests=False, **options):
        super().__init__(**options)
        self.sizes = sizes
        self.debugging = {"WAYLAND_DEBUG": "server"} if notes_requests else {}

    def requests(self):
        """What its clients have asked of it so far, if it was made to note that."""
        with open(self.log("sway"), encoding="utf-8", errors="replace") as file:
            return file.read()

    def start_display(self):
        wanted = row(self.sizes, "HEADLESS-{}", 1)
        lines = [f"output {o.name} resolution {o.width}x{o.height} position {o.x} {o.y}" for o in wanted]
        lines += ["workspace 1 output HEADLESS-1", "focus output HEADLESS-1"]
        sway = self.start_sway("sway", lines, WLR_BACKENDS="headless", WLR_HEADLESS_OUTPUTS=str(len(wanted)),
                               **self.debugging)
        wait_until("starting sway", lambda: self.readable_outputs() == wanted, 15, sway, self.log("sway"))
        self.outputs = wanted
        # A headless seat has a keyboard only while a virtual one exists.
        self.start("keyboard", ["wtype", *(["-s", HOUR] * 8), "-k", "F35"])
        wait_until("giving sway a keyboard", self.has_keyboard)
        time.sleep(0.1)

    def start_sway(self, name, lines, **backend):
        """Starts sway with these further lines of configuration; the session becomes its."""
        folder = os.path.join(self.folder, name)
        os.mkdir(folder, 0o700)
        with open(f"{folder}/config", "w", encoding="utf-8") as file:
            file.write("\n".join(["xwayland disable", "output * bg #206020 solid_color", *lines]) + "\n")
        user = NOBODY if os.geteuid() == 0 else None
        env = {**self.env, "HOME": folder, "XDG_RUNTIME_DIR": folder, "SWAYSOCK": f"{folder}/ipc",
               "XDG_CONFIG_HOME": folder, "XDG_CACHE_HOME": folder, "WLR_LIBINPUT_NO_DEVICES": "1",
               "WLR_RENDERER": "pixman", **backend}
        if user:
            shutil.chown(folder, user, user)
        sway = self.processes.start(name, ["sway", "-c", f"{folder}/config"], env, user=user)
        # An absolute WAYLAND_DISPLAY lets clients keep a runtime folder of their own.
        self.env.update(SWAYSOCK=f"{folder}/ipc", WAYLAND_DISPLAY=f"{folder}/wayland-1", QT_QPA_PLATFORM="wayland",
                        XDG_SESSION_TYPE="wayland", XDG_CURRENT_DESKTOP="sway")
        return sway

    def readable_outputs(self):
        """The outputs; none while sway does not answer yet."""
        if not os.path.exists(self.env["WAYLAND_DISPLAY"]):
            return []
        try:
            return self.read_outputs()
        except DesktopError:
            return []

    def has_keyboard(self):
        seats = json.loads(self.run("swaymsg", "-t", "get_seats", "-r"))
        return any(device["type"] == "keyboard" for seat in seats for device in seat["devices"])
