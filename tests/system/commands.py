#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The command line: what a script sees of it, with a real keyring and a server of the user's own."""
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import sysconfig
import time

from command_line import UNKNOWN, CommandTest, install_tree
from harness import Event, main, seconds_from_now, start_keyring
from desktop import ROOT, binary

SUPPORT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../support")
sys.path.insert(0, SUPPORT)
from https_peer import HttpsPeer, make_certificates  # noqa: E402

PLUGINS = f"/usr/lib/{sysconfig.get_config_var('MULTIARCH')}/qt6/plugins"
ENTRY = "autostart/me.tarnel.Quorvane.desktop"
TOKEN = "server-token-0123456789-abcdefghijklmno"
FAILED = "Connection verification failed. No credentials or calendar content were logged.\n"
HEALTH = {"configured": True, "sources": {}, "delivery": "ok", "scheduler": True, "directSources": 0}


class Arguments(CommandTest):
    def test_what_is_no_command_is_refused_at_once(self):
        for arguments in (["--bogus"], ["--help"], ["--version"], ["--preveiw"], ["--Preview"], ["--"], ["x", "--y"],
                          ["--render-preview"], ["--set-secret"], ["--preview", "--nothing"]):
            with self.subTest(arguments):
                self.assertEqual(self.command(*arguments), (64, UNKNOWN))
        self.assertEqual(self.files(), [])
        begin = time.monotonic()
        self.command("--bogus")
        self.assertLess(time.monotonic() - begin, 5)

    def test_options_of_the_application_are_no_commands(self):
        for arguments in (["--preview"], ["--preview-overlay"], ["--preview", "-x", "file"]):
            status, said = self.command(*arguments)
            self.assertEqual((status, said), (1, "Quorvane needs a display: start it inside a graphical session.\n"))

    def test_the_first_command_of_the_list_wins_wherever_it_stands(self):
        self.assertEqual(self.command("--bogus", "--calendar-status", "--set-secret", "nobody"), (2, ""))
        self.assertEqual(self.command("--enable-login", "--disable-login-service")[1],
                         "Duplicate login registration removed; the Quorvane launch agent remains active.\n")
        self.assertEqual(self.files(), [])

    def test_a_surrounding_that_lacks_everything_changes_nothing(self):
        lacking = {"without": ("XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS", "LANG")}
        self.assertEqual(self.command("--set-secret", "pushover-user", given=b"x", **lacking), (1, ""))
        self.assertEqual(self.command("--sync-now", **lacking)[0], 6)
        shut = ("sh", "-c", 'exec "$@" <&- >&- 2>&-', "shut")
        self.assertEqual(self.command("--bogus", wrapper=shut), (64, ""))
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.command("--bogus", stdout=full), (64, None))
        reader, writer = os.pipe()
        os.close(reader)
        self.assertEqual(self.command("--bogus", stdout=writer), (64, None))
        os.close(writer)

    def test_previews_that_cannot_be_written(self):
        self.put(self.path("data", "file"))
        self.assertEqual(self.command("--render-preview", self.path("data", "file", "below")),
                         (9, "Preview rendering failed: Quorvane.PreviewError\n"))
        self.assertEqual(self.command("--render-preview", os.fsencode(self.path("data", "caf")) + b"\xe9"),
                         (9, "Preview rendering failed: Quorvane.PreviewError\n"))
        self.assertEqual(os.listdir(self.path("data")), ["file"])


