# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the alert costs while it is on screen."""
import time

from desktop import Event, Program, SwayDesktop, XorgDesktop, seconds_from_now
from process import proportional_memory, watch
from table import Figure


def alert_up(desktop, seconds):
    """(percent of a core, MB) with an alert on every display of the desktop."""
    with desktop, Program(desktop) as program:
        event = Event("Design review", seconds_from_now(55))
        program.add(event)
        program.wait_shown(event.meeting_id(), 8)
        time.sleep(2)
        share, _ = watch([program.process.pid], seconds)[program.process.pid]
        return share, proportional_memory(program.process.pid)


def figures(quick):
    seconds = 5 if quick else 20
    found = []
    for what, kind, sizes, share_target, memory_target in (
            ("X11, one 1080p display", XorgDesktop, ((1920, 1080),), 25, None),
            ("Wayland, one 1080p display", SwayDesktop, ((1920, 1080),), 25, None),
            ("X11, three displays", XorgDesktop, None, None, 90),
            ("Wayland, three displays", SwayDesktop, None, None, 90)):
        share, memory = alert_up(kind(sizes=sizes) if sizes else kind(), seconds)
        found += [Figure(f"{what}: processor", share, "% of core", share_target),
                  Figure(f"{what}: proportional memory", memory, "MB", memory_target)]
    return "With the alert up", found
