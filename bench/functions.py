# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The benchmark programs of single functions and stores, built from bench/*_bench.cpp."""
import glob
import json
import os
import subprocess

from desktop import ROOT, DesktopError, Session
from table import Figure

# Targets in milliseconds by the benchmark's name.
TARGETS = {"readingTenThousandFromFolderCold": 500, "readingTenThousandFromFolderUnchanged": 30,
           "readingTenThousandFromEvolution": 150, "makingMeetingsOfTenThousandEvents": 50}
IN_MS = {"ns": 1e-6, "us": 1e-3, "ms": 1.0, "s": 1e3}


def run(program):
    with Session() as session:
        done = subprocess.run([program, "--benchmark_format=json"], env={**session.env, "QT_QPA_PLATFORM": "offscreen"},
                              stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False)
    if done.returncode:
        raise DesktopError(f"{program} ended with status {done.returncode}: {done.stderr[-300:]}")
    return json.loads(done.stdout)["benchmarks"]


def figure(result):
    rates = [f"{result[key]:,.0f} {what}/s" for key, what in (("items_per_second", "items"),
                                                              ("bytes_per_second", "bytes")) if key in result]
    if result.get("error_occurred"):
        raise DesktopError(f"{result['name']}: {result.get('error_message')}")
    name = result["name"].split("/")[0]
    return Figure(result["name"], result["real_time"] * IN_MS[result["time_unit"]], "ms", TARGETS.get(name),
                  "; ".join(rates))


def figures(quick):
    programs = sorted(glob.glob(os.path.join(ROOT, "build/release/bench/*_bench")))
    return "Functions and stores", [figure(result) for program in programs for result in run(program)]
