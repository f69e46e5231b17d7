#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compiles every header alone, with the flags of a source that includes it or is in its folder.

tools/headers.py BUILD-FOLDER
"""
import concurrent.futures
import json
import os
import re
import shlex
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DROPPED_WITH_VALUE = ("-o", "-c", "-MF", "-MT", "-MQ")
DROPPED = ("-MD", "-MMD")
INCLUDE = re.compile(r'^#include "([^"]+)"', re.M)


def flags(command):
    """The command's flags without its source, its output and what it writes beside."""
    words = shlex.split(command)
    start = 2 if os.path.basename(words[0]) == "ccache" else 1
    kept, skip = [], False
    for word in words[start:]:
        if skip or word in DROPPED_WITH_VALUE:
            skip = not skip
        elif word not in DROPPED:
            kept.append(word)
    return kept


def known_flags(build):
    """Folder and flags of a compilation, by the headers that its source includes and by that source's folder."""
    with open(os.path.join(build, "compile_commands.json"), encoding="utf-8") as file:
        entries = json.load(file)
    found = {}
    for entry in entries:
        command = entry["directory"], flags(entry["command"])
        found.setdefault(os.path.relpath(os.path.dirname(entry["file"]), ROOT), command)
        if os.path.exists(entry["file"]):
            with open(entry["file"], encoding="utf-8") as file:
                for header in INCLUDE.findall(file.read()):
                    found.setdefault(header, command)
    return found


def compile_alone(header, known):
    """The compiler's complaint about a header, or None."""
    place = header
    while place and place not in known:
        place = os.path.dirname(place)
    if not place:
        return f"{header}: no source that includes it or is in its folder is built"
    directory, options = known[place]
    done = subprocess.run(["g++", *options, "-fsyntax-only", "-x", "c++", "-"], cwd=directory, text=True,
                          input=f'#include "{os.path.join(ROOT, header)}"\n', capture_output=True, check=False)
    return f"{header} does not compile alone:\n{done.stderr[:2000]}" if done.returncode else None


def main():
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "--", "*.h"], cwd=ROOT, text=True,
                            capture_output=True, check=True).stdout.split()
    headers = [header for header in listed if os.path.exists(os.path.join(ROOT, header))]
    known = known_flags(sys.argv[1])
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        complaints = [c for c in pool.map(lambda header: compile_alone(header, known), headers) if c]
    print("\n".join(complaints) or f"{len(headers)} headers compile alone")
    return 1 if complaints or not headers else 0


if __name__ == "__main__":
    sys.exit(main())
