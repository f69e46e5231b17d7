#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program as a service of a real service manager: crashes, hangs, copies that are opened by hand, links."""
import json
import os
import time

from harness import Program, SystemTest, main, wait_until
from desktop import ROOT, SwayDesktop, binary
from desktop.services import ServicedSession, why_unavailable

UNIT = "me.tarnel.quorvane-app.service"
TEMPLATE = os.path.join(ROOT, "packaging/systemd", UNIT + ".in")
APPLICATION = "me.tarnel.Quorvane"
# As zoom.us links look, with what shells and the service manager take for something else.
LINK = "https://zoom.us/j/123456789?pwd=$HOME$$a%20b'c"
BROWSER = """#!/bin/sh
echo "$1" > "$HOME/opened"
sleep 1000 &
echo $! > "$HOME/browser"
"""


class ServicedDesktop(ServicedSession, SwayDesktop):
    pass


class Supervision(SystemTest):
    def setUp(self):
        why_not = why_unavailable()
        if why_not:
            self.skipTest(why_not)
        self.desktop = self.enterContext(ServicedDesktop(sizes=((1280, 720),)))
        self.program = Program(self.desktop)
        os.makedirs(self.program.calendars)
        self.desktop.hand_over()
        self.desktop.systemctl("import-environment", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP")

    def install(self, *settings):
        """Puts the unit where a package does, enabled, with further settings of its service."""
        folder = os.path.join(self.desktop.env["XDG_DATA_HOME"], "systemd/user")
        os.makedirs(folder)
        with open(TEMPLATE, encoding="utf-8") as template, open(f"{folder}/{UNIT}", "w", encoding="utf-8") as unit:
            unit.write(template.read().replace("@QUORVANE_EXECUTABLE@", binary()))
        # There is no journal here.
        log = f"append:{self.desktop.home}/said"
        self.set(f"StandardOutput={log}", f"StandardError={log}", *settings)
        self.desktop.add_unit("session-up.target", "[Unit]\nBindsTo=graphical-session.target\n")
        self.desktop.systemctl("enable", UNIT)
        os.symlink(f"{self.desktop.home}/said", self.program.log)
        self.addCleanup(self._tell_log, self.program)

    def set(self, *settings, name="test"):
        self.desktop.add_unit(f"{UNIT}.d/{name}.conf", "\n".join(["[Service]", *settings, ""]))

    def show(self, name):
        return self.desktop.systemctl("show", f"--property={name}", "--value", UNIT)

    def is_up(self):
        return self.show("ActiveState") == "active"

    def start_session(self):
        self.desktop.systemctl("start", "session-up.target")
        wait_until("the agent being ready", self.is_up, 20)
        return self.show("MainPID")

    def kill_agent(self, sign):
        self.desktop.systemctl("kill", "--kill-whom=main", f"--signal={sign}", UNIT)

    def wait_back(self, restarts):
        wait_until("the agent being started again", lambda: self.show("NRestarts") == str(restarts) and self.is_up(), 30)

    def windows(self):
        """How many windows of the program there are on the desktop, alerts aside."""
        def count(node):
            return (node.get("app_id") == APPLICATION) + sum(map(count, node.get("nodes", [])))
        return count(json.loads(self.desktop.message("-t", "get_tree", "-r")))

    def open_by_hand(self, *arguments):
        """(exit status, standard output, standard error) of a copy that ends."""
        done = self.desktop.run_inside(binary(), *arguments)
        return done.returncode, done.stdout, done.stderr

    def assert_runs_itself(self, *arguments, by=()):
        """A copy that is opened by hand shows a window and stays, and leaves the agent as it was."""
        windows, agent = self.windows(), self.show("MainPID")
        copy = self.desktop.start_inside("copy", [*by, binary(), *arguments])
        wait_until("the copy's window", lambda: self.windows() == windows + 1, 20, copy, self.desktop.log("copy"))
        self.assertEqual(self.show("MainPID"), agent)
        self.desktop.end(copy)
        wait_until("the copy's end", lambda: self.windows() == windows)

    def test_a_crash_costs_a_moment_and_the_end_of_the_session_ends_all(self):
        self.install()
        agent = self.start_session()
        self.assertIn(b"Seccomp:\t2", self.desktop.run_inside("cat", f"/proc/{agent}/status").stdout)
        event = self.meeting_soon(self.program)
        first = self.assert_alerts_on_time(self.program, event)
        self.assert_alert_on_every_display(self.desktop)

        killed = time.time()
        self.kill_agent("KILL")
        self.assert_no_alert_anywhere(self.desktop)
        shown = self.program.wait_shown(event.meeting_id(), 10, after=first)
        print(f"killed; the alert was back after {shown - killed:.2f} s")
        self.assert_alert_on_every_display(self.desktop)
        self.wait_back(1)
        self.assert_return_acknowledges(self.desktop, self.program, event)

        self.desktop.systemctl("stop", "graphical-session.target")
        self.assertEqual((self.show("ActiveState"), self.show("Result")), ("inactive", "success"))
        left = self.desktop.run_inside("sh", "-c", "cat /proc/[0-9]*/comm").stdout.split()
        self.assertIn(b"systemd", left)
        self.assertFalse({b"quorvane", b"calendar-reader"} & set(left))

    def test_a_hung_program_is_started_again_and_an_opened_copy_hands_over(self):
        self.install("WatchdogSec=4s")
        self.assertEqual(self.open_by_hand(), (0, b"", b""))
        agent = self.show("MainPID")
        self.assertTrue(self.is_up())
        began = time.monotonic()
        self.assertEqual(self.open_by_hand(), (0, b"", b""))
        print(f"handed over within {time.monotonic() - began:.2f} s")
        self.assertEqual(self.show("MainPID"), agent)
        self.assert_runs_itself("--preview")

        time.sleep(max(began + 6 - time.monotonic(), 0))
        self.assertEqual((self.show("NRestarts"), self.show("MainPID")), ("0", agent), "it was taken for hung")
        self.kill_agent("STOP")
        self.wait_back(1)
        self.assertNotEqual(self.show("MainPID"), agent)

        self.kill_agent("TERM")
        wait_until("the end of the agent", lambda: self.show("ActiveState") == "inactive")
        self.assertEqual(self.show("Result"), "success")

    def test_without_an_agent_that_works_a_copy_runs_itself(self):
        trace = os.path.join(self.desktop.home, "trace")
        self.assert_runs_itself(by=("strace", "-f", "-e", "trace=execve", "-o", trace))
        with open(trace, encoding="utf-8") as file:
            self.assertNotIn("systemctl", file.read())

        self.install("ExecStart=", "ExecStart=/bin/false")
        self.assert_runs_itself()
        self.set("RestartSec=10ms", name="tries")
        wait_until("many tries", lambda: int(self.show("NRestarts")) > 60, 30)
        self.set()
        wait_until("the agent, once it can", self.is_up, 20)
        self.desktop.systemctl("stop", UNIT)
        self.desktop.systemctl("mask", UNIT)
        # As desktops start what is clicked on, by the service manager.
        self.assert_runs_itself(by=("sh", "-c", 'SYSTEMD_EXEC_PID=$$ exec "$@"', "sh"))

    def test_the_login_entry_starts_it_without_a_window(self):
        self.assertEqual(self.open_by_hand("--enable-login"), (0, b"Start at login registered.\n", b""))
        self.desktop.systemctl("daemon-reload")
        self.desktop.systemctl("start", f"app-{APPLICATION}@autostart.service")
        look = ("gdbus", "introspect", "--session", f"--dest={APPLICATION}", "--object-path=/me/tarnel/Quorvane")
        wait_until("an answer of the program", lambda: self.desktop.run_inside(*look).returncode == 0, 20)
        self.assertEqual(self.windows(), 0)
        self.assertEqual(self.open_by_hand()[0], 0)
        wait_until("the window", lambda: self.windows() == 1)

    def test_what_a_link_opened_outlives_the_program(self):
        tools = os.path.join(self.desktop.folder, "tools")
        os.mkdir(tools)
        with open(f"{tools}/xdg-open", "w", encoding="utf-8", opener=lambda path, flags: os.open(path, flags, 0o755)) \
                as file:
            file.write(BROWSER)
        self.desktop.systemctl("set-environment", f"PATH={tools}:{os.environ['PATH']}")
        self.install()
        self.start_session()
        event = self.meeting_soon(self.program, location=LINK)
        self.assert_alerts_on_time(self.program, event)
        self.assert_alert_on_every_display(self.desktop)
        self.desktop.press("Tab", "Tab", "space")
        self.program.wait_acknowledged(event.meeting_id())
        self.assertEqual(self.seen("opened"), LINK)
        browser = self.seen("browser")

        self.kill_agent("KILL")
        self.wait_back(1)
        done = self.desktop.run_inside("cat", *(f"/proc/{browser}/{name}" for name in ("cgroup", "status", "environ")))
        self.assertEqual(done.returncode, 0, "the browser is gone")
        self.assertNotIn(UNIT.encode(), done.stdout)
        self.assertIn(b"Seccomp:\t0", done.stdout)
        self.assertNotIn(b"NOTIFY_SOCKET", done.stdout)
        with open(self.desktop.log("systemd"), encoding="utf-8") as log:
            self.assertNotIn("zoom.us", log.read())

    def seen(self, name):
        with open(os.path.join(self.desktop.home, name), encoding="utf-8") as file:
            return file.read().strip()


if __name__ == "__main__":
    main()
