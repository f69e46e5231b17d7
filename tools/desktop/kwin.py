# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Headless KWin, KDE's compositor: Wayland with layer-shell, three outputs of one size. It is installed by
`./dev deps kwin`."""
import os
import re
import shutil
import socket
import struct
import time

from .output import Output, capture_each, row
from .processes import DesktopError, wait_until
from .session import Session

SIZE = (1280, 720)
COUNT = 3
# Codes of the kernel's input-event-codes.h.
KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "space": 57, "F4": 62, "alt": 56}
LEFT_BUTTON = 0x110
NAME = "org.kde.KWin"


class FakeInput:
    """A client of KWin's protocol org_kde_kwin_fake_input, in Wayland's wire format."""

    DISPLAY, REGISTRY, CALLBACK, INPUT = 1, 2, 3, 4
    AUTHENTICATE, BUTTON, MOVE, KEY = 0, 2, 9, 10

    def __init__(self, path):
        self.socket = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
        self.socket.settimeout(10)
        self.socket.connect(path)
        self._send(self.DISPLAY, 1, struct.pack("=I", self.REGISTRY))
        self._send(self.DISPLAY, 0, struct.pack("=I", self.CALLBACK))
        number = self._global("org_kde_kwin_fake_input")
        self._send(self.REGISTRY, 0, struct.pack("=I", number) + self._text("org_kde_kwin_fake_input") +
                   struct.pack("=II", 4, self.INPUT))
        self._send(self.INPUT, self.AUTHENTICATE, self._text("test") + self._text("test"))

    def key(self, code, down):
        self._send(self.INPUT, self.KEY, struct.pack("=II", code, down))

    def move(self, x, y):
        self._send(self.INPUT, self.MOVE, struct.pack("=ii", x * 256, y * 256))

    def button(self, down):
        self._send(self.INPUT, self.BUTTON, struct.pack("=II", LEFT_BUTTON, down))

    def _global(self, interface):
        """The number of a global, from the events up to the answer to our sync."""
        found = None
        while True:
            target, event, body = self._receive()
            if target == self.CALLBACK:
                break
            if target == self.REGISTRY and event == 0:
                number, length = struct.unpack_from("=II", body)
                if body[8:8 + length - 1].decode() == interface:
                    found = number
        if found is None:
            raise DesktopError(f"KWin does not offer {interface}")
        return found

    def _receive(self):
        target, word = struct.unpack("=II", self._exactly(8))
        return target, word & 0xFFFF, self._exactly((word >> 16) - 8)

    def _exactly(self, count):
        data = b""
        while len(data) < count:
            data += self.socket.recv(count - len(data)) or self._ended()
        return data

    @staticmethod
    def _ended():
        raise DesktopError("KWin has closed the connection")

    def _send(self, target, request, body):
        self.socket.sendall(struct.pack("=II", target, (8 + len(body)) << 16 | request) + body)

    @staticmethod
    def _text(text):
        data = text.encode() + b"\0"
        return struct.pack("=I", len(data)) + data + b"\0" * (-len(data) % 4)


class KwinControls:
    """Keys, clicks and pictures of the KWin session that `env` names."""

    def connect(self):
        import gi
        gi.require_version("Gio", "2.0")
        from gi.repository import Gio, GLib
        self.gio, self.glib = Gio, GLib
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.bus = Gio.DBusConnection.new_for_address_sync(self.env["DBUS_SESSION_BUS_ADDRESS"], flags, None, None)
        self.input = None

    def press(self, *keys):
        """Presses keys; "alt+F4" is both at once."""
        hands = self._hands()
        for key in keys:
            codes = [self._code(name) for name in key.split("+")]
            for code in codes:
                hands.key(code, True)
            time.sleep(0.03)
            for code in reversed(codes):
                hands.key(code, False)
            time.sleep(0.03)

    def click(self, x, y):
        """A left click at a position of the whole desktop."""
        hands = self._hands()
        hands.move(x, y)
        for down in (True, False):
            time.sleep(0.05)
            hands.button(down)

    def screenshot(self, folder, prefix="display-"):
        return capture_each(self.outputs, folder, prefix, lambda output, path: self._capture(output.name, path))

    def read_outputs(self):
        told = self.bus.call_sync(NAME, "/KWin", NAME, "supportInformation", None, None, 0, 10000,
                                  None).unpack()[0]
        screens = re.findall(r"Name: (\S+)\nEnabled: 1\n(?:.*\n)*?Geometry: (-?\d+),(-?\d+),(\d+)x(\d+)", told)
        return sorted((Output(name, int(width), int(height), int(x), int(y)) for name, x, y, width, height in screens),
                      key=lambda output: output.x)

    def _hands(self):
        if self.input is None:
            display = self.env["WAYLAND_DISPLAY"]
            self.input = FakeInput(os.path.join(self.env["XDG_RUNTIME_DIR"], display))
            time.sleep(0.3)
        return self.input

    @staticmethod
    def _code(key):
        if key not in KEYS:
            raise DesktopError(f"the KWin desktop knows no key {key}")
        return KEYS[key]

    def _capture(self, screen, path):
        raw = path + ".raw"
        with open(raw, "w+b") as file:
            handles = self.gio.UnixFDList.new()
            handles.append(file.fileno())
            arguments = self.glib.Variant("(sa{sv}h)", (screen, {}, 0))
            answer, _ = self.bus.call_with_unix_fd_list_sync(
                NAME, "/org/kde/KWin/ScreenShot2", NAME + ".ScreenShot2", "CaptureScreen", arguments, None, 0, 10000,
                handles, None)
            found = answer.unpack()[0]
            size = found["stride"] * found["height"]
            wait_until(f"the picture of {screen}", lambda: os.fstat(file.fileno()).st_size >= size, 10)
        self.run("convert", "-size", f"{found['stride'] // 4}x{found['height']}", "-depth", "8", f"BGRA:{raw}",
                 "-alpha", "off", path)
        os.unlink(raw)


class KwinDesktop(KwinControls, Session):
    kind = "kwin"

    def __init__(self, sizes=(SIZE,) * COUNT, **options):
        super().__init__(**options)
        self.sizes = sizes

    def start_display(self):
        installed = shutil.which("kwin_wayland")
        if installed is None:
            raise DesktopError("kwin_wayland is not installed (./dev deps kwin installs it)")
        # A copy has not the rights that the installed file brings, and that a container does not grant.
        program = shutil.copy(installed, os.path.join(self.folder, "kwin_wayland"))
        width, height = self.sizes[0]
        self.env.update(KWIN_SCREENSHOT_NO_PERMISSION_CHECKS="1", KWIN_WAYLAND_NO_PERMISSION_CHECKS="1")
        kwin = self.start("kwin", [program, "--virtual", "--output-count", str(len(self.sizes)), "--width", str(width),
                                   "--height", str(height), "--no-lockscreen", "--socket", "wayland-kwin"])
        self.env.update(WAYLAND_DISPLAY="wayland-kwin", QT_QPA_PLATFORM="wayland", XDG_SESSION_TYPE="wayland",
                        XDG_CURRENT_DESKTOP="KDE")
        self.connect()
        wanted = [output.geometry for output in row(self.sizes, "{}", 0)]
        wait_until("starting KWin", lambda: self._shows(wanted), 30, kwin, self.log("kwin"))
        self.outputs = self.read_outputs()
        self._hands()

    def _shows(self, wanted):
        try:
            return [output.geometry for output in self.read_outputs()] == wanted
        except self.glib.Error:
            return False
