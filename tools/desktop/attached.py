# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The desktop that the caller is already in, be it one of ours or a person's own."""
import os
import tempfile

from .kwin import KwinControls
from .mutter import MutterControls
from .processes import DesktopError
from .session import Session
from .sway import SwayControls
from .xorg import XorgControls


class _Attached:
    """The part of a session that the controls need, taken from the environment."""

    run = Session.run

    def __init__(self):
        self.env = dict(os.environ)
        self.folder = tempfile.gettempdir()
        self.outputs = []
        if isinstance(self, (MutterControls, KwinControls)):
            self.connect()
        self.outputs = self.read_outputs()


def attach():
    """Controls of the current desktop; a DesktopError where there is none whose displays we can read."""
    kind = os.environ.get("QUORVANE_DESKTOP")
    if kind not in ("xorg", "sway", "mutter", "kwin"):
        kind = ("sway" if os.environ.get("SWAYSOCK") else
                "xorg" if os.environ.get("DISPLAY") and not os.environ.get("WAYLAND_DISPLAY") else None)
    controls = {"xorg": XorgControls, "sway": SwayControls, "mutter": MutterControls,
                "kwin": KwinControls}.get(kind)
    if controls is None:
        raise DesktopError("this is no desktop whose displays can be read from outside")
    return type("AttachedDesktop", (_Attached, controls), {})()
