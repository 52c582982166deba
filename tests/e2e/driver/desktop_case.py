"""What every end-to-end test has: a desktop, folders of its own, and an end to all that it started."""
import os
import shutil
import sys
import tempfile
import unittest
from pathlib import Path

from . import keyboard, windows
from .other_program import OtherProgram
from .program import Home, Program
from .status_area import StatusArea
from .waiting import pump, until


class DesktopCase(unittest.TestCase):
    program_path = os.environ.get("QUILLSTACKS_PROGRAM", "quillstacks")

    def setUp(self):
        folder = tempfile.mkdtemp(prefix="home-", dir=os.environ.get("HOME"))
        self.addCleanup(shutil.rmtree, folder, ignore_errors=True)
        self.home = Home(folder)
        self._programs = []
        self.addCleanup(self._end_programs)
        # In a corner, so that what opens under the pointer isn't hovered by chance.
        keyboard.move_pointer(1, 1)

    def start(self, home=None, **how):
        """Starts the program; it ends with the test at the latest."""
        program = Program(self.program_path, home or self.home, **how)
        self._programs.append(program)
        return program

    def started(self, **how):
        """The program once its main window is there and active, and it has come to rest: it answers."""
        program = self.start(**how)
        window = program.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        program.ui.find(role="label")
        return program

    def other_program(self, **how):
        other = OtherProgram(**how)
        self.addCleanup(other.end)
        return other

    def status_area(self):
        area = StatusArea()
        self.addCleanup(area.end)
        return area

    def _end_programs(self):
        if self._failed():
            self._report()
        for program in self._programs:
            program.forget()

    def _failed(self):
        outcome = self._outcome
        problems = list(getattr(outcome, "errors", [])) + list(getattr(getattr(outcome, "result", None), "failures", []))
        problems += list(getattr(getattr(outcome, "result", None), "errors", []))
        return any(test is self and trace for test, trace in problems)

    def _report(self):
        """What a person wants to see of a failure: the screen, the logs, the tree."""
        place = Path(os.environ.get("E2E_REPORTS", tempfile.gettempdir())) / self.id()
        place.mkdir(parents=True, exist_ok=True)
        windows.screenshot(place / "screen.png")
        for number, program in enumerate(self._programs):
            (place / f"log-{number}.txt").write_text(program.log)
            if program.is_running:
                try:
                    (place / f"tree-{number}.txt").write_text(program.ui.tree())
                except Exception as error:  # the report must not hide the failure
                    (place / f"tree-{number}.txt").write_text(repr(error))
        pump()
        print(f"\n{self.id()}: see {place}", file=sys.stderr)
