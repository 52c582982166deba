"""There is one process for each person."""
import unittest

from driver import person
from driver.desktop_case import DesktopCase
from driver.program import Home
from driver.waiting import stays, until


class SecondStart(DesktopCase):
    def assert_in_taskbar(self, window):
        until(lambda: window.is_visible and "SKIP_TASKBAR" not in window.states, "the window's entry in the taskbar")
        stays(lambda: "SKIP_TASKBAR" not in window.states, "the window's entry in the taskbar")

    def test_brings_the_first_ones_window_forward_and_ends(self):
        first = self.started()
        other = self.other_program(place="1400x850+10+10")
        other.click_into()
        second = self.start()
        self.assertEqual(second.wait_end(), 0)
        window = first.main_window()
        until(lambda: window.is_active, "the first one's window to come forward")
        self.assert_in_taskbar(window)
        self.assertTrue(first.is_running)

    def test_brings_back_a_window_that_was_closed(self):
        first = self.started()
        person.close_main_window(first)
        second = self.start()
        self.assertEqual(second.wait_end(), 0)
        window = first.main_window()
        until(lambda: window.is_active, "the window to be back and active")
        self.assert_in_taskbar(window)
        first.ui.find("No prompts yet")

    def test_five_starts_at_once_leave_one_process(self):
        starts = [self.start() for _ in range(5)]
        until(lambda: sum(program.is_running for program in starts) == 1, "one process to stay")
        running = [program for program in starts if program.is_running]
        window = running[0].main_window()
        statuses = [program.wait_end() for program in starts if program not in running]
        self.assertEqual(statuses, [0, 0, 0, 0])
        # The others asked it to come forward while it was still starting, out of sight.
        self.assert_in_taskbar(window)
        self.assertTrue(running[0].is_running)

    def test_without_a_session_bus_says_who_holds_the_library_and_ends_with_1(self):
        first = self.start(session_bus=False)
        first.main_window()
        second = self.start(session_bus=False)
        self.assertEqual(second.wait_end(), 1)
        self.assertIn(str(first.pid), second.errors)
        self.assertTrue(first.is_running)

    def test_without_a_session_bus_a_killed_process_holds_nothing(self):
        first = self.start(session_bus=False)
        first.main_window()
        first.kill()
        second = self.start(session_bus=False)
        second.main_window()
        self.assertTrue(second.is_running)

    def test_without_a_session_bus_another_library_is_nobodys_business(self):
        first = self.start(session_bus=False)
        first.main_window()
        second = self.start(home=Home(self.home.folder / "somebody-else"), session_bus=False)
        second.main_window()
        self.assertTrue(first.is_running and second.is_running)


if __name__ == "__main__":
    unittest.main()
