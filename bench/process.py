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
    """User and system time of all threads, ended ones too, to a hundredth of a second."""
    fields = read(f"/proc/{pid}/stat").rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / TICKS


def switches(pid):
    """Context switches by living thread: how often something woke it, or took it off a processor."""
    found = {}
    for path in glob.glob(f"/proc/{pid}/task/*/status"):
        try:
            found[path] = sum(int(count) for count in re.findall(r"ctxt_switches:\s+(\d+)", read(path)))
        except OSError:
            continue  # the thread has just ended
    return found


def proportional_memory(pid):
    """PSS in MB."""
    return int(re.search(r"^Pss:\s+(\d+)", read(f"/proc/{pid}/smaps_rollup"), re.M).group(1)) * 1024 / 1e6


def watch(pids, seconds):
    """By pid: (share of one core in percent, context switches a second), over some seconds."""
    def snapshot():
        return {pid: (processor_seconds(pid), switches(pid)) for pid in pids}
    started, before = time.monotonic(), snapshot()
    time.sleep(seconds)
    after, elapsed = snapshot(), time.monotonic() - started
    return {pid: (100 * (after[pid][0] - before[pid][0]) / elapsed,
                  sum(count - before[pid][1].get(thread, 0) for thread, count in after[pid][1].items()) / elapsed)
            for pid in pids}
