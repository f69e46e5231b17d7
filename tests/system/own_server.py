#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The program with a real keyring and a server of the user's own, and what it tells nobody else."""
import json
import os
import re
import shutil
import sys

from harness import Event, SystemTest, main, seconds_from_now, start_keyring, store_secret, wait_until
from desktop import MutterDesktop, SwayDesktop

SUPPORT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../support")
sys.path.insert(0, SUPPORT)
from https_peer import HttpsPeer, make_certificates  # noqa: E402

TOKEN = "server-token-0123456789-abcdefghijklmno"
TITLE = "Confidential merger talks"
LINK = "https://zoom.us/j/987654321?pwd=closely-kept"
HEALTH = {"configured": True, "sources": {"uploaded": "ok"}, "delivery": "ok", "scheduler": True, "directSources": 0}


class OwnServer(SystemTest):
    @classmethod
    def setUpClass(cls):
        make_certificates(cls)

    def setUp(self):
        self.server = HttpsPeer(self.folder, "pinned")
        self.server.tell(body=json.dumps({"ok": True}))
        self.tell_state()

    def tell_state(self, **state):
        self.server.tell("/state", body=json.dumps({"events": [], "acknowledged": [], "health": HEALTH, **state}))

    def seed(self, desktop):
        """A keyring with the server's token, and the server's certificate where a user may put it."""
        start_keyring(desktop)
        store_secret(desktop, "server-token", TOKEN)
        data = os.path.join(desktop.env["XDG_DATA_HOME"], "Quorvane")
        os.makedirs(data)
        shutil.copy(os.path.join(self.folder, "pinned.cer"), os.path.join(data, "quorvane-server.cer"))

    def start(self, desktop, **environment):
        settings = {"serverURL": f"https://127.0.0.1:{self.server.log['port']}", "uploadMacSnapshot": "true"}
        return self.quorvane(desktop, seed=self.seed, settings=settings, in_terminal=True, **environment)

    def wait_request(self, wanted, seconds=20):
        """Waits for a request that contains these words; returns its body."""
        return wait_until(f"a request with {wanted}", lambda: next(
            (request.split(" ", 5)[-1] for request in self.server.log["requests"] if wanted in request), None), seconds)

    def test_the_server_is_told_and_nobody_else(self):
        desktop = MutterDesktop()  # where panels are windows, with a title
        program = self.start(desktop, QT_LOGGING_RULES="*=true;quorvane.alert.debug=true", QDBUS_DEBUG="1",
                             G_DBUS_DEBUG="all", G_MESSAGES_DEBUG="all", WAYLAND_DEBUG="1")
        self.wait_request("GET /state")
        event = self.meeting_soon(program, TITLE, location=LINK)
        uploaded = json.loads(self.wait_request(TITLE))
        self.assertEqual([meeting["id"] for meeting in uploaded["events"]], [event.meeting_id()])
        self.assert_alerts_on_time(program, event)
        self.assert_alert_on_every_display(desktop)
        desktop.press("Return")
        program.wait_acknowledged(event.meeting_id())
        self.assertEqual(json.loads(self.wait_request("POST /ack")), {"id": event.meeting_id()})

        terminal = program.process.pid
        with open(f"/proc/{terminal}/task/{terminal}/children", encoding="utf-8") as children:
            started = children.read().split()[0]
        with open(f"/proc/{started}/limits", encoding="utf-8") as limits:
            self.assertRegex(limits.read(), r"Max core file size +1 ")
        self.assertEqual(program.stop(), 0)
        for where, text in self.left_behind(desktop, program):
            for secret in (TOKEN, TITLE, LINK, "closely-kept"):
                self.assert_unknown(secret, text, where)

    def assert_unknown(self, secret, text, where):
        at = text.find(secret)
        self.assertEqual(at, -1, f"{where} has “{secret}”: {text[max(at - 300, 0):at + 100]!r}")

    def left_behind(self, desktop, program):
        """Everything that the program printed or may have written, but the calendar, which the test wrote."""
        for folder, _, names in os.walk(desktop.folder):
            for name in names:
                path = os.path.join(folder, name)
                if os.path.isfile(path) and not path.startswith(program.calendars):
                    with open(path, "rb") as file:
                        text = file.read().decode("utf-8", "replace")
                    yield path, text + re.sub(r"\0", "", text)

    def test_an_answer_given_on_the_phone_closes_the_alert(self):
        desktop = SwayDesktop(sizes=((1280, 720),))
        program = self.start(desktop)
        event = self.meeting_soon(program)
        self.assert_alerts_on_time(program, event)
        self.tell_state(acknowledged=[event.meeting_id()])
        program.add(Event("Another day", seconds_from_now(86400)))  # makes it read again
        program.wait_acknowledged(event.meeting_id(), 20)
        self.assert_no_alert_anywhere(desktop)


if __name__ == "__main__":
    main()
