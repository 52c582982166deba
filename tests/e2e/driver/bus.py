"""The session bus, as the desktop uses it to reach a program."""
import os
import signal
from pathlib import Path

from gi.repository import Gio, GLib

from .waiting import until

NAME = "app.Quillstacks"
PATH = "/app/Quillstacks"
INTERFACE = "org.freedesktop.Application"
DBUS = ("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus")


def _call(name, path, interface, method, arguments=None):
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    return bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 20000, None).unpack()


def start_programs_in(home):
    """What the bus starts from now on has these folders."""
    _call(*DBUS, "UpdateActivationEnvironment", GLib.Variant("(a{ss})", (home.environment(),)))


def activate():
    """What a click on the program's icon does where the desktop file says DBusActivatable."""
    _call(NAME, PATH, INTERFACE, "Activate", GLib.Variant("(a{sv})", ({},)))


def perform(action):
    """One of the desktop file's actions."""
    _call(NAME, PATH, INTERFACE, "ActivateAction", GLib.Variant("(sava{sv})", (action, [], {})))


def owner():
    """The process that has the program's name on the bus."""
    return _call(*DBUS, "GetConnectionUnixProcessID", GLib.Variant("(s)", (NAME,)))[0]


def kill_owner(process):
    """As the kernel kills; the name is free afterwards."""
    os.kill(process, signal.SIGKILL)
    until(lambda: not _call(*DBUS, "NameHasOwner", GLib.Variant("(s)", (NAME,)))[0], "the program's name to be free")


def install_service(program, home):
    """Lets the bus start the program by name, as the installed service file does. Undo it by what is returned."""
    services = Path(os.environ["XDG_RUNTIME_DIR"]).parent / "services"
    file = services / f"{NAME}.service"
    environment = " ".join(f"{name}={value}" for name, value in home.environment().items())
    file.write_text(f"[D-BUS Service]\nName={NAME}\nExec=/usr/bin/env {environment} {program}\n")
    _call(*DBUS, "ReloadConfig")
    return file.unlink
