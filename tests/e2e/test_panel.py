"""The panel among other programs' windows, under a window manager."""
import subprocess
import unittest

from driver import keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.program import MAIN
from driver.waiting import stays, until

SIZE = (712, 552)


class Panel(DesktopCase):
    def test_takes_the_keyboard_from_another_programs_window_each_time(self):
        program = self.started()
        person.close_main_window(program)
        other = self.other_program()
        for _ in range(5):
            other.click_into()
            person.call_panel(program)
            keyboard.press("Escape")
            program.wait_for_no_panel()

    def test_stands_in_the_middle_of_the_screen(self):
        program = self.started()
        panel = person.call_panel(program)
        area = panel.area
        self.assertEqual((area.width, area.height), SIZE)
        self.assertLessEqual(abs(area.centre[0] - 720), 1)
        self.assertLessEqual(abs(area.centre[1] - 450), 1)

    def test_is_placed_again_where_it_was_dragged(self):
        program = self.started()
        panel = person.call_panel(program)
        before = panel.area
        subprocess.run(["xdotool", "windowmove", "--sync", str(panel.number), "40", "50"], check=True)
        until(lambda: panel.area != before, "the panel to be moved")
        keyboard.press_hot_key()
        program.wait_for_no_panel()
        self.assertEqual(person.call_panel(program).area, before)

    def test_a_press_while_it_is_visible_closes_it_and_the_next_one_starts_anew(self):
        program = self.started()
        person.make_prompt(program, "Alpha", "a")
        person.make_prompt(program, "Beta", "b")
        person.call_panel(program)
        person.search(program, "alp", "Alpha")
        keyboard.press_hot_key()
        program.wait_for_no_panel()
        person.call_panel(program)
        self.assertEqual(person.search_field(program).text, "")
        until(lambda: person.panel_rows(program) == ["Beta", "Alpha"], "both rows")

    def test_closes_when_another_programs_window_is_clicked_and_the_next_press_opens_it(self):
        program = self.started()
        other = self.other_program()
        person.call_panel(program)
        other.click_into()
        program.wait_for_no_panel()
        until(lambda: other.window.has_keyboard, "the other program to have the keyboard")
        person.call_panel(program)

    def test_stays_when_the_programs_own_main_window_is_clicked(self):
        program = self.started()
        main = program.main_window()
        panel = person.call_panel(program)
        area = main.area
        keyboard.click(area.x + 30, area.y + area.height - 30)
        until(lambda: main.is_active, "the main window to be active")
        stays(lambda: panel.is_visible, "the panel beside the main window")

    def test_stays_open_while_its_fill_in_sheet_is(self):
        program = self.started()
        person.make_prompt(program, "Ask", "{name}")
        panel = person.call_panel(program)
        keyboard.press("Return")
        program.ui.find("name", "text")
        stays(lambda: panel.has_keyboard, "the panel with its sheet")

    def test_shows_in_no_taskbar_on_every_workspace_and_above_others(self):
        program = self.started()
        person.close_main_window(program)
        for _ in range(2):  # the hints are lost at each hiding
            panel = person.call_panel(program)
            until(lambda: {"SKIP_TASKBAR", "SKIP_PAGER", "ABOVE"} <= panel.states, "the panel's hints")
            self.assertEqual(panel.desktop, 0xFFFFFFFF)
            keyboard.press("Escape")
            program.wait_for_no_panel()

    def test_opens_over_a_full_screen_window(self):
        program = self.started()
        person.close_main_window(program)
        other = self.other_program()
        other.click_into()
        other.fill_screen()
        panel = person.call_panel(program)
        until(lambda: _stacking().index(panel.number) > _stacking().index(other.window.number), "the panel above it")

    def test_works_with_the_main_window_closed_and_leaves_it_closed(self):
        program = self.started()
        person.close_main_window(program)
        person.call_panel(program)
        keyboard.press("Escape")
        program.wait_for_no_panel()
        self.assertIsNone(windows.find(MAIN, program.pid))

    def test_a_held_hot_key_opens_it_once(self):
        program = self.started()
        for key in (keyboard.CONTROL, keyboard.SHIFT, keyboard.SPACE):
            subprocess.run(["xdotool", "keydown", key], check=True)
        try:
            program.wait_for_panel()
            # Longer than the server waits before it repeats a key.
            stays(lambda: program.panel is not None, "the panel under a held key", seconds=1.5)
        finally:
            for key in (keyboard.SPACE, keyboard.SHIFT, keyboard.CONTROL):
                subprocess.run(["xdotool", "keyup", key], check=True)
        self.assertEqual(person.search_field(program).text, "")


class TwoMonitors(DesktopCase):
    def setUp(self):
        super().setUp()
        self._monitor("left", "640/200x900/200+0+0", "screen")
        self._monitor("right", "800/200x900/200+640+0", "none")

    def _monitor(self, name, place, output):
        subprocess.run(["xrandr", "--setmonitor", name, place, output], check=True, stdout=subprocess.DEVNULL)
        self.addCleanup(subprocess.run, ["xrandr", "--delmonitor", name], check=True, stdout=subprocess.DEVNULL)

    def test_opens_in_the_middle_of_the_one_that_has_the_pointer(self):
        program = self.started()
        person.close_main_window(program)
        # The right one is wide enough for the panel; on the left one it takes what there is.
        for pointer, centre, width in ((700, 640 + 400, 712), (320, 320, 640)):
            with self.subTest(pointer=pointer):
                keyboard.move_pointer(pointer, 700)
                panel = person.call_panel(program)
                self.assertLessEqual(abs(panel.area.centre[0] - centre), 1)
                self.assertLessEqual(abs(panel.area.centre[1] - 450), 1)
                self.assertEqual(panel.area.width, width)
                keyboard.press_hot_key()
                program.wait_for_no_panel()


def _stacking():
    text = subprocess.run(["xprop", "-root", "-notype", "_NET_CLIENT_LIST_STACKING"], capture_output=True, text=True).stdout
    return [int(part.strip(" ,"), 16) for part in text.split() if part.startswith("0x")]


if __name__ == "__main__":
    unittest.main()
