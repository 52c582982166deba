"""Somebody else's program: a window that notes which keys reach it."""
import ctypes
import re
import subprocess
import tempfile

from . import keyboard, windows
from .waiting import until


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


class KeyHolder:
    """A program that holds a key combination for itself."""

    def __init__(self, keycode, modifiers):
        self._library = ctypes.CDLL("libX11.so.6")
        self._library.XOpenDisplay.restype = ctypes.c_void_p
        self._library.XDefaultRootWindow.restype = ctypes.c_ulong
        self._library.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self._library.XGrabKey.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_uint, ctypes.c_ulong, ctypes.c_int,
                                           ctypes.c_int, ctypes.c_int]
        self._library.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
        self._library.XCloseDisplay.argtypes = [ctypes.c_void_p]
        self._display = self._library.XOpenDisplay(None)
        root = self._library.XDefaultRootWindow(self._display)
        asynchronous = 1
        self._library.XGrabKey(self._display, int(keycode), modifiers, root, False, asynchronous, asynchronous)
        self._library.XSync(self._display, False)

    def end(self):
        self._library.XCloseDisplay(self._display)
