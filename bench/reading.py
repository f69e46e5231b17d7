# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""One run of calendar-reader as a whole process: over an empty cache and over one of 10,000 events."""
import os
import statistics
import subprocess
import sys
import tempfile
import time

from desktop import ROOT, DesktopError, Event, seconds_from_now
from table import Figure

READER = os.path.join(ROOT, "build/release/calendar-reader/calendar-reader")
DAY = 86400


def calendar(count):
    """One event in twenty repeats each week; the others lie in the two years around today."""
    lines = ["BEGIN:VCALENDAR", "VERSION:2.0"]
    today = seconds_from_now(0)
    for number in range(count):
        extra = ("RRULE:FREQ=WEEKLY",) if number % 20 == 0 else ()
        start = today + (number * 7919 % (730 * DAY)) * 97 % (730 * DAY) - 365 * DAY
        lines += Event(f"Meeting {number}", start, extra=extra, uid=f"event-{number}@bench").vevents()
    return "\r\n".join([*lines, "END:VCALENDAR"]) + "\r\n"


def make_cache(folder, count):
    source, cache = os.path.join(folder, f"{count}.ics"), os.path.join(folder, f"{count}.fcdata")
    with open(source, "w", encoding="utf-8", newline="") as file:
        file.write(calendar(count))
    subprocess.run([sys.executable, os.path.join(ROOT, "tools/make-calendar-cache"), cache, source], check=True)
    return cache


def run(cache):
    """(milliseconds, peak memory in MB, bytes printed) of one run."""
    environment = {"HOME": "/nonexistent", "PATH": "/usr/bin:/bin", "TZ": "Asia/Jerusalem"}
    with tempfile.TemporaryFile() as printed:
        started = time.perf_counter()
        process = subprocess.Popen([READER, cache], env=environment, stdin=subprocess.PIPE, stdout=printed)
        process.stdin.write(b"[]")
        process.stdin.close()
        _, status, used = os.wait4(process.pid, 0)
        elapsed = time.perf_counter() - started
        process.returncode = os.waitstatus_to_exitcode(status)
        if process.returncode:
            raise DesktopError(f"calendar-reader ended with status {process.returncode}")
        return elapsed * 1000, used.ru_maxrss * 1024 / 1e6, printed.seek(0, os.SEEK_END)


def figures(quick):
    found = []
    with tempfile.TemporaryDirectory() as folder:
        for count in (0, 10_000):
            runs = [run(make_cache(folder, count))]
            cache = os.path.join(folder, f"{count}.fcdata")
            runs += [run(cache) for _ in range(5 if quick else 20)]
            times, memory, size = zip(*runs)
            detail = f"median of {len(runs)}, longest {max(times):.0f} ms; {size[0] / 1000:.0f} kB printed"
            found.append(Figure(f"a run over {count:,} events", statistics.median(times), "ms", None, detail))
            found.append(Figure(f"its peak memory, {count:,} events", max(memory), "MB", None, ""))
    return "The calendar reader, whole process", found