class Login(CommandTest):
    def test_the_login_entry_comes_and_goes(self):
        self.assertEqual(self.command("--enable-login"), (0, "Start at login registered.\n"))
        self.assertEqual(self.files(), [ENTRY])
        executable = re.escape(os.path.realpath(binary()))
        with open(self.path("config", ENTRY), encoding="utf-8") as file:
            self.assertRegex(file.read(), rf'\nExec=env QUORVANE_START=login "{executable}"\n')
        removed = "Duplicate login registration removed; the Quorvane launch agent remains active.\n"
        for _ in range(2):
            self.assertEqual(self.command("--disable-login-service"), (0, removed))
            self.assertEqual(self.files(), [])

    def test_the_agent_needs_no_login_entry(self):
        unit = "systemd/user/me.tarnel.quorvane-app.service"
        self.put(self.path("config", unit), "[Service]\nExecStart=quorvane\n")
        system = os.path.join(self.session.home, "system")
        self.session.env["XDG_CONFIG_DIRS"] = system
        self.put(os.path.join(system, ENTRY), "[Desktop Entry]\n")
        for hide in (False, True):
            if hide:
                self.assertEqual(self.command("--disable-login-service")[0], 0)
                self.assertEqual(self.files(), [ENTRY, unit])
            self.assertEqual(self.command("--enable-login"),
                             (0, "Start at login and crash restart are already configured.\n"))
            self.assertEqual(self.files(), [unit])
        self.put(self.path("config", ENTRY), "[Desktop Entry]\nHidden=true\n")
        self.assertEqual(self.command("--enable-login")[0], 0)
        self.assertEqual(self.files(), [ENTRY, unit], "somebody else's entry is gone")

    def test_the_entry_of_a_copy_that_updates_itself_stays_good(self):
        root = os.path.join(self.session.home, "Quorvane")
        install_tree(os.path.join(root, "versions", "7"))
        os.symlink("versions/7", os.path.join(root, "current"))
        for start in ("versions/7/bin/quorvane", "current/bin/quorvane"):
            self.assertEqual(self.command("--enable-login", program=os.path.join(root, start))[0], 0)
            with open(self.path("config", ENTRY), encoding="utf-8") as file:
                self.assertIn(f'\nExec=env QUORVANE_START=login "{root}/current/bin/quorvane"\n', file.read())

    def test_an_entry_that_cannot_be_changed(self):
        os.makedirs(self.path("config", ENTRY, "in the way"))
        self.assertEqual(self.command("--disable-login-service"), (8, "Login registration could not be removed.\n"))
        shutil.rmtree(self.path("config", "autostart"))
        self.put(self.path("config", "autostart"))
        self.assertEqual(self.command("--enable-login"),
                         (8, "Start at login requires approval in System Settings.\n"))


class SelfTest(CommandTest):
    """Copies of the installed tree, each with one thing amiss."""
    INFORMATION = "share/Quorvane/info.json"
    UNPACKER = "libexec/quorvane/update-unpacker/update-unpacker"
    QT = "bin/qt.conf"  # where Qt looks for what belongs to it
    READER = "libexec/quorvane/calendar-reader/calendar-reader"

    def setUp(self):
        super().setUp()
        self.tree = os.path.join(self.session.home, "tree")
        install_tree(self.tree)
        self.running = sorted(os.listdir(self.session.env["XDG_RUNTIME_DIR"]))

    def examine(self, **options):
        process = self.start("--self-test", program=os.path.join(self.tree, "bin/quorvane"), **options)
        return self.outcome(process)

    def spoil(self, path, text=None):
        """Replaces a file of the tree by a script or text, or removes it."""
        path = os.path.join(self.tree, path)
        if os.path.exists(path):
            os.remove(path)
        if text is not None:
            self.put(path, text)
            os.chmod(path, 0o755)

    def test_what_works_is_told_of_and_leaves_nothing(self):
        with open(os.path.join(self.tree, self.INFORMATION), encoding="utf-8") as file:
            told = json.load(file)
        version = f"Quorvane {told['CFBundleShortVersionString']} ({told['CFBundleVersion']})"
        begin = time.monotonic()
        self.assertEqual(self.examine(), (0, f"{version} works on this machine.\n"))
        self.assertLess(time.monotonic() - begin, 20)
        self.assertEqual(self.files(), [])
        self.assertEqual(os.listdir(self.session.env["XDG_CACHE_HOME"]), [])
        self.assertEqual(sorted(os.listdir(self.session.env["XDG_RUNTIME_DIR"])), self.running)

    def test_what_is_missing_is_named(self):
        for path, text, sentence in (
                (self.INFORMATION, None, "The file info.json, which says what version this is, is missing or damaged."),
                (self.INFORMATION, '{"CFBundleVersion": "1"}',
                 "The file info.json, which says what version this is, is missing or damaged."),
                (self.READER, None, "The calendar reader is missing."),
                (self.READER, "#!/bin/sh\nexit 1\n", "The calendar reader does not work on this machine."),
                (self.UNPACKER, None, "The program that unpacks updates is missing."),
                (self.UNPACKER, "#!/bin/sh\nexit 127\n", "The program that unpacks updates does not work on this machine."),
                (self.QT, f"[Paths]\nPlugins={PLUGINS}\nQml2Imports={self.tree}\n",
                 "The alert cannot be drawn: a part of Qt Quick is missing.")):
            with self.subTest(path=path, text=text):
                kept = os.path.join(self.session.home, "kept")
                whole = os.path.join(self.tree, path)
                if os.path.exists(whole):
                    os.link(whole, kept)
                self.spoil(path, text)
                self.assertEqual(self.examine(), (10, f"{sentence}\n"))
                self.spoil(path)
                if os.path.exists(kept):
                    os.rename(kept, whole)

    def test_a_crash_is_told_of(self):
        self.spoil(self.QT, f"[Paths]\nPlugins={self.tree}\n")
        self.assertEqual(self.examine(),
                         (10, "This version of Quorvane crashes or hangs on this machine.\n"))


class KeyringTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.keyring = start_keyring(self.session)

    def tool(self, what, account, given=b""):
        """What another program finds in the keyring; None when it fails."""
        label = ["--label=x"] if what == "store" else []
        done = subprocess.run(["secret-tool", what, *label, "service", "me.tarnel.Quorvane", "account", account],
                              env=self.session.env, input=given, capture_output=True, check=False)
        return done.stdout if done.returncode == 0 else None


class Secret(KeyringTest):
    def test_what_comes_in_is_stored(self):
        for given, kept in ((b"abc\n", b"abc"), (b" \t\r\n\xc2\xa0two words\xe2\x80\xa8\n", b"two words"),
                            ("pässwörd".encode(), "pässwörd".encode()), (b"", b""),
                            (b"\xffabc", b""), (b"abc\xc3", b"")):
            with self.subTest(given):
                self.tool("store", "server-token", b"before")
                self.assertEqual(self.command("--set-secret", "server-token", given=given), (0, ""))
                self.assertEqual(self.tool("lookup", "server-token"), kept)
        for account in ("pushover-user", "pushover-token"):
            self.assertEqual(self.command("--set-secret", account, "--bogus", given=account.encode()), (0, ""))
            self.assertEqual(self.tool("lookup", account), account.encode())
        self.assertEqual(self.files(), [])

    def test_an_unknown_account_leaves_the_input_unread(self):
        for account in ("manual-meetings", "Server-Token", "", "--sync-now"):
            reader, writer = os.pipe()
            os.write(writer, b"kept")
            self.assertEqual(self.command("--set-secret", account, stdin=reader), (2, ""))
            self.assertEqual(os.read(reader, 9), b"kept")
            os.close(reader)
            os.close(writer)

    def test_what_cannot_be_read_or_stored_costs_nothing(self):
        self.tool("store", "server-token", b"before")
        shut = ("sh", "-c", 'exec "$@" <&-', "shut")
        self.assertEqual(self.command("--set-secret", "server-token", wrapper=shut), (1, ""))
        with open("/dev/zero", "rb") as endless:
            self.assertEqual(self.command("--set-secret", "server-token", stdin=endless), (1, ""))
        self.keyring.send_signal(signal.SIGSTOP)
        begin = time.monotonic()
        self.assertEqual(self.command("--set-secret", "server-token", given=b"after"), (1, ""))
        self.assertLess(time.monotonic() - begin, 20)
        self.keyring.send_signal(signal.SIGCONT)
        self.assertEqual(self.tool("lookup", "server-token"), b"before")


