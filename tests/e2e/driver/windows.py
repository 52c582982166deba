"""The windows that the window manager knows."""
import re
import subprocess
import time
from dataclasses import dataclass

from .waiting import until


def _output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


def _number(window):
    return int(window, 16) if window else 0


@dataclass(frozen=True)
class Area:
    x: int
    y: int
    width: int
    height: int

    @property
    def centre(self):
        return self.x + self.width // 2, self.y + self.height // 2


@dataclass(frozen=True)
class Window:
    number: int
    name: str
    pid: int
    role: str

    def _property(self, name):
        return _output("xprop", "-id", str(self.number), "-notype", name)

    @property
    def states(self):
        """As in _NET_WM_STATE, without that prefix: {"ABOVE", "SKIP_TASKBAR"}."""
        return set(re.findall(r"_NET_WM_STATE_(\w+)", self._property("_NET_WM_STATE")))

    @property
    def window_class(self):
        return re.findall(r'"([^"]*)"', self._property("WM_CLASS"))

    @property
    def desktop(self):
        found = re.search(r"= (\d+)", self._property("_NET_WM_DESKTOP"))
        return int(found[1]) if found else None

    @property
    def area(self):
        """The window without what the window manager puts around it."""
        text = _output("xwininfo", "-id", str(self.number))
        value = {name: int(number) for name, number in re.findall(r"(Absolute upper-left X|Absolute upper-left Y|Width|"
                                                                  r"Height): +(-?\d+)", text)}
        return Area(value["Absolute upper-left X"], value["Absolute upper-left Y"], value["Width"], value["Height"])

    @property
    def is_visible(self):
        return "Map State: IsViewable" in _output("xwininfo", "-id", str(self.number))

    @property
    def is_active(self):
        return active() == self.number

    @property
    def has_keyboard(self):
        """Both opinions must agree: the window manager's, and the server's on where keys go."""
        return self.is_active and focused() == self.number


def active():
    found = re.search(r"0x[0-9a-f]+", _output("xprop", "-root", "-notype", "_NET_ACTIVE_WINDOW"))
    return _number(found[0]) if found else 0


def focused():
    """The window that gets the keys, or the managed one around it."""
    text = _output("xdotool", "getwindowfocus").strip()
    return int(text) if text.isdigit() else 0


def listed(pid=None):
    """The managed windows, in the order of their mapping; those of one process where it is given."""
    numbers = re.findall(r"0x[0-9a-f]+", _output("xprop", "-root", "-notype", "_NET_CLIENT_LIST"))
    found = []
    for number in numbers:
        text = _output("xprop", "-id", number, "-notype", "_NET_WM_NAME", "WM_NAME", "_NET_WM_PID", "WM_WINDOW_ROLE")
        value = dict(re.findall(r'^(\w+) = "?(.*?)"?$', text, re.MULTILINE))
        window = Window(_number(number), value.get("_NET_WM_NAME", value.get("WM_NAME", "")),
                        int(value.get("_NET_WM_PID", 0)), value.get("WM_WINDOW_ROLE", ""))
        if pid is None or window.pid == pid:
            found.append(window)
    return found


def on_screen(pid):
    """The numbers of a process's visible windows, menus and icons included, which no window manager lists."""
    return set(map(int, _output("xdotool", "search", "--onlyvisible", "--pid", str(pid)).split()))


def find(name=None, pid=None, role=None):
    """The visible window of that title or role, or None."""
    return next((window for window in listed(pid) if name in (None, window.name) and role in (None, window.role)
                 and window.is_visible), None)


def wait_for(name=None, pid=None, role=None, limit=None):
    return until(lambda: find(name, pid, role), f"the window “{name or role}”", limit)


def wait_gone(name=None, pid=None, role=None):
    until(lambda: find(name, pid, role) is None, f"the window “{name or role}” to be gone")


def screenshot(path):
    subprocess.run(["import", "-window", "root", str(path)], check=True)


def settle(limit=3.0):
    """Waits until two looks at the screen in a row are alike, so that no picture is taken in the middle of a fade; a
    blinking cursor may go on."""
    end = time.monotonic() + limit
    before = None
    while time.monotonic() < end:
        now = subprocess.run(["import", "-window", "root", "-depth", "8", "rgb:-"], capture_output=True, check=True).stdout
        if now == before:
            return
        before = now
