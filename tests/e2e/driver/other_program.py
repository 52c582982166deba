"""Somebody else's program: a window that notes which keys reach it."""
import itertools
import re
import subprocess
import tempfile

from . import keyboard, windows
from .waiting import until
from .xlib import Connection

BY_A_PAGER = 2  # who asks: a taskbar or the like, so in the person's name


class OtherProgram:
    _count = itertools.count(1)

    def __init__(self, name="Other", place="300x200+20+40"):
        # A name of its own: the window of one that has just ended may still be listed.
        self.name = name = f"{name} {next(self._count)}"
        self._notes = tempfile.TemporaryFile("w+b")
        self._process = subprocess.Popen(["xev", "-name", name, "-geometry", place, "-event", "keyboard"],
                                         stdout=self._notes, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL)
        try:
            self.window = until(lambda: windows.find(name), f"the other program's window “{name}”")
            self.come_forward()
        except BaseException:
            self.end()
            raise

    def come_forward(self):
        """As by a click in the taskbar."""
        self._ask("_NET_ACTIVE_WINDOW", BY_A_PAGER)
        until(lambda: self.window.is_active, f"“{self.name}” to come to the front")

    def click_into(self):
        """A real click, after which it has the keyboard."""
        keyboard.click(*self.window.area.centre)
        until(lambda: self.window.is_active, f"“{self.name}” to be active")

    def pressed(self):
        """The names of the keys that it got, in order."""
        self._notes.seek(0)
        return re.findall(r"KeyPress event.*?\(keysym 0x[0-9a-f]+, (\w+)\)", self._notes.read().decode(), re.DOTALL)

    def end(self):
        self._process.terminate()
        self._process.wait()
        self._notes.close()

    def fill_screen(self):
        add = 1
        self._ask("_NET_WM_STATE", add, "_NET_WM_STATE_FULLSCREEN", 0, BY_A_PAGER)
        until(lambda: "FULLSCREEN" in self.window.states, f"“{self.name}” to fill the screen")

    def _ask(self, request, *data):
        connection = Connection()
        connection.ask_window_manager(self.window.number, request, *data)
        connection.close()
