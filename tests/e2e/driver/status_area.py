"""A status area of the desktop: takes in icons over D-Bus, and works their menus.

Run as a program (`python3 -m driver.status_area`), it is the desktop's side: it owns org.kde.StatusNotifierWatcher, with
a host registered, until it is ended. `StatusArea` starts that and asks it.
"""
import os
import subprocess
import sys

from gi.repository import Gio, GLib

from .waiting import until

WATCHER = "org.kde.StatusNotifierWatcher"
WATCHER_PATH = "/StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"
MENU = "com.canonical.dbusmenu"
PROPERTIES = "org.freedesktop.DBus.Properties"

WATCHER_XML = f"""
<node><interface name="{WATCHER}">
  <method name="RegisterStatusNotifierItem"><arg name="service" type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg name="service" type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>"""


class Watcher:
    """The desktop's side."""

    def __init__(self, connection):
        self._connection = connection
        self._items = []
        interface = Gio.DBusNodeInfo.new_for_xml(WATCHER_XML).interfaces[0]
        connection.register_object(WATCHER_PATH, interface, self._call, self._property, None)
        Gio.bus_own_name_on_connection(connection, WATCHER, Gio.BusNameOwnerFlags.NONE, self._named, None)

    def _named(self, *_):
        self._tell("StatusNotifierHostRegistered", None)
        print("ready", flush=True)

    def _call(self, _connection, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            service = arguments.unpack()[0]
            # Some name the object, some the connection.
            self._items.append(sender + service if service.startswith("/") else service + "/StatusNotifierItem")
            self._tell("StatusNotifierItemRegistered", GLib.Variant("(s)", (self._items[-1],)))
        invocation.return_value(None)

    def _property(self, _connection, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", self._items),
                "IsStatusNotifierHostRegistered": GLib.Variant("b", True),
                "ProtocolVersion": GLib.Variant("i", 0)}[name]

    def _tell(self, signal, arguments):
        self._connection.emit_signal(None, WATCHER_PATH, WATCHER, signal, arguments)


class StatusArea:
    """Starts a status area, and ends it: on the session bus, or on the bus of this address."""

    def __init__(self, address=None):
        address = address or os.environ["DBUS_SESSION_BUS_ADDRESS"]
        self._process = subprocess.Popen([sys.executable, "-m", "driver.status_area"], stdout=subprocess.PIPE, text=True,
                                         env={**os.environ, "DBUS_SESSION_BUS_ADDRESS": address})
        assert self._process.stdout.readline() == "ready\n", "the status area did not come up"
        # A connection of its own: the shared one would take this process with it when its bus dies.
        self._bus = Gio.DBusConnection.new_for_address_sync(
            address, Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)

    def _ask(self, name, path, interface, method, arguments, answer):
        return self._bus.call_sync(name, path, interface, method, arguments, GLib.VariantType(answer),
                                   Gio.DBusCallFlags.NONE, 10000, None).unpack()

    def _get(self, name, path, interface, key):
        return self._ask(name, path, PROPERTIES, "Get", GLib.Variant("(ss)", (interface, key)), "(v)")[0]

    def icons(self):
        """What registered here, each as connection and path."""
        texts = self._get(WATCHER, WATCHER_PATH, WATCHER, "RegisteredStatusNotifierItems")
        return [(text.partition("/")[0], "/" + text.partition("/")[2]) for text in texts]

    def wait_for_icon(self):
        return until(lambda: next(iter(self.icons()), None), "an icon in the status area")

    def title(self, icon):
        return self._get(*icon, ITEM, "Title")

    def icon_name(self, icon):
        """The name in the icon theme; empty where the program draws the icon itself."""
        return self._get(*icon, ITEM, "IconName")

    def has_picture(self, icon):
        return bool(self.icon_name(icon) or self._get(*icon, ITEM, "IconPixmap"))

    def _menu(self, icon):
        return icon[0], self._get(*icon, ITEM, "Menu")

    def _entries(self, icon):
        menu = self._menu(icon)
        _, layout = self._ask(*menu, MENU, "GetLayout", GLib.Variant("(iias)", (0, -1, [])), "(u(ia{sv}av))")
        return [(number, details) for number, details, _ in layout[2]]

    def labels(self, icon):
        """The menu's entries in order; None stands for a divider."""
        return [None if details.get("type") == "separator" else details["label"].replace("_", "")
                for _, details in self._entries(icon)]

    def choose(self, icon, label):
        number = next(number for number, details in self._entries(icon) if details.get("label", "").replace("_", "") == label)
        event = GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("i", 0), 0))
        self._ask(*self._menu(icon), MENU, "Event", event, "()")

    def end(self):
        self._process.terminate()
        self._process.wait()
        self._process.stdout.close()
        if not self._bus.is_closed():
            self._bus.close_sync()


if __name__ == "__main__":
    watcher = Watcher(Gio.bus_get_sync(Gio.BusType.SESSION))
    GLib.MainLoop().run()
