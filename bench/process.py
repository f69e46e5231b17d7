# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the kernel says of a running process: processor time, wake-ups, memory."""
import glob
import os
import re
import time

TICKS = os.sysconf("SC_CLK_TCK")


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def processor_seconds(pid):
    """User and system time of all threads."""
    fields = read(f"/proc/{pid}/stat").rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def scheduled_seconds(pid):
    """Time on a processor of all living threads, exact to the nanosecond."""
    return sum(int(read(path).split()[0]) for path in glob.glob(f"/proc/{pid}/task/*/schedstat")) / 1e9


def switches(pid):
    """Context switches of all living threads: how often something woke them, or took them off a processor."""
    found = 0
    for path in glob.glob(f"/proc/{pid}/task/*/status"):
        found += sum(int(count) for count in re.findall(r"ctxt_switches:\s+(\d+)", read(path)))
    return found


def proportional_memory(pid):
    """PSS in MB."""
    return int(re.search(r"^Pss:\s+(\d+)", read(f"/proc/{pid}/smaps_rollup"), re.M).group(1)) * 1024 / 1e6


def watch(pids, seconds):
    """By pid: (share of one core in percent, context switches a second), over some seconds."""
    def snapshot():
        return {pid: (scheduled_seconds(pid), switches(pid)) for pid in pids}
    started, before = time.monotonic(), snapshot()
    time.sleep(seconds)
    after, elapsed = snapshot(), time.monotonic() - started
    return {pid: (100 * (after[pid][0] - before[pid][0]) / elapsed, (after[pid][1] - before[pid][1]) / elapsed)
            for pid in pids}
