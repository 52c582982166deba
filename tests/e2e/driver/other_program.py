"""Somebody else's program: a window that notes which keys reach it."""
import re
import subprocess
import tempfile

from . import keyboard, windows
from .waiting import until
from .xlib import Connection


class OtherProgram:
    def __init__(self, name="Other", place="300x200+20+40"):
        self.name = name
        self._notes = tempfile.TemporaryFile("w+b")
        self._process = subprocess.Popen(["xev", "-name", name, "-geometry", place, "-event", "keyboard"],
                                         stdout=self._notes, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL)
        self.window = until(lambda: windows.find(name), f"the other program's window “{name}”")

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
        connection = Connection()
        add, by_a_pager = 1, 2
        connection.ask_window_manager(self.window.number, "_NET_WM_STATE", add, "_NET_WM_STATE_FULLSCREEN", 0, by_a_pager)
        connection.close()
        until(lambda: "FULLSCREEN" in self.window.states, f"“{self.name}” to fill the screen")
