# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""From the due second of an alert to its picture on all displays."""
import time

from desktop import SIZES, Event, Program, SwayDesktop, XorgDesktop, seconds_from_now
from table import Figure, percentile

SPACING = 3  # seconds between two alerts


def alerts(desktop, count):
    """Milliseconds from due to painted of `count` alerts, each answered by Return before the next."""
    with desktop, Program(desktop) as program:
        first = seconds_from_now(60 + 5)
        events = [Event(f"Meeting {number}", first + SPACING * number) for number in range(count)]
        for event in events:
            program.add(event)
        delays = []
        for number, event in enumerate(events, 1):
            due, _, painted = program.wait_painted(number, max(event.due - time.time(), 0) + 5)
            delays.append(1000 * (painted - event.due))
            time.sleep(max(event.due + 0.8 - time.time(), 0))
            desktop.press("Return")
            program.wait_acknowledged(event.meeting_id())
        return delays


def figures(quick):
    count = 5 if quick else 32
    rows = (("X11, one display", XorgDesktop(sizes=((1920, 1080),)), 40),
            ("X11, three displays", XorgDesktop(sizes=SIZES), 100),
            ("Wayland, three displays", SwayDesktop(sizes=SIZES), 100))
    found = []
    for what, desktop, target in rows:
        delays = alerts(desktop, count)
        found += [Figure(f"{what}: median", percentile(delays, 0.5), "ms", None, f"of {len(delays)} alerts"),
                  Figure(f"{what}: 99th percentile", percentile(delays, 0.99), "ms", target,
                         f"the first, cold one: {delays[0]:.1f} ms")]
    return "Due to painted on all displays", found
