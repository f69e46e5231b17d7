# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""How soon the dashboard's window is there and what it leaves behind, by bench/opening_window.cpp."""
import json
import os

from desktop import ROOT, SwayDesktop, XorgDesktop
from table import Figure, percentile

PROGRAM = os.path.join(ROOT, "build/release/bench/opening_window")
MEETINGS = 2000
PAINTED = 400  # ms
LEFT_BEHIND = 1.15


def opened(kind, times):
    """What the benchmark tells of each time that the window was opened on such a desktop."""
    with kind(sizes=((1920, 1080),)) as desktop:
        process = desktop.start("window", [PROGRAM, str(MEETINGS), str(times)], without=("QT_QPA_PLATFORM",))
        process.wait(30 * times)
        with open(desktop.log("window"), encoding="utf-8") as log:
            return json.loads(log.read().splitlines()[-1])


def figures(quick):
    found = []
    for what, kind in (("X11", XorgDesktop), ("Wayland", SwayDesktop)):
        runs = opened(kind, 3 if quick else 10)
        first, painted = runs[0], [run["painted"] for run in runs]
        found += [Figure(f"{what}: first opened until painted", first["painted"], "ms", PAINTED),
                  Figure(f"{what}: opened again until painted, median", percentile(painted[1:], 0.5), "ms", PAINTED),
                  Figure(f"{what}: memory while open", first["open"] / 1000, "MB"),
                  Figure(f"{what}: memory after the first closing, of before", first["after"] / first["before"], "times",
                         LEFT_BEHIND, f"{first['before'] / 1000:.1f} → {first['after'] / 1000:.1f} MB"),
                  Figure(f"{what}: after the last closing, of the first", runs[-1]["after"] / first["after"], "times",
                         LEFT_BEHIND)]
    return f"The dashboard's window with {MEETINGS} meetings", found
