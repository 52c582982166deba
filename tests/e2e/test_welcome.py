"""The welcome of a first start: before the main window, left by its button, and then gone for good."""
import unittest

from driver import keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.program import WELCOME
from driver.waiting import stays, until


class Welcome(DesktopCase):
    def test_a_first_start_shows_it_before_the_main_window_and_a_second_one_does_not(self):
        program = self.start(welcome=True)
        main = program.main_window()
        welcome = program.wait_for_welcome()
        self.assertTrue(main.is_visible)
        self.assertNotIn("SKIP_TASKBAR", welcome.states)
        program.leave_welcome()
        self.assertEqual(program.end(), 0)

        program = self.start(welcome=True)
        program.main_window()
        stays(lambda: windows.find(pid=program.pid, role=WELCOME) is None, "no welcome", 1.5)

    def test_it_comes_back_when_the_program_was_ended_before_its_button_was_pressed(self):
        program = self.start(welcome=True)
        program.wait_for_welcome()
        program.end()
        self.start(welcome=True).wait_for_welcome()

    def test_a_shortcut_recorded_there_works_at_once_and_stays(self):
        program = self.start(welcome=True)
        program.wait_for_welcome()
        program.ui.find("Change", "push button").press()
        program.ui.find("Recording...", "push button")
        keyboard.press("ctrl+alt+k")
        program.ui.find("Ctrl+Alt+K")
        keyboard.press("ctrl+alt+k")
        program.wait_for_panel()
        keyboard.press("Escape")
        program.wait_for_no_panel()
        program.leave_welcome()
        program.end()

        program = self.started()
        keyboard.press("ctrl+alt+k")
        program.wait_for_panel()

    def test_once_it_is_left_the_main_window_takes_what_is_typed(self):
        program = self.start(welcome=True)
        main = program.main_window()
        program.leave_welcome()
        until(lambda: main.has_keyboard, "the main window to have the keyboard")
        person.make_prompt(program, "First", "words")


if __name__ == "__main__":
    unittest.main()
