#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Both calendar sources at work: Evolution Data Server and folders beside a calendar cache and its reader."""
import os
import shutil
import subprocess
import sys

import evolution
from harness import Event, SystemTest, main, seconds_from_now, wait_until
from desktop import ROOT, SwayDesktop

ONE_DISPLAY = ((1280, 720),)
NAME = "Fantastical-8.fcdata"
BLOCKED = "Apple Calendar connected. Fantastical access is blocked; saved meetings are retained."


class SecondSource(SystemTest):
    def cache_folder(self, desktop):
        folder = os.path.join(desktop.home, "cache folder")
        os.makedirs(folder, exist_ok=True)
        return folder

    def write_cache(self, desktop, *events):
        """A cache with one calendar that holds these events; replaces the one before in one step."""
        source = os.path.join(desktop.home, "second.ics")
        lines = ["BEGIN:VCALENDAR", "VERSION:2.0"] + [line for event in events for line in event.vevents()]
        with open(source, "w", encoding="utf-8", newline="") as file:
            file.write("\r\n".join([*lines, "END:VCALENDAR"]) + "\r\n")
        cache = os.path.join(self.cache_folder(desktop), NAME)
        subprocess.run([sys.executable, os.path.join(ROOT, "tools/make-calendar-cache"), cache, source], check=True)
        return cache

    def start(self, desktop, *arguments, **options):
        settings = {"fantasticalFolderBookmark": os.path.join(desktop.home, "cache folder")}
        return self.quorvane(desktop, *arguments, settings=settings, in_terminal=True, **options)

    def wait_said(self, program, words, seconds=20, after=0):
        wait_until(f"the words “{words}”", lambda: words in program.said()[after:], seconds, program.process, program.log)

    def changed(self, program):
        """Makes the program read again; returns how much it had said before."""
        said = len(program.said())
        program.add(Event("Another day", seconds_from_now(86400 + said)))
        return said

    def test_meetings_of_both_sources_alert_and_one_in_both_is_shown_once(self):
        both = Event("In both", seconds_from_now(73))
        second = Event("In the cache only", both.start + 4)
        desktop = SwayDesktop(sizes=ONE_DISPLAY)

        def seed(session):
            evolution.seed(session, both)
            self.write_cache(session, both, second)
        program = self.start(desktop, seed=seed)
        self.wait_said(program, "Fantastical connected")
        self.wait_said(program, "2 meetings scheduled for alerts")
        self.assert_alerts_on_time(program, both)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, both)
        self.assert_alerts_on_time(program, second)
        self.assert_return_acknowledges(desktop, program, second)
        self.assertEqual(len(program.ledger()), 2)

    def test_a_held_meeting_alerts_on_time_while_both_sources_fail(self):
        held = Event("Held", seconds_from_now(80))
        known = Event("Known to the service", held.start + 4)
        desktop = SwayDesktop(sizes=ONE_DISPLAY)

        def seed(session):
            evolution.seed(session, known)
            self.write_cache(session, held)
        program = self.start(desktop, seed=seed)
        self.wait_said(program, "2 meetings scheduled for alerts")
        folder = self.cache_folder(desktop)
        with open(os.path.join(folder, NAME), "wb") as file:
            file.write(b"no database at all")
        said = self.changed(program)
        self.wait_said(program, BLOCKED, after=said)
        shutil.rmtree(folder)
        with evolution.Stopped(desktop):
            said = self.changed(program)
            self.assert_alerts_on_time(program, held)
            self.assert_return_acknowledges(desktop, program, held)
            self.assert_alerts_on_time(program, known)
            self.assert_return_acknowledges(desktop, program, known)
            self.wait_said(program, "did not answer; its saved meetings are retained.", after=said)
        self.write_cache(desktop, held)
        said = self.changed(program)
        self.wait_said(program, "Fantastical connected", after=said)


if __name__ == "__main__":
    main()
