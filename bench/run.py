#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the benchmarks and prints their figures: ./dev bench [--quick] [NAME ...], with the names of ALL below"""
import argparse
import os
import sys

sys.dont_write_bytecode = True
HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [HERE, os.path.join(HERE, "../tools")]

import delay  # noqa: E402
import functions  # noqa: E402
import idle  # noqa: E402
import reading  # noqa: E402
import showing  # noqa: E402
import ticking  # noqa: E402
import updating  # noqa: E402
import window  # noqa: E402
from desktop import DesktopError  # noqa: E402
from table import print_table  # noqa: E402

ALL = {"functions": functions, "reading": reading, "delay": delay, "idle": idle, "showing": showing,
       "ticking": ticking, "updating": updating, "window": window}


def main():
    parser = argparse.ArgumentParser(prog="./dev bench", description="Runs the benchmarks and prints their figures.")
    parser.add_argument("--quick", action="store_true", help="fewer alerts and shorter watching")
    parser.add_argument("names", nargs="*", help=f"which ones: {', '.join(ALL)} (default: all)")
    given = parser.parse_args()
    unknown = [name for name in given.names if name not in ALL]
    if unknown:
        parser.error(f"there is no benchmark {unknown[0]}; there are {', '.join(ALL)}")
    failed = missed = 0
    for name in given.names or ALL:
        try:
            title, found = ALL[name].figures(given.quick)
        except DesktopError as error:
            print(f"\n{name} could not be measured: {error}", file=sys.stderr)
            failed += 1
            continue
        print_table(title, found)
        missed += sum(figure.verdict == "MISSED" for figure in found)
    print(f"\n{missed} targets missed" if missed else "\nall targets met" if not failed else "")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
