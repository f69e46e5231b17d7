# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Private headless desktops for the tests, the demo and the benchmarks.

    with SwayDesktop() as desktop:
        program = desktop.start("quorvane", ["build/release/quorvane"])
        desktop.press("Return")
        desktop.screenshot("build/pictures")
"""
import os

from .attached import attach
from .events import LINK, Event, seconds_from_now, utc, write_event
from .kwin import KwinDesktop
from .mutter import MutterDesktop, MutterX11Desktop
from .nested import NestedSwayDesktop
from .output import SIZES, Output
from .own import OwnDisplays
from .pictures import AMBER, EMBER, Picture
from .processes import DesktopError, Processes, signal_group, wait_until
from .program import ROOT, Program, binary
from .session import Session
from .sway import SwayDesktop
from .xorg import XorgDesktop

DESKTOPS = {"xorg": XorgDesktop, "sway": SwayDesktop, "sway-nested": NestedSwayDesktop, "mutter": MutterDesktop,
            "mutter-x11": MutterX11Desktop, "kwin": KwinDesktop, "none": Session}


def best_for_this_machine():
    """The desktop that shows most on a machine without a display: X needs root, sway does not."""
    return XorgDesktop if os.geteuid() == 0 else SwayDesktop
