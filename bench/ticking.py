# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""How late a tick comes while 20 requests hang, by bench/hanging_requests.cpp."""
import json
import os
import subprocess

from desktop import ROOT, DesktopError
from table import Figure, percentile

PROGRAM = os.path.join(ROOT, "build/release/bench/hanging_requests")
TARGET = 20  # ms


def figures(quick):
    # Longer than a request's time limit, so that all are given up and begun again meanwhile.
    done = subprocess.run([PROGRAM, "5" if quick else "40"], stdin=subprocess.DEVNULL, capture_output=True, text=True,
                          check=False)
    if done.returncode:
        raise DesktopError(f"{PROGRAM} ended with status {done.returncode}: {done.stderr[-300:]}")
    found = []
    for name, late in json.loads(done.stdout).items():
        what = f"{name} 20 hanging requests"
        found += [Figure(f"{what}: median", percentile(late, 0.5), "ms", None, f"of {len(late)} ticks"),
                  Figure(f"{what}: 99th percentile", percentile(late, 0.99), "ms", TARGET, ""),
                  Figure(f"{what}: longest", max(late), "ms", TARGET if name == "with" else None, "")]
    return "Lateness of a tick", found
