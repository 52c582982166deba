"""The program under test, with folders of its own."""
import json
import os
import signal
import subprocess
import tempfile
from pathlib import Path

from . import accessible, bus, keyboard, windows
from .waiting import LIMIT, until

JOURNAL = Path("/run/systemd/journal/socket")
MAIN = "Quillstacks"
PANEL = "quick-access"  # the window's role
WELCOME = "splash-screen"


class Home:
    """What one person has: data, configuration, and the places of the program's files in them."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.data = self.folder / "data"
        self.config = self.folder / "config"
        for each in (self.data, self.config, self.folder / "cache", self.folder / "state"):
            each.mkdir(mode=0o700, parents=True, exist_ok=True)
        self.store = self.data / "app.Quillstacks" / "Quillstacks.store"
        self.preferences = self.config / "app.Quillstacks" / "preferences.json"

    def skip_welcome(self):
        """As after a first start. A file that holds no such values is left as it is."""
        try:
            values = json.loads(self.preferences.read_text()) if self.preferences.exists() else {}
        except ValueError:
            return
        self.preferences.parent.mkdir(mode=0o700, exist_ok=True)
        self.preferences.touch(mode=0o600)
        self.preferences.write_text(json.dumps({**values, "hasShownSplashScreen": True}))

    def environment(self):
        return {"HOME": str(self.folder), "XDG_DATA_HOME": str(self.data), "XDG_CONFIG_HOME": str(self.config),
                "XDG_CACHE_HOME": str(self.folder / "cache"), "XDG_STATE_HOME": str(self.folder / "state")}


class Process:
    """What a person has of a process, whoever started it; a subclass knows its pid."""

    @property
    def ui(self):
        return accessible.application(self.pid)

    def main_window(self, limit=None):
        return windows.wait_for(MAIN, self.pid, limit=limit or 2 * LIMIT)

    def wait_for_welcome(self):
        """The welcome once it is there and has the keyboard."""
        welcome = windows.wait_for(pid=self.pid, role=WELCOME)
        until(lambda: welcome.has_keyboard, "the welcome to have the keyboard")
        return welcome

    def leave_welcome(self):
        self.wait_for_welcome()
        keyboard.press("Return")
        windows.wait_gone(pid=self.pid, role=WELCOME)

    @property
    def panel(self):
        """The panel's window, or None while it is closed."""
        return windows.find(pid=self.pid, role=PANEL)

    def wait_for_panel(self):
        """The panel once it is there and has the keyboard."""
        panel = windows.wait_for(pid=self.pid, role=PANEL)
        until(lambda: panel.has_keyboard, "the panel to have the keyboard")
        return panel

    def wait_for_no_panel(self):
        windows.wait_gone(pid=self.pid, role=PANEL)


class Activated(Process):
    """The process that the session bus has started."""

    def __init__(self):
        self.pid = until(bus.owner, "the program's name on the bus")

    @property
    def is_running(self):
        return Path(f"/proc/{self.pid}").exists()

    def end(self):
        if self.is_running:
            os.kill(self.pid, signal.SIGTERM)
            until(lambda: not self.is_running, "the program's end")


class Program(Process):
    """One that we start. Without a session bus it is out of the assistive tools' reach, but not of keys and windows."""

    def __init__(self, path, home, session_bus=True, wrapper=(), welcome=False):
        if not welcome:
            home.skip_welcome()
        environment = {**os.environ, **home.environment()}
        if not session_bus:
            environment["DBUS_SESSION_BUS_ADDRESS"] = f"unix:path={home.folder}/no-bus"
        self._errors = tempfile.TemporaryFile("w+b")
        self._process = subprocess.Popen([*wrapper, str(path)], env=environment, stdin=subprocess.DEVNULL,
                                         stdout=subprocess.DEVNULL, stderr=self._errors)

    pid = property(lambda self: self._process.pid)
    is_running = property(lambda self: self._process.poll() is None)

    @property
    def errors(self):
        """Everything on standard error so far."""
        self._errors.seek(0)
        return self._errors.read().decode("utf-8", "replace")

    @property
    def log(self):
        """The log's lines so far: on standard error, or in the journal where there is one."""
        text = self.errors
        if JOURNAL.exists():
            text += subprocess.run(["journalctl", "--quiet", "--output=cat", f"_PID={self.pid}"], capture_output=True,
                                   text=True, check=False).stdout
        return text

    def logs(self, line, limit=None):
        """Waits for a line of the log that holds this text."""
        until(lambda: line in self.log, f"the log line “{line}”", limit)

    def wait_end(self, limit=None):
        """The exit status, once the process has ended by itself."""
        try:
            return self._process.wait(limit or LIMIT)
        except subprocess.TimeoutExpired:
            raise AssertionError("the program did not end") from None

    def kill(self):
        """As the kernel kills: no handler runs."""
        self._process.send_signal(signal.SIGKILL)
        self._process.wait()

    def end(self):
        """By the session's own request to end."""
        if self.is_running:
            self._process.terminate()
            try:
                self._process.wait(LIMIT)
            except subprocess.TimeoutExpired:
                self.kill()
        return self._process.returncode

    def forget(self):
        """Ends it where that is still due, and lets its log go."""
        self.end()
        self._errors.close()
