#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""An update end to end: real archives of the built program, from a feed on this machine, on a desktop with a tray."""
import json
import os
import time

from harness import main, wait_until
from tray_host import seen
from update_test import CHECK, UpdateTest

PAUSE = "Pause screen alerts for 5 minutes"
RESUME = "Resume screen alerts"
# How often an installation that was put off is tried again, in seconds.
PERIOD = 15


def windows(desktop):
    def count(node):
        children = node.get("nodes", []) + node.get("floating_nodes", [])
        return (node.get("pid") is not None and node.get("name") == "Quorvane") + sum(map(count, children))
    return count(json.loads(desktop.message("-t", "get_tree", "-r")))


class Update(UpdateTest):
    def test_the_new_version_waits_for_the_alert_and_takes_everything_over(self):
        self.install(trayHintShown="true")
        pid = self.program.process.pid
        self.offer(self.archives[2])
        self.check()
        event = self.meeting_soon(self.program)
        wait_until("version 2 beside version 1", lambda: "2" in self.installation.versions(), 30)
        prepared = time.time()
        self.assert_alerts_on_time(self.program, event)
        self.assert_alert_on_every_display(self.desktop)
        time.sleep(max(prepared + PERIOD + 2 - time.time(), 0))  # a firing that has to let the alert stand
        self.assertEqual((self.installation.current(), self.running_version()), ("1", "1"))
        self.assert_return_acknowledges(self.desktop, self.program, event)
        self.item.click(PAUSE)
        self.item.wait_text(RESUME)
        paused = time.time()
        self.close_windows()

        wait_until("version 2 in the same process", lambda: self.installation.version_of(pid) == "2", PERIOD + 5,
                   self.program.process, self.program.log)
        self.assertLess(self.installation.swapped() - paused, PERIOD + 1)
        self.take_item()
        self.assertIsNone(self.program.process.poll())
        self.assertEqual((self.program.process.pid, self.owner()), (pid, pid))
        self.assertIn(RESUME, [text and seen(text) for text in self.item.texts()])
        self.assertTrue(self.program.record(event.meeting_id())["acknowledged"])
        self.assert_settings("automaticallyDownloadsUpdates=true", "soundEnabled=false", "trayHintShown=true")
        self.assertEqual(windows(self.desktop), 0)
        self.assert_no_alert_anywhere(self.desktop)
        wait_until("the trial's end", lambda: not os.path.exists(os.path.join(self.installation.root, "trial.json")), 30)
        self.assertEqual(self.program.stop(), 0)
        self.restart()
        self.assertEqual(self.running_version(), "2")

    def close_windows(self):
        """Should looking for updates have opened the dashboard, it is not to come up again."""
        wait_until("the window closing", lambda: not windows(self.desktop) or
                   self.desktop.message('[title="^Quorvane$"]', "kill") and False)

    def assert_settings(self, *lines):
        path = os.path.join(self.desktop.env["XDG_CONFIG_HOME"], "Quorvane/settings.ini")
        with open(path, encoding="utf-8") as file:
            self.assertLessEqual(set(lines), set(file.read().split("\n")))

    def test_a_copy_without_a_feed_looks_nowhere(self):
        self.install(self.feed.archive(1, with_feed=False))
        before = self.installation.fingerprint()
        self.item.click(CHECK)
        self.item.texts()
        self.program.stays_silent(2)
        self.assertEqual(self.feed.requests(), [])
        self.assertEqual(self.installation.fingerprint(), before)
        self.assertEqual(self.program.stop(), 0)


if __name__ == "__main__":
    main()
