# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A program's windows as a screen reader gets them, over AT-SPI. One session per process: the library connects once.

Qt 6.4 joins the accessibility bus when a program starts, if org.a11y.Status says IsEnabled by then or
QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 is set; what is switched on later it does not notice. It never says that a control is
disabled, and calls labels focusable."""
import os
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

from harness import DesktopError, wait_until  # noqa: E402

LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
CONTROLS = {"push button", "toggle button", "check box", "radio button", "text", "password text", "combo box", "list item",
            "menu item", "page tab", "spin button", "slider", "link"}
DONE_TO = {"Press", "Toggle", "Increase", "Decrease", "ShowMenu"}


def start_accessibility(desktop):
    """Switches accessibility on in the desktop's session, as a desktop does for a person who needs it."""
    desktop.env.pop("NO_AT_BRIDGE", None)
    launcher = desktop.start("accessibility", [LAUNCHER, "--launch-immediately", "--a11y=1"])
    kind = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    bus = Gio.DBusConnection.new_for_address_sync(desktop.env["DBUS_SESSION_BUS_ADDRESS"], kind, None, None)

    def answers():
        try:
            return bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                 Gio.DBusCallFlags.NO_AUTO_START, 5000, None)
        except GLib.Error:
            return None
    wait_until("starting the accessibility bus", answers, process=launcher, log=desktop.log("accessibility"))
    for name in ("DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY"):
        if name in desktop.env:
            os.environ[name] = desktop.env[name]
    os.environ.pop("AT_SPI_BUS_ADDRESS", None)
    Atspi.init()


class Control:
    """One object of the tree, as it was when it was looked at."""

    def __init__(self, accessible, path):
        self.accessible = accessible
        self.path = path
        self.role = accessible.get_role_name()
        self.name = accessible.get_name() or ""
        self.description = accessible.get_description() or ""
        states = accessible.get_state_set()
        self.is_showing = states.contains(Atspi.StateType.VISIBLE)
        self.has_focus = states.contains(Atspi.StateType.FOCUSED)
        self.is_checked = states.contains(Atspi.StateType.CHECKED)
        self.actions = [accessible.get_action_name(index) for index in range(accessible.get_n_actions())]

    @property
    def is_control(self):
        """Whether a person can do something with it."""
        return self.role in CONTROLS or not DONE_TO.isdisjoint(self.actions)

    def press(self):
        for wanted in ("Press", "Toggle"):
            if wanted in self.actions:
                self.accessible.do_action(self.actions.index(wanted))
                return
        raise DesktopError(f"{self} cannot be pressed")

    @property
    def text(self):
        """What is written in it, for a field."""
        interface = self.accessible.get_text_iface()
        return Atspi.Text.get_text(interface, 0, -1) if interface else ""

    @property
    def middle(self):
        """Where a pointer meets it, in pixels of the screen."""
        box = self.accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
        return box.x + box.width // 2, box.y + box.height // 2

    def takes_focus(self):
        """Whether it gets the keyboard when it is asked to take it, which a disabled control does not."""
        self.accessible.get_component_iface().grab_focus()
        time.sleep(0.1)
        return self.accessible.get_state_set().contains(Atspi.StateType.FOCUSED)

    def __str__(self):
        return f"{self.role} “{self.name}” ({'/'.join(map(str, self.path))})"


class ScreenReader:
    """Looks at the windows of the program whose process has this id."""

    def __init__(self, pid):
        self.pid = pid
        self.application = wait_until("the program on the accessibility bus", self._application, 20)
        self.application.set_cache_mask(Atspi.Cache.NONE)

    def _application(self):
        desktop = Atspi.get_desktop(0)
        found = (desktop.get_child_at_index(index) for index in range(desktop.get_child_count()))
        return next((application for application in found if application and application.get_process_id() == self.pid), None)

    def objects(self):
        """All objects on screen, from the outermost inwards."""
        return list(self._below(self.application, ()))

    def _below(self, accessible, path):
        for index in range(accessible.get_child_count()):
            try:
                child = accessible.get_child_at_index(index)
                seen = Control(child, (*path, index)) if child else None
                if seen and seen.is_showing:
                    yield seen
                    yield from self._below(child, seen.path)
            except GLib.Error:
                continue  # it has left while it was looked at
    def controls(self):
        return [seen for seen in self.objects() if seen.is_control]

    def find(self, name, role=None, exactly=True, seconds=10):
        """The control of this name, or whose name begins so, once it is there."""
        def found():
            return next((seen for seen in self.controls() if role in (None, seen.role) and (
                seen.name == name if exactly else seen.name.startswith(name))), None)
        return wait_until(f"a control named {name}", found, seconds)

    def focused(self):
        """The innermost object that has the keyboard; None while there is none."""
        return next((seen for seen in reversed(self.objects()) if seen.has_focus), None)
