"""The whole program beside its peers, on one virtual desktop, measured from outside by one probe.

whole_program.py PROGRAM TOOLS: the built program, and the folder of the benchmarks' own programs. Run it on a desktop of
its own (tests/e2e/with-desktop.sh).
"""
import os
import re
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[2] / "tests" / "e2e"))

from driver import keyboard, person, windows  # noqa: E402
from driver.program import Home, Program  # noqa: E402
from driver.waiting import until  # noqa: E402

STARTS = 15
OPENINGS = 25
KEY_ROUNDS = 6
LETTERS = "rev"
LARGE, SMALL = 10_000, 1_000


class Bench:
    def __init__(self, program, tools):
        self._program = program
        self._tools = Path(tools)
        self._folder = Path(tempfile.mkdtemp(prefix="bench-", dir=os.environ["HOME"]))
        self._rows = []

    def _probe(self, *arguments, environment=None):
        """The probe's measurements, a dictionary for each line: {"mapped": 12.3}."""
        text = subprocess.run([self._tools / "bench_paint_probe", *map(str, arguments)], check=True, stdout=subprocess.PIPE,
                              text=True, env=environment).stdout
        return [{name: float(value) for name, value in re.findall(r"(\w+) ([\d.]+)", line)} for line in text.splitlines()]

    def _library(self, name, count):
        """A home with that many prompts, and the file with the same texts as lines."""
        home = Home(self._folder / name)
        lines = self._folder / f"{name}.txt"
        subprocess.run([self._tools / "bench_make_library", str(count), home.store, lines], check=True)
        return home, lines

    def _row(self, what, ours, peer, budget, unit="ms"):
        self._rows.append((what, ours, peer, ours / peer, budget, unit))

    def panel_and_search(self):
        home, lines = self._library("large", LARGE)
        rofi = ["rofi", "-dmenu", "-i", "-no-config", "-input", str(lines)]
        peer_start = median(self._probe("start", STARTS, *rofi), "mapped")

        program = Program(self._program, home)
        program.main_window()
        # The first press builds the panel; everyone after it finds it built.
        keyboard.press_hot_key()
        program.wait_for_panel()
        keyboard.press("Escape")
        program.wait_for_no_panel()
        opened = self._probe("panel", OPENINGS)
        self._row("hot key to panel mapped, painted and focused", median(opened, "ready"), peer_start, 0.25)
        details = ", ".join(f"{name} {median(opened, name):.1f}" for name in ("mapped", "focused", "painted", "settled"))
        print(f"  panel: {details} ms; rofi start to map {peer_start:.1f} ms")

        keyboard.press_hot_key()
        ours = self._keys(program.wait_for_panel().number)
        program.end()
        peers = self._rofi_keys(rofi)
        self._row("key press in the search to results painted", overall(ours), overall(peers), 0.5)
        for name, values in (("panel", ours), ("rofi", peers)):
            print(f"  {name}: " + ", ".join(f"{letter} {median(values, letter):.1f}" for letter in LETTERS) + " ms")

    def _keys(self, window):
        return self._probe("keys", window, KEY_ROUNDS, LETTERS)

    def _rofi_keys(self, command):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
        try:
            found = until(lambda: subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "rofi"],
                                                 capture_output=True, text=True).stdout.split(), "rofi's window")
            return self._keys(found[0])
        finally:
            process.terminate()
            process.wait()

    def start_and_memory(self):
        home, _ = self._library("small", SMALL)
        empty = str(self._tools / "bench_empty_window")
        environment = {**os.environ, **home.environment()}
        ours = median(self._probe("start", STARTS, self._program, environment=environment), "mapped")
        peer = median(self._probe("start", STARTS, empty), "mapped")
        self._row("start to main window mapped", ours, peer, 2.5)

        program = Program(self._program, home)
        person.close_main_window(program)
        mine = settled_memory(program.pid)
        program.end()
        other = subprocess.Popen([empty], stderr=subprocess.DEVNULL)
        windows.wait_for("Empty", other.pid)
        theirs = settled_memory(other.pid)
        other.terminate()
        other.wait()
        self._row("resident memory, idle in the tray", mine, theirs, 2, "MiB")

    def report(self):
        print(f"\n{'':46}{'ours':>10}{'peer':>10}   {'ratio':>6}  {'budget':>6}")
        for what, ours, peer, ratio, budget, unit in self._rows:
            verdict = "" if ratio <= budget else "  over budget"
            print(f"{what:46}{ours:7.1f} {unit:3}{peer:6.1f} {unit:3}{ratio:7.2f}  {budget:6.2f}{verdict}")


def median(measurements, name):
    return statistics.median(each[name] for each in measurements if name in each)


def overall(measurements):
    return statistics.median(value for each in measurements for value in each.values())


def settled_memory(pid):
    """The resident set in MiB, once it has stopped moving for a second."""
    last, since = None, time.monotonic()
    while time.monotonic() - since < 1:
        text = Path(f"/proc/{pid}/status").read_text()
        now = int(re.search(r"VmRSS:\s+(\d+) kB", text)[1])
        if now != last:
            last, since = now, time.monotonic()
        time.sleep(0.1)
    return last / 1024


if __name__ == "__main__":
    bench = Bench(*sys.argv[1:])
    print(f"Peers: rofi -dmenu with the same {LARGE:,} texts of 1 KB, a line each; an empty Qt window. Medians.\n", flush=True)
    bench.panel_and_search()
    bench.start_and_memory()
    bench.report()
