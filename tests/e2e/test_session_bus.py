"""The session bus dies while the program runs: it goes on, nothing is lost, and it ends in peace."""
import unittest

from driver import clipboard, keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.session_bus import SessionBus
from driver.status_area import StatusArea
from driver.waiting import until


class SessionBusDies(DesktopCase):
    def setUp(self):
        super().setUp()
        self.bus = SessionBus()
        self.addCleanup(self.bus.end)

    def started(self):
        """With its main window in front; out of the assistive tools' reach, so that keys and log have to do."""
        program = self.start(wrapper=self.bus.wrapper)
        window = program.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        program.logs("Hotkey registered")
        windows.settle()
        return program

    def test_in_the_middle_of_an_edit_which_is_saved_all_the_same(self):
        program = self.started()
        keyboard.press("ctrl+n")
        windows.settle()
        keyboard.type_text("Begun with it")
        self.bus.end()
        for _ in range(2):
            keyboard.press("Tab")
        keyboard.type_text("ended without")
        keyboard.press("ctrl+s")
        program.logs("New prompt created: 'Begun with it'")
        program.logs("Prompt saved successfully")
        self.assertEqual(program.end(), 0)

        again = super().started()
        until(lambda: person.list_rows(again) == ["Begun with it"], "the prompt")
        person.call_panel(again)
        keyboard.press("Return")
        again.wait_for_no_panel()
        self.assertEqual(clipboard.text(), "ended without")

    def test_and_the_hot_key_still_calls_the_panel_from_anywhere(self):
        program = self.started()
        person.close_main_window(program)
        self.bus.end()
        self.other_program().click_into()
        keyboard.press_hot_key()
        program.wait_for_panel()
        keyboard.press("Escape")
        program.wait_for_no_panel()
        self.assertEqual(program.end(), 0)

    def test_with_the_status_area_that_shows_the_icon(self):
        area = StatusArea(self.bus.address)
        self.addCleanup(area.end)
        program = self.started()
        area.wait_for_icon()
        self.bus.end()
        keyboard.press_hot_key()
        program.wait_for_panel()
        keyboard.press_hot_key()
        program.wait_for_no_panel()
        self.assertEqual(program.end(), 0)

    def test_a_start_on_a_new_bus_says_that_the_library_is_held(self):
        first = self.started()
        self.bus.end()
        second = super().started()
        second.logs("Failed to create SwiftData container")
        self.assertIn("Quillstacks.store", second.log.split("Failed to create SwiftData container", 1)[1])
        self.assertEqual(second.end(), 0)
        self.assertTrue(first.is_running)


if __name__ == "__main__":
    unittest.main()
