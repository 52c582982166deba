"""The icon in the desktop's status area, and what the program shows in the taskbar."""
import unittest

from driver import keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.old_status_area import OldStatusArea
from driver.program import MAIN
from driver.waiting import until

MENU = ["Quick Access (⇧⌘Space)", None, "Open Quillstacks", None, "Check for Updates", None, "Quit Quillstacks"]


class StatusAreaIcon(DesktopCase):
    def test_comes_to_a_status_area_that_was_there_first(self):
        area = self.status_area()
        program = self.started()
        icon = area.wait_for_icon()
        self.assertTrue(area.has_picture(icon))
        until(lambda: area.labels(icon) == MENU, f"the menu {MENU}, not {area.labels(icon)}")
        self.assertTrue(program.is_running)

    def test_comes_to_a_status_area_that_is_started_later(self):
        program = self.started()
        person.close_main_window(program)
        area = self.status_area()
        icon = area.wait_for_icon()
        until(lambda: area.labels(icon) == MENU, "the menu")

    def test_comes_back_after_the_status_area_was_gone(self):
        area = self.status_area()
        self.started()
        area.wait_for_icon()
        area.end()
        self.status_area().wait_for_icon()

    def test_its_first_entry_calls_the_panel(self):
        area = self.status_area()
        program = self.started()
        person.close_main_window(program)
        area.choose(area.wait_for_icon(), MENU[0])
        program.wait_for_panel()

    def test_opens_a_window_that_was_closed(self):
        area = self.status_area()
        program = self.started()
        person.close_main_window(program)
        other = self.other_program()
        other.click_into()
        area.choose(area.wait_for_icon(), "Open Quillstacks")
        window = program.main_window()
        until(lambda: window.is_active, "the window to be back and active")

    def test_brings_forward_a_window_that_lies_below(self):
        area = self.status_area()
        program = self.started()
        other = self.other_program()
        other.click_into()
        area.choose(area.wait_for_icon(), "Open Quillstacks")
        window = program.main_window()
        until(lambda: window.is_active, "the window to come forward")

    def test_quits(self):
        area = self.status_area()
        program = self.started()
        area.choose(area.wait_for_icon(), "Quit Quillstacks")
        self.assertEqual(program.wait_end(), 0)

    def test_none_at_all_costs_a_log_line(self):
        program = self.started()
        program.logs("No status area found")
        self.assertTrue(program.is_running)


class StatusAreaOfTheOlderKind(DesktopCase):
    """The desktop's side is a window that takes others in, not a service of the session bus."""

    def old_status_area(self):
        area = OldStatusArea()
        self.addCleanup(area.end)
        return area

    def choose(self, program, label, area, button):
        before = windows.on_screen(program.pid)
        area.click(button)
        until(lambda: windows.on_screen(program.pid) - before, "the menu")
        keyboard.press(*["Down"] * (1 + [entry for entry in MENU if entry].index(label)), "Return")

    def test_shows_the_icon_whose_menu_opens_by_either_button(self):
        area = self.old_status_area()
        program = self.started()
        person.close_main_window(program)
        area.wait_for_icon()
        for button in (1, 3):
            with self.subTest(button=button):
                self.choose(program, MENU[0], area, button)
                program.wait_for_panel()
                keyboard.press("Escape")
                program.wait_for_no_panel()

    def test_that_comes_late_goes_and_comes_back_has_the_icon_each_time(self):
        program = self.started()
        program.logs("No status area found")
        person.close_main_window(program)
        for _ in range(2):
            area = self.old_status_area()
            area.wait_for_icon()
            area.end()
        area = self.old_status_area()
        area.wait_for_icon()
        self.choose(program, "Open Quillstacks", area, 3)
        window = program.main_window()
        until(lambda: window.is_active, "the window to be back and active")


class Taskbar(DesktopCase):
    def test_shows_the_program_only_while_its_main_window_is_open(self):
        program = self.started()
        window = program.main_window()
        until(lambda: "SKIP_TASKBAR" not in window.states, "the main window in the taskbar")
        program.logs("Dock icon visibility changed: visible")
        person.close_main_window(program)
        program.logs("Dock icon visibility changed: hidden")
        self.assertEqual(windows.listed(program.pid), [])
        panel = person.call_panel(program)
        until(lambda: {"SKIP_TASKBAR", "SKIP_PAGER"} <= panel.states, "the panel out of the taskbar")

    def test_the_window_comes_back_to_the_taskbar(self):
        program = self.started()
        person.close_main_window(program)
        self.start().wait_end()
        window = program.main_window()
        until(lambda: "SKIP_TASKBAR" not in window.states, "the main window in the taskbar again")
        self.assertEqual(windows.find(MAIN, program.pid), window)

    def test_windows_carry_the_programs_class_and_title(self):
        program = self.started()
        self.assertIn("app.Quillstacks", program.main_window().window_class)


if __name__ == "__main__":
    unittest.main()
