"""What the desktop can ask of the program over the session bus."""
import os
import signal
import unittest

from driver import bus, keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.program import MAIN
from driver.waiting import until


class DesktopActions(DesktopCase):
    def test_quick_access_opens_the_panel_and_closes_it(self):
        program = self.started()
        person.close_main_window(program)
        self.other_program().click_into()
        bus.perform("quick-access")
        program.wait_for_panel()
        bus.perform("quick-access")
        program.wait_for_no_panel()

    def test_new_prompt_opens_the_editor(self):
        program = self.started()
        person.close_main_window(program)
        bus.perform("new-prompt")
        field = person.title_field(program)
        keyboard.type_text("From outside")
        until(lambda: field.text == "From outside", "the title to hold what was typed")

    def test_an_action_of_another_name_does_nothing(self):
        program = self.started()
        bus.perform("no-such-action")
        self.assertTrue(program.is_running)
        self.assertIsNone(program.panel)

    def test_activate_brings_the_window_back(self):
        program = self.started()
        person.close_main_window(program)
        bus.activate()
        window = program.main_window()
        until(lambda: window.is_active, "the window to be back and active")

    def test_the_bus_starts_the_program_by_its_name(self):
        self.addCleanup(bus.install_service(self.program_path))
        bus.activate()
        process = bus.owner()
        try:
            windows.wait_for(MAIN, process)
        finally:
            os.kill(process, signal.SIGKILL)


if __name__ == "__main__":
    unittest.main()
