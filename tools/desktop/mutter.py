# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Headless mutter, GNOME's compositor: Wayland without layer-shell, two monitors."""
import glob
import os
import re
import time

from .output import Output, capture_each, row
from .processes import DesktopError, wait_until
from .session import Session

SIZES = ((1280, 720), (1024, 768))
KEYS = {"Return": 0xFF0D, "Escape": 0xFF1B, "Tab": 0xFF09, "space": 0x20, "Control_L": 0xFFE3}
REMOTE = "org.gnome.Mutter.RemoteDesktop"
CAST = "org.gnome.Mutter.ScreenCast"


class MutterControls:
    """Keys and pictures of the mutter session that `env` names."""

    def connect(self):
        import gi
        gi.require_version("Gio", "2.0")
        from gi.repository import Gio, GLib
        self.glib = GLib
        flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
        self.context = GLib.MainContext.new()  # signals arrive here, and only while it is iterated
        self.context.push_thread_default()
        self.bus = Gio.DBusConnection.new_for_address_sync(self.env["DBUS_SESSION_BUS_ADDRESS"], flags, None, None)
        self.context.pop_thread_default()
        self.remote = None

    def call(self, name, path, interface, method, arguments=None):
        return self.bus.call_sync(name, path, interface, method, arguments, None, 0, 10000, None).unpack()

    def press(self, *keys):
        if self.remote is None:
            self._open_keyboard()
        for key in keys:
            for down in (True, False):
                self._key(key, down)
                time.sleep(0.03)

    def click(self, x, y):
        raise DesktopError("the mutter desktop has no pointer; press keys instead")

    def screenshot(self, folder, prefix="display-"):
        return capture_each(self.outputs, folder, prefix, lambda output, path: self._capture(output.name, path))

    def read_outputs(self):
        _, _, logical, _ = self.call("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig",
                                     "org.gnome.Mutter.DisplayConfig", "GetCurrentState")[:4]
        modes = self._current_modes()
        return sorted((Output(monitors[0][0], *modes[monitors[0][0]], x, y) for x, y, _, _, _, monitors, _ in logical),
                      key=lambda output: output.x)

    def _current_modes(self):
        monitors = self.call("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig",
                             "org.gnome.Mutter.DisplayConfig", "GetCurrentState")[1]
        return {monitor[0][0]: next((mode[1], mode[2]) for mode in monitor[1] if mode[6].get("is-current"))
                for monitor in monitors}

    def _open_keyboard(self):
        self.remote = self.call(REMOTE, "/org/gnome/Mutter/RemoteDesktop", REMOTE, "CreateSession")[0]
        self.call(REMOTE, self.remote, f"{REMOTE}.Session", "Start")
        time.sleep(0.3)
        for down in (True, False):  # the first key of a session only makes its keyboard
            self._key("Control_L", down)
        time.sleep(1.2)

    def _key(self, key, down):
        if key not in KEYS:
            raise DesktopError(f"the mutter desktop knows no key {key}")
        self.call(REMOTE, self.remote, f"{REMOTE}.Session", "NotifyKeyboardKeysym",
                  self.glib.Variant("(ub)", (KEYS[key], down)))

    def _capture(self, monitor, path):
        """One frame of a monitor, by its screen cast."""
        session = self.call(CAST, "/org/gnome/Mutter/ScreenCast", CAST, "CreateSession",
                            self.glib.Variant("(a{sv})", ({},)))[0]
        options = {"cursor-mode": self.glib.Variant("u", 0)}
        stream = self.call(CAST, session, f"{CAST}.Session", "RecordMonitor",
                           self.glib.Variant("(sa{sv})", (monitor, options)))[0]
        nodes = []
        self.context.push_thread_default()
        signal = self.bus.signal_subscribe(CAST, f"{CAST}.Stream", "PipeWireStreamAdded", stream, None, 0,
                                           lambda *arguments: nodes.append(arguments[5].unpack()[0]))
        self.context.pop_thread_default()
        try:
            self.call(CAST, session, f"{CAST}.Session", "Start")
            wait_until(f"the screen cast of {monitor}", lambda: self.context.iteration(False) or nodes, 5)
            wait_until(f"the stream of {monitor}", lambda: nodes or not self.context.iteration(False) and nodes, 5)
            self.run("gst-launch-1.0", "-q", "pipewiresrc", f"path={nodes[0]}", "num-buffers=1", "!", "videoconvert",
                     "!", "pngenc", "!", "filesink", f"location={path}", timeout=10)
        finally:
            self.bus.signal_unsubscribe(signal)
            self.call(CAST, session, f"{CAST}.Session", "Stop")


class MutterDesktop(MutterControls, Session):
    kind = "mutter"
    x11 = False

    def __init__(self, sizes=SIZES, **options):
        super().__init__(**options)
        self.sizes = sizes

    def start_display(self):
        self.env["GSETTINGS_BACKEND"] = "memory"
        argv = ["mutter", "--headless", "--wayland", "--wayland-display", "wayland-mutter"]
        argv += [] if self.x11 else ["--no-x11"]
        for width, height in self.sizes:
            argv += ["--virtual-monitor", f"{width}x{height}"]
        self.start("pipewire", ["pipewire"])
        self.start("wireplumber", ["wireplumber"])
        mutter = self.start("mutter", argv)
        self.env.update(WAYLAND_DISPLAY="wayland-mutter", QT_QPA_PLATFORM="wayland", XDG_SESSION_TYPE="wayland",
                        XDG_CURRENT_DESKTOP="GNOME")
        socket = os.path.join(self.env["XDG_RUNTIME_DIR"], "wayland-mutter")
        wait_until("starting mutter", lambda: os.path.exists(socket), 15, mutter, self.log("mutter"))
        self.connect()
        wanted = row(self.sizes, "Meta-{}", 0)
        wait_until("setting up mutter's monitors", lambda: self._shows(wanted), 10, mutter, self.log("mutter"))
        self.outputs = wanted
        self._open_keyboard()

    def _shows(self, wanted):
        try:
            return self.read_outputs() == wanted
        except self.glib.Error:
            return False


class MutterX11Desktop(MutterDesktop):
    """The same with Xwayland, as GNOME sessions have it."""

    x11 = True

    def start_display(self):
        super().start_display()
        with open(self.log("mutter"), encoding="utf-8", errors="replace") as log:
            self.env["DISPLAY"] = re.search(r"public X11 display (:\d+)", log.read())[1]
        self.env["XAUTHORITY"], = glob.glob(os.path.join(self.env["XDG_RUNTIME_DIR"], ".mutter-Xwaylandauth.*"))
