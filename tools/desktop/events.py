# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Meetings as calendars write them, with a start some seconds from now."""
import hashlib
import math
import os
import time
import uuid
from dataclasses import dataclass, field

LINK = "https://meet.google.com/abc-defg-hij"


def utc(moment):
    return time.strftime("%Y%m%dT%H%M%SZ", time.gmtime(moment))


def seconds_from_now(seconds):
    """The full second that is at least `seconds` away."""
    return math.ceil(time.time() + seconds)


@dataclass
class Event:
    title: str
    start: int  # Unix time
    minutes: int = 30
    location: str = LINK
    extra: tuple = ()  # further lines of the VEVENT, e.g. "RRULE:FREQ=DAILY"
    overrides: tuple = ()  # further VEVENTs of the same UID, each a tuple of its lines
    uid: str = field(default_factory=lambda: str(uuid.uuid4()))

    def vevents(self):
        own = (f"DTSTART:{utc(self.start)}", f"DTEND:{utc(self.start + 60 * self.minutes)}", f"SUMMARY:{self.title}",
               f"LOCATION:{self.location}", *self.extra)
        lines = []
        for properties in (own, *self.overrides):
            lines += ["BEGIN:VEVENT", f"UID:{self.uid}", f"DTSTAMP:{utc(self.start - 86400)}", *properties,
                      "END:VEVENT"]
        return lines

    def calendar_text(self):
        lines = ["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//Quorvane//test meetings//EN", *self.vevents(),
                 "END:VCALENDAR"]
        return "\r\n".join(lines) + "\r\n"

    @property
    def due(self):
        """When its alert is due, Unix time."""
        return self.start - 60

    def meeting_id(self, start=None):
        """The id of one occurrence in the ledger."""
        return hashlib.sha256(f"{self.uid}|{int(self.start if start is None else start)}".encode()).hexdigest()


def write_event(folder, event):
    """Puts a meeting into a calendar folder as other programs do: whole, under its final name at once."""
    os.makedirs(folder, exist_ok=True)
    path = os.path.join(folder, f"{event.uid}.ics")
    with open(path + ".part", "w", encoding="utf-8", newline="") as file:
        file.write(event.calendar_text())
    os.rename(path + ".part", path)
    return path
