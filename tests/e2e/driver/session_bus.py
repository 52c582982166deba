"""A second session bus, which can be ended while programs use it; the assistive tools are not on it."""
import os
import subprocess
from pathlib import Path

CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path={path}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class SessionBus:
    def __init__(self):
        folder = Path(os.environ["XDG_RUNTIME_DIR"])
        configuration = folder / "second-bus.conf"
        configuration.write_text(CONFIGURATION.format(path=folder / "second-bus"))
        self._process = subprocess.Popen(["dbus-daemon", "--nofork", "--print-address=1", f"--config-file={configuration}"],
                                         stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                         text=True)
        self.address = self._process.stdout.readline().strip()
        assert self.address, "the second session bus did not come up"

    @property
    def wrapper(self):
        """What a command stands behind to use this bus."""
        return "env", f"DBUS_SESSION_BUS_ADDRESS={self.address}"

    def end(self):
        """At once, with no word to anybody."""
        self._process.kill()
        self._process.wait()
        self._process.stdout.close()
