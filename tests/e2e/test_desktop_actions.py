"""What the desktop can ask of the program over the session bus."""
import configparser
import subprocess
import unittest
from pathlib import Path

from driver import accessible, bus, keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.program import MAIN, PANEL
from driver.waiting import stays, until

ENTRY = Path(__file__).parents[2] / "resources" / "app.Quillstacks.desktop"


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

    def test_the_commands_of_the_desktop_entry_call_them(self):
        entry = configparser.ConfigParser(interpolation=None)
        entry.read(ENTRY)
        program = self.started()
        subprocess.run(entry["Desktop Action quick-access"]["Exec"].split(), check=True)
        program.wait_for_panel()
        subprocess.run(entry["Desktop Action quick-access"]["Exec"].split(), check=True)
        program.wait_for_no_panel()
        subprocess.run(entry["Desktop Action new-prompt"]["Exec"].split(), check=True)
        person.title_field(program)

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


class StartByTheBus(DesktopCase):
    """The program does not run; the bus starts it for what is asked of it."""

    def setUp(self):
        super().setUp()
        self.home.skip_welcome()
        self.addCleanup(bus.install_service(self.program_path, self.home))

    def started_by(self, ask, *arguments):
        """The process that there is now."""
        ask(*arguments)
        process = bus.owner()
        self.addCleanup(bus.kill_owner, process)
        return process

    def test_by_its_name_shows_the_main_window(self):
        process = self.started_by(bus.activate)
        window = windows.wait_for(MAIN, process)
        until(lambda: window.has_keyboard, "the main window to have the keyboard")

    def test_for_quick_access_opens_the_panel_which_has_the_keyboard(self):
        process = self.started_by(bus.perform, "quick-access")
        windows.wait_for(MAIN, process)
        panel = windows.wait_for(pid=process, role=PANEL)
        until(lambda: panel.has_keyboard, "the panel to have the keyboard")
        stays(lambda: panel.has_keyboard, "the keyboard with the panel", 1.5)
        keyboard.type_text("words")
        field = accessible.application(process).find("Search prompts", "text")
        until(lambda: field.text == "words", "the search to hold what was typed")

    def test_for_a_new_prompt_opens_the_editor(self):
        process = self.started_by(bus.perform, "new-prompt")
        window = windows.wait_for(MAIN, process)
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        field = accessible.application(process).find("New Prompt", "dialog").find(role="text")
        until(lambda: field.is_focused, "the title field to have the keyboard")
        keyboard.type_text("From outside")
        until(lambda: field.text == "From outside", "the title to hold what was typed")


if __name__ == "__main__":
    unittest.main()
