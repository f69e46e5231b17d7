# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What Quorvane costs while nothing happens, beside the reminder service of Evolution where that is installed."""
import os
import sys
import time

from desktop import Event, Program, XorgDesktop, seconds_from_now
from process import proportional_memory, watch
from table import Figure

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/system"))
import evolution  # noqa: E402

PEER = "/usr/libexec/evolution-data-server/evolution-alarm-notify"
SETTLED = 12  # seconds after the start


def meetings():
    return [Event(f"Meeting {number}", seconds_from_now(7200 + 1800 * number)) for number in range(20)]


def figures(quick):
    seconds = 20 if quick else 120
    desktop = XorgDesktop()
    with desktop:
        evolution.seed(desktop, *meetings())
        with Program(desktop) as program:
            for event in meetings():
                program.add(event)
            watched = {"Quorvane": program.process.pid}
            if os.access(PEER, os.X_OK):
                watched["evolution-alarm-notify"] = desktop.start("peer", [PEER]).pid
            time.sleep(SETTLED)
            costs = watch(watched.values(), seconds)
            found = []
            for name, pid in watched.items():
                ours = name == "Quorvane"
                share, wakes = costs[pid]
                found += [Figure(f"{name}: processor", share, "% of core", 0.05 if ours else None),
                          Figure(f"{name}: wake-ups", wakes, "a second", 1.5 if ours else None),
                          Figure(f"{name}: proportional memory", proportional_memory(pid), "MB",
                                 40 if ours else None)]
    return f"Idle for {seconds} s, 40 meetings in two stores", found
