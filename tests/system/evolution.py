# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A real Evolution Data Server in a desktop's session: its calendar, and another process that changes it."""
import os
import signal

from harness import wait_until

OWN_ADDRESS = "me@example.com"
ACCOUNT = f"""[Data Source]
DisplayName=Work account
Enabled=true
Parent=

[Collection]
BackendName=none
Identity={OWN_ADDRESS}
CalendarEnabled=true
"""
CALENDAR = f"""[Data Source]
DisplayName=Meetings
Enabled=true
Parent=account1

[Calendar]
BackendName=local
Color=#aa0000
Selected=true

[Local Backend]
EmailAddress={OWN_ADDRESS}
"""
ADD = """
import sys, gi
gi.require_version('EDataServer', '1.2'); gi.require_version('ECal', '2.0'); gi.require_version('ICalGLib', '3.0')
from gi.repository import ECal, EDataServer, ICalGLib
registry = EDataServer.SourceRegistry.new_sync(None)
source = registry.ref_source('meetings1')
client = ECal.Client.connect_sync(source, ECal.ClientSourceType.EVENTS, 0xFFFFFFFF, None)
component = ICalGLib.Component.new_from_string(sys.argv[1])
client.create_object_sync(component, ECal.OperationFlags.DISABLE_ITIP_MESSAGE, None)
"""


def seed(desktop, *events, enabled=True):
    """Writes an account with one calendar that holds these events, before the service starts."""
    sources = os.path.join(desktop.env["XDG_CONFIG_HOME"], "evolution/sources")
    calendar = os.path.join(desktop.env["XDG_DATA_HOME"], "evolution/calendar/meetings1")
    os.makedirs(sources)
    os.makedirs(calendar)
    lines = ["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//Quorvane//test meetings//EN"]
    for event in events:
        lines += event.vevents()
    description = CALENDAR if enabled else CALENDAR.replace("Enabled=true", "Enabled=false")
    files = {f"{sources}/account1.source": ACCOUNT, f"{sources}/meetings1.source": description,
             f"{calendar}/calendar.ics": "\r\n".join([*lines, "END:VCALENDAR"]) + "\r\n"}
    for path, text in files.items():
        with open(path, "w", encoding="utf-8", newline="") as file:
            file.write(text)


def add(desktop, event):
    """Another process adds a meeting by the service's own interface."""
    desktop.run("/usr/bin/python3", "-c", ADD, "\r\n".join(event.vevents()))


def processes(desktop):
    """The service's processes in this session, and in no other."""
    mark = f"XDG_RUNTIME_DIR={desktop.env['XDG_RUNTIME_DIR']}".encode()
    found = []
    for pid in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open(f"/proc/{pid}/comm", encoding="utf-8") as comm, open(f"/proc/{pid}/environ", "rb") as environ:
                if comm.read().startswith("evolution-") and mark in environ.read().split(b"\0"):
                    found.append(int(pid))
        except OSError:
            continue
    return found


class Stopped:
    """`with Stopped(desktop):` the service's processes hang."""

    def __init__(self, desktop):
        self.pids = wait_until("the calendar service", lambda: processes(desktop), 10)

    def __enter__(self):
        for pid in self.pids:
            os.kill(pid, signal.SIGSTOP)

    def __exit__(self, *_):
        for pid in self.pids:
            try:
                os.kill(pid, signal.SIGCONT)
            except ProcessLookupError:
                pass
