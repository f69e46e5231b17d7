# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The displays of the person who is sitting here, with a throw-away home and buses."""
import os

from .processes import DesktopError
from .session import Session
from .sway import SwayControls
from .xorg import XorgControls

SHOWN = ("DISPLAY", "XDG_SESSION_TYPE", "XDG_CURRENT_DESKTOP", "SWAYSOCK", "PULSE_SERVER")


class OwnDisplays(Session):
    """Keys are left to the person; pictures are taken where the desktop allows it (X, wlroots compositors)."""

    kind = "own"

    @staticmethod
    def exist():
        return bool(os.environ.get("DISPLAY") or os.environ.get("WAYLAND_DISPLAY"))

    def start_display(self):
        given = os.environ
        runtime = given.get("XDG_RUNTIME_DIR", "")
        self.env.update({name: given[name] for name in SHOWN if given.get(name)})
        self.env["XAUTHORITY"] = given.get("XAUTHORITY", os.path.expanduser("~/.Xauthority"))
        if given.get("WAYLAND_DISPLAY"):
            self.env["WAYLAND_DISPLAY"] = os.path.join(runtime, given["WAYLAND_DISPLAY"])
        pulse = os.path.join(runtime, "pulse/native")
        if "PULSE_SERVER" not in self.env and os.path.exists(pulse):
            self.env["PULSE_SERVER"] = f"unix:{pulse}"
        try:
            self.outputs = self._controls().read_outputs(self)
        except (DesktopError, AttributeError):
            self.outputs = []

    def screenshot(self, folder, prefix="display-"):
        """Paths of the pictures; none where this desktop lets nobody take any."""
        try:
            return self._controls().screenshot(self, folder, prefix) if self.outputs else []
        except DesktopError:
            return []

    def _controls(self):
        if self.env.get("WAYLAND_DISPLAY"):
            return SwayControls if self.env.get("SWAYSOCK") else None
        return XorgControls
