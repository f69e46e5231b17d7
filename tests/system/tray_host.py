# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop's tray: it takes in the items that programs register on the session bus, and reads and clicks their menus
as panels do."""
from typing import NamedTuple

from gi.repository import Gio, GLib

from harness import wait_until

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"
WATCHER_PATH = "/StatusNotifierWatcher"

INTERFACE = f"""<node><interface name="{WATCHER}">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
<signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
<signal name="StatusNotifierHostRegistered"/></interface></node>"""


def turn():
    """Takes in what has come over the bus."""
    while GLib.MainContext.default().iteration(False):
        pass


class Entry(NamedTuple):
    """A line of the menu as a person reads it."""
    id: int
    text: str
    is_enabled: bool


def seen(label):
    """A label without what panels take for marks: single underscores, and characters without an image."""
    return label.replace("__", "\0").replace("_", "").replace("\0", "_").replace("\u2060", "")


class TrayHost:
    """`with TrayHost(desktop) as host:` is there from then to the end of it; `without_panel` only its watcher is,
    until `show_panel` is called."""

    def __init__(self, desktop, without_panel=False):
        self.desktop = desktop
        self.has_panel = not without_panel
        self.bus = None
        self.items = []
        self.questions = 0
        self.signals = []

    def __enter__(self):
        kind = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        address = self.desktop.env["DBUS_SESSION_BUS_ADDRESS"]
        self.bus = Gio.DBusConnection.new_for_address_sync(address, kind, None, None)
        node = Gio.DBusNodeInfo.new_for_xml(INTERFACE)
        self.bus.register_object(WATCHER_PATH, node.interfaces[0], self._call, self._property, None)
        Gio.bus_own_name_on_connection(self.bus, WATCHER, Gio.BusNameOwnerFlags.NONE, None, None)
        for interface in (ITEM, MENU):
            self.bus.signal_subscribe(None, interface, None, None, None, Gio.DBusSignalFlags.NONE, self._heard)
        return self

    def __exit__(self, *_):
        self.bus.close_sync(None)
        turn()

    def show_panel(self):
        self.has_panel = True
        self.bus.emit_signal(None, WATCHER_PATH, WATCHER, "StatusNotifierHostRegistered", None)

    def _call(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            service = arguments.unpack()[0]
            self.items.append((sender, service) if service.startswith("/") else (service, "/StatusNotifierItem"))
        invocation.return_value(None)

    def _property(self, _connection, _sender, _path, _interface, name):
        self.questions += 1
        return {"IsStatusNotifierHostRegistered": GLib.Variant("b", self.has_panel),
                "ProtocolVersion": GLib.Variant("i", 0),
                "RegisteredStatusNotifierItems": GLib.Variant("as", ["".join(item) for item in self.items])}[name]

    def _heard(self, _connection, _sender, _path, _interface, signal, _arguments):
        self.signals.append(signal)

    def wait_question(self):
        """Waits until it has answered a program that looks for a panel."""
        wait_until("a question for a panel", lambda: turn() or self.questions)

    def wait_item(self, seconds=10, number=1):
        """Waits for the first item, or the so manieth, and returns it."""
        def registered():
            turn()
            return len(self.items) >= number
        wait_until("an item in the tray", registered, seconds)
        return TrayItem(self, *self.items[number - 1])

    def call(self, service, path, interface, method, arguments, answer=None):
        result = self.bus.call_sync(service, path, interface, method, arguments,
                                    GLib.VariantType(answer) if answer else None, Gio.DBusCallFlags.NONE, 5000, None)
        return result.unpack()

    def send(self, service, path, interface, method, arguments):
        """Calls a program, which may end over it."""
        self.bus.call(service, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, -1, None, None)
        self.bus.flush_sync(None)

    def heard(self):
        """The names of the signals since the last call."""
        turn()
        heard, self.signals[:] = list(self.signals), []
        return heard


class TrayItem:
    def __init__(self, host, service, path):
        self.host = host
        self.service = service
        self.path = path

    def properties(self):
        return self._call(PROPERTIES, "GetAll", GLib.Variant("(s)", (ITEM,)), "(a{sv})")[0]

    def activate(self, token=None):
        """A click on the icon, on Wayland with a token for the window that it opens."""
        if token:
            self._call(ITEM, "ProvideXdgActivationToken", GLib.Variant("(s)", (token,)))
        self._call(ITEM, "Activate", GLib.Variant("(ii)", (1, 1)))

    def entries(self):
        """The menu from top to bottom, as when a person opens it; None stands for a separator."""
        self._menu("AboutToShow", GLib.Variant("(i)", (0,)))
        _, (_, _, children) = self._menu("GetLayout", GLib.Variant("(iias)", (0, -1, [])), "(u(ia{sv}av))")
        return [None if about.get("type") == "separator" else Entry(key, about["label"], about.get("enabled", True))
                for key, about, _ in children if about.get("visible", True)]

    def texts(self):
        return [entry and seen(entry.text) for entry in self.entries()]

    def click(self, text):
        entry = next(entry for entry in self.entries() if entry and seen(entry.text) == text)
        self.host.send(self.service, "/MenuBar", MENU, "Event",
                       GLib.Variant("(isvu)", (entry.id, "clicked", GLib.Variant("i", 0), 0)))

    def wait_text(self, text, seconds=10):
        wait_until(f"“{text}” in the menu", lambda: text in self.texts(), seconds)

    def _menu(self, method, arguments, answer=None):
        return self.host.call(self.service, "/MenuBar", MENU, method, arguments, answer)

    def _call(self, interface, method, arguments, answer=None):
        return self.host.call(self.service, self.path, interface, method, arguments, answer)
