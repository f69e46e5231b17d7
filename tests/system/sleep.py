#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Waking from sleep, as logind tells it on a system bus of our own."""
import mmap

import gi

from harness import Event, SystemTest, main, seconds_from_now, wait_until
from desktop import SwayDesktop, utc

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

LOGIN = "org.freedesktop.login1"


class Sleep(SystemTest):
    def test_waking_reads_the_calendars_at_once(self):
        desktop = SwayDesktop(sizes=((1280, 720),), system_bus=True)
        event = Event("Moved while asleep", seconds_from_now(100_000))
        self.logind = None
        program = self.quorvane(desktop, seed=self.start_logind)
        path = program.add(event)
        self.assertTrue(program.stays_silent(2))
        start = seconds_from_now(30)
        file = self.enterContext(open(path, "r+b"))
        memory = self.enterContext(mmap.mmap(file.fileno(), 0))
        # File notifications tell nothing of a write through a memory map while the file stays open.
        self.replace(memory, utc(event.start), utc(start))
        self.replace(memory, utc(event.start + 1800), utc(start + 1800))
        self.assertTrue(program.stays_silent(2), "the change was noticed without waking")
        self.emit_sleep(True)
        self.emit_sleep(False)
        program.wait_shown(event.meeting_id(start), 3)
        self.assert_alert_on_every_display(desktop)
        self.assert_return_acknowledges(desktop, program, event, start)

    def start_logind(self, desktop):
        mock = desktop.start("logind", ["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.bus = Gio.DBusConnection.new_for_address_sync(desktop.env["DBUS_SYSTEM_BUS_ADDRESS"], flags, None, None)

        def owned():
            return self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner",
                                      GLib.Variant("(s)", (LOGIN,)), None, 0, 2000, None).unpack()[0]
        wait_until("starting logind", owned, 10, mock, desktop.log("logind"))

    def emit_sleep(self, begins):
        arguments = GLib.Variant("(sssav)", (f"{LOGIN}.Manager", "PrepareForSleep", "b",
                                             [GLib.Variant("b", begins)]))
        self.bus.call_sync(LOGIN, "/org/freedesktop/login1", "org.freedesktop.DBus.Mock", "EmitSignal", arguments,
                           None, 0, 2000, None)

    @staticmethod
    def replace(memory, old, new):
        at = memory.find(old.encode())
        assert at >= 0 and len(old) == len(new)
        memory[at:at + len(new)] = new.encode()


if __name__ == "__main__":
    main()
