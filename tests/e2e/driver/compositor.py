"""A Wayland compositor without a screen, a keyboard or a mouse: windows are seen by what it has on its shelves."""
import os
import re
import subprocess
from pathlib import Path

from .waiting import until

SOCKET = "wayland-test"
SIZE = 1400, 900


class Compositor:
    def __init__(self):
        self._log = Path(os.environ["XDG_RUNTIME_DIR"]) / "compositor.log"
        self._process = subprocess.Popen(
            ["weston", "--backend=headless-backend.so", "--use-pixman", "--no-config", "--idle-time=0", "--debug",
             f"--socket={SOCKET}", f"--width={SIZE[0]}", f"--height={SIZE[1]}", f"--log={self._log}"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            until(lambda: "launching" in self._log.read_text() if self._log.exists() else False, "the compositor")
        except BaseException:
            self.end()
            raise

    @property
    def wrapper(self):
        """What a command stands behind to be started in a session of this compositor, without an X server."""
        return ("env", "--unset=DISPLAY", f"WAYLAND_DISPLAY={SOCKET}", "XDG_SESSION_TYPE=wayland",
                "QT_QPA_PLATFORM=wayland")

    def windows(self, pid):
        """The titles of a process's windows, the topmost first."""
        scene = subprocess.run(["weston-debug", "scene-graph"], capture_output=True, text=True, timeout=20,
                               env={**os.environ, "WAYLAND_DISPLAY": SOCKET}).stdout
        return re.findall(rf"role xdg_toplevel, PID {pid}, [^\n]*top-level window '([^\n]*)' of app\.Quillstacks", scene)

    def end(self):
        self._process.terminate()
        self._process.wait()