class Connections(KeyringTest):
    @classmethod
    def setUpClass(cls):
        make_certificates(cls)

    def setUp(self):
        super().setUp()
        self.server = HttpsPeer(self.folder, "pinned")
        self.server.tell(body=json.dumps({"ok": True}))
        self.tell_health()
        self.tool("store", "server-token", TOKEN.encode())
        os.makedirs(self.path("data", "Quorvane"))
        shutil.copy(os.path.join(self.folder, "pinned.cer"), self.path("data", "Quorvane", "quorvane-server.cer"))
        self.video = Event("Video", seconds_from_now(3600))
        self.silenced = Event("Silenced video", seconds_from_now(7200))
        self.wanted = Event("Wanted visit", seconds_from_now(10800), location="Room 4")
        self.visit = Event("Visit", seconds_from_now(14400), location="Room 4")
        self.write_cache(self.video, self.silenced, self.wanted, self.visit)
        self.settings = {"serverURL": f"https://127.0.0.1:{self.server.log['port']}",
                         "fantasticalFolderBookmark": self.session.home,
                         "meetingChoices": json.dumps(json.dumps({self.silenced.meeting_id(): False,
                                                                  self.wanted.meeting_id(): True}))}
        self.configure(**self.settings)
        self.before = self.files()

    def write_cache(self, *events):
        source = os.path.join(self.session.home, "Work.ics")
        lines = ["BEGIN:VCALENDAR", "VERSION:2.0"] + [line for event in events for line in event.vevents()]
        self.put(source, "\r\n".join([*lines, "END:VCALENDAR"]) + "\r\n")
        cache = os.path.join(self.session.home, "Fantastical-8.fcdata")
        subprocess.run([sys.executable, os.path.join(ROOT, "tools/make-calendar-cache"), cache, source], check=True)

    def tell_health(self, **health):
        events = [self.meeting("one", 0), self.meeting("two", 60)]
        self.server.tell("/state", body=json.dumps({"events": events, "acknowledged": [],
                                                    "health": {**HEALTH, **health}}))

    @staticmethod
    def meeting(title, start, source="mac", link=None):
        link = {"joinURL": link} if link else {}
        return {"id": title, "title": title, "start": start, "end": start + 1800, "calendar": "C", "source": source,
                "cancelled": False, "allDay": False, **link}

    def test_both_sides_are_told_of_in_counts(self):
        seen = "Fantastical: 4 timed occurrences, 0 skipped records.\nServer: 2 events, scheduler {}, Pushover {}\n"
        for health, words, status in (({}, ("running", "configured"), 0),
                                      ({"scheduler": False}, ("stopped", "configured"), 7),
                                      ({"configured": False}, ("running", "missing"), 7)):
            self.tell_health(**health)
            self.assertEqual(self.command("--verify-connections"), (status, seen.format(*words)))
        self.assertFalse([request for request in self.server.log["requests"] if "POST" in request])
        self.assertEqual(self.files(), self.before)

    def test_the_schedule_is_what_may_alert_once(self):
        twice = self.meeting("video ", self.video.start, "manual", self.video.location)
        added = self.meeting("Added", self.video.start + 60, "manual")
        self.tool("store", "manual-meetings", json.dumps([twice, added]).encode())
        self.assertEqual(self.command("--verify-connections", "--sync-now"),
                         (0, "Fantastical: 4 timed occurrences, 0 skipped records.\n"
                             "Alert schedule: 3 selected meetings synced.\n"
                             "Server: 2 events, scheduler running, Pushover configured\n"))
        body = next(request for request in self.server.log["requests"] if "POST /snapshot" in request).split(" ", 5)[-1]
        self.assertEqual([meeting["id"] for meeting in json.loads(body)["events"]],
                         [self.video.meeting_id(), self.wanted.meeting_id(), "Added"])
        self.assertEqual(self.files(), self.before)

    def test_every_failure_has_its_line(self):
        read = "Fantastical: 4 timed occurrences, 0 skipped records.\n"
        self.server.tell("/snapshot", body=json.dumps({"ok": False}))
        self.assertEqual(self.command("--sync-now"), (6, read + FAILED))
        self.server.tell("/state", status=500)
        self.assertEqual(self.command("--verify-connections"), (6, read + FAILED))
        self.tool("store", "server-token", b"too short")
        self.assertEqual(self.command("--verify-connections"), (6, read + FAILED))
        cache = os.path.join(self.session.home, "Fantastical-8.fcdata")
        self.put(cache, "no database at all")
        self.assertEqual(self.command("--sync-now"),
                         (6, "Fantastical’s calendar format changed. Connect Apple Calendar.\n"))
        os.remove(cache)
        self.assertEqual(self.command("--verify-connections"),
                         (6, "Fantastical’s calendar cache cannot be opened. Check Quorvane’s access in macOS "
                             "Privacy & Security, then refresh.\n"))
        alone = shutil.copy(binary(), os.path.join(self.session.home, "quorvane"))
        process = subprocess.Popen([alone, "--verify-connections"], env=self.session.env, stdout=subprocess.PIPE,
                                   stderr=subprocess.PIPE)
        self.assertEqual(self.outcome(process),
                         (6, "Calendar reader is missing. Reinstall Quorvane or connect Apple Calendar.\n"))


if __name__ == "__main__":
    main()
