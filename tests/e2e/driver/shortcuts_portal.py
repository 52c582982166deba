"""The desktop's portal for global shortcuts, and the person who answers its question.

Run as a program (`python3 shortcuts_portal.py agrees|declines|thinks|silent`), it is the portal until it is ended; the session
bus may start it. `ShortcutsPortal` lets the bus do so, and asks it what was asked of it.
"""
import os
import sys
from pathlib import Path

from gi.repository import Gio, GLib

NAME = "org.freedesktop.portal.Desktop"
ROOT = "/org/freedesktop/portal/desktop"
SHORTCUTS = "org.freedesktop.portal.GlobalShortcuts"
REQUEST = "org.freedesktop.portal.Request"
TEST = "app.Quillstacks.Test"
ANSWERS = {"agrees": 0, "declines": 1}
SILENT = "silent"  # the portal itself, which hangs

XML = f"""
<node>
  <interface name="{SHORTCUTS}">
    <method name="CreateSession"><arg type="a{{sv}}" direction="in"/><arg type="o" direction="out"/></method>
    <method name="BindShortcuts">
      <arg type="o" direction="in"/><arg type="a(sa{{sv}})" direction="in"/><arg type="s" direction="in"/>
      <arg type="a{{sv}}" direction="in"/><arg type="o" direction="out"/>
    </method>
    <signal name="Activated"><arg type="o"/><arg type="s"/><arg type="t"/><arg type="a{{sv}}"/></signal>
    <property name="version" type="u" access="read"/>
  </interface>
  <interface name="org.freedesktop.host.portal.Registry">
    <method name="Register"><arg type="s" direction="in"/><arg type="a{{sv}}" direction="in"/></method>
  </interface>
  <interface name="{TEST}">
    <method name="Calls"><arg type="as" direction="out"/></method>
    <method name="Answer"><arg type="s" direction="in"/></method>
    <method name="Press"/>
  </interface>
</node>"""
SESSION_XML = '<node><interface name="org.freedesktop.portal.Session"><method name="Close"/></interface></node>'


class Portal:
    def __init__(self, connection, person):
        self._connection = connection
        self._person = person
        self._calls = []
        self._session = None
        self._bound = []
        self._pending = None
        for interface in Gio.DBusNodeInfo.new_for_xml(XML).interfaces:
            connection.register_object(ROOT, interface, self._call, lambda *_: GLib.Variant("u", 1), None)
        Gio.bus_own_name_on_connection(connection, NAME, Gio.BusNameOwnerFlags.NONE, None, None)

    def _call(self, _connection, sender, _path, interface, method, arguments, invocation):
        handler = getattr(self, "_" + method)
        if self._person == SILENT and interface == SHORTCUTS:
            self._calls.append(f"{method}, left without a word")
            return
        invocation.return_value(handler(sender[1:].replace(".", "_"), *arguments.unpack()))

    def _Register(self, _sender, application, _options):
        self._calls.append(f"Register {application}")

    def _CreateSession(self, sender, options):
        self._calls.append("CreateSession")
        self._session = f"{ROOT}/session/{sender}/{options['session_handle_token']}"
        interface = Gio.DBusNodeInfo.new_for_xml(SESSION_XML).interfaces[0]
        self._connection.register_object(self._session, interface, self._close, None, None)
        return self._respond(sender, options, 0, {"session_handle": GLib.Variant("s", self._session)})

    def _close(self, _connection, _sender, path, _interface, _method, _arguments, invocation):
        self._calls.append("Close")
        if path == self._session:
            self._session = None
        invocation.return_value(None)

    def _BindShortcuts(self, sender, _session, shortcuts, _parent, options):
        self._bound = [name for name, _ in shortcuts]
        self._calls += [f"BindShortcuts {name} {details['preferred_trigger']}" for name, details in shortcuts]
        self._pending = sender, options
        return self._answer() or GLib.Variant("(o)", (self._request(sender, options),))

    def _answer(self):
        if self._person not in ANSWERS or not self._pending:
            return None
        (sender, options), self._pending = self._pending, None
        agreed = self._person == "agrees"
        listed = GLib.Variant("a(sa{sv})", [(name, {}) for name in self._bound])
        return self._respond(sender, options, ANSWERS[self._person], {"shortcuts": listed} if agreed else {})

    def _request(self, sender, options):
        return f"{ROOT}/request/{sender}/{options['handle_token']}"

    def _respond(self, sender, options, code, results):
        path = self._request(sender, options)
        # After the reply, as a person takes a moment.
        GLib.timeout_add(10, self._connection.emit_signal, None, path, REQUEST, "Response",
                         GLib.Variant("(ua{sv})", (code, results)))
        return GLib.Variant("(o)", (path,))

    def _Calls(self, _sender):
        return GLib.Variant("(as)", (self._calls,))

    def _Answer(self, _sender, person):
        self._person = person
        self._answer()

    def _Press(self, _sender):
        arguments = (self._session, self._bound[0], 0, {})
        self._connection.emit_signal(None, ROOT, SHORTCUTS, "Activated", GLib.Variant("(osta{sv})", arguments))


class ShortcutsPortal:
    """Within the bus's reach from now on; started by whoever asks it first."""

    def __init__(self, person):
        self._service = Path(os.environ["XDG_RUNTIME_DIR"]).parent / "services" / f"{NAME}.service"
        self._service.write_text(f"[D-BUS Service]\nName={NAME}\nExec={sys.executable} -B {__file__} {person}\n")
        self._bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self._daemon("ReloadConfig")

    def _daemon(self, method, arguments=None):
        return self._bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method, arguments,
                                   None, Gio.DBusCallFlags.NONE, 20000, None).unpack()

    def _ask(self, method, arguments=None):
        return self._bus.call_sync(NAME, ROOT, TEST, method, arguments, None, Gio.DBusCallFlags.NO_AUTO_START, 20000,
                                   None).unpack()

    def calls(self):
        return self._ask("Calls")[0]

    def answer(self, person):
        """The person makes up their mind."""
        self._ask("Answer", GLib.Variant("(s)", (person,)))

    def press(self):
        self._ask("Press")

    def end(self):
        self._service.unlink(missing_ok=True)
        self._daemon("ReloadConfig")
        if self._daemon("NameHasOwner", GLib.Variant("(s)", (NAME,)))[0]:
            os.kill(self._daemon("GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)))[0], 15)


if __name__ == "__main__":
    portal = Portal(Gio.bus_get_sync(Gio.BusType.SESSION), sys.argv[1])
    GLib.MainLoop().run()
