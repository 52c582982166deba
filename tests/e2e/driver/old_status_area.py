"""A status area of the older kind: takes in the windows that ask for it.

Run as a program (`python3 -m driver.old_status_area`), it is the desktop's side, until it is ended. `OldStatusArea` starts
that, and clicks into it.
"""
import re
import subprocess
import sys

from . import keyboard
from .waiting import until
from .windows import Window
from .xlib import Connection

SIZE = 24
PLACE = 1400, 860  # where no window of the program is
REQUEST_DOCK = 0


class OldStatusArea:
    def __init__(self):
        self._process = subprocess.Popen([sys.executable, "-m", "driver.old_status_area"], stdout=subprocess.PIPE, text=True)
        self._window = int(self._process.stdout.readline())

    def wait_for_icon(self):
        """The window that was taken in, once it is on screen."""
        return until(self._icon, "an icon in the status area")

    def click(self, button=1):
        keyboard.click(*self.wait_for_icon().area.centre, button)

    def _icon(self):
        text = subprocess.run(["xwininfo", "-children", "-id", str(self._window)], capture_output=True, text=True).stdout
        numbers = re.findall(r"^ +(0x[0-9a-f]+)", text, re.MULTILINE)
        children = [Window(int(number, 16), name="", pid=0, role="") for number in numbers]
        return next((window for window in children if window.is_visible), None)

    def end(self):
        self._process.kill()
        self._process.wait()
        self._process.stdout.close()


if __name__ == "__main__":
    connection = Connection()
    connection.forgive()
    tray = connection.make_window(*PLACE, SIZE, SIZE)
    connection.own_selection("_NET_SYSTEM_TRAY_S0", tray)
    print(tray, flush=True)
    while True:
        message = connection.next_message("_NET_SYSTEM_TRAY_OPCODE")
        if message[1] == REQUEST_DOCK:
            connection.take_in(message[2], tray, SIZE)
