"""The hot key against layouts, modifier maps, lock keys, and other programs."""
import subprocess
import unittest

from driver import keyboard, person
from driver.desktop_case import DesktopCase
from driver.waiting import stays
from driver.xlib import Connection

CONTROL_MASK, SHIFT_MASK, LOCK_MASK, NUM_LOCK_MASK = 4, 1, 2, 16


def change_map(*statements):
    arguments = [part for statement in statements for part in ("-e", statement)]
    subprocess.run(["xmodmap", *arguments], check=True)


class HotKey(DesktopCase):
    def setUp(self):
        super().setUp()
        self.addCleanup(subprocess.run, ["setxkbmap", "us"], check=True)

    def open_and_close(self, program, other):
        """From another program's window, and back."""
        other.click_into()
        person.call_panel(program)
        keyboard.press("Escape")
        program.wait_for_no_panel()

    def test_works_from_another_programs_window_which_never_sees_it(self):
        program = self.started()
        other = self.other_program()
        self.open_and_close(program, other)
        self.assertNotIn("space", other.pressed())

    def test_survives_changes_of_the_layout(self):
        program = self.started()
        other = self.other_program()
        for layout in ("us", "de", "fr", "us"):
            with self.subTest(layout=layout):
                subprocess.run(["setxkbmap", layout], check=True)
                self.open_and_close(program, other)

    def test_survives_a_change_of_the_modifier_map(self):
        program = self.started()
        other = self.other_program()
        self.open_and_close(program, other)
        change_map("clear mod2", "clear mod3", "add mod3 = Num_Lock")
        self.open_and_close(program, other)
        keyboard.press("Num_Lock")
        self.addCleanup(keyboard.press, "Num_Lock")
        self.open_and_close(program, other)

    def test_works_whatever_the_lock_keys_say(self):
        program = self.started()
        other = self.other_program()
        for locks in (["Num_Lock"], ["Caps_Lock"], ["Num_Lock", "Caps_Lock"]):
            with self.subTest(locks=locks):
                keyboard.press(*locks)
                try:
                    self.open_and_close(program, other)
                finally:
                    keyboard.press(*locks)

    def test_the_same_key_with_other_modifiers_belongs_to_others(self):
        program = self.started()
        other = self.other_program()
        other.click_into()
        keyboard.press("ctrl+space", "shift+space", "ctrl+shift+alt+space", "space")
        stays(lambda: program.panel is None, "no panel")
        self.assertEqual(other.pressed().count("space"), 4)

    def test_held_by_another_program_costs_two_log_lines_and_nothing_else(self):
        holder = Connection()
        self.addCleanup(holder.close)
        for locks in (0, LOCK_MASK, NUM_LOCK_MASK, LOCK_MASK | NUM_LOCK_MASK):
            holder.grab_key(int(keyboard.SPACE), CONTROL_MASK | SHIFT_MASK | locks)
        program = self.started()
        program.logs("Failed to register hotkey - keyCode: 49, modifiers: 768")
        program.logs("RegisterEventHotKey failed with status: ")
        keyboard.press_hot_key()
        stays(lambda: program.panel is None, "no panel")
        program.main_window()
        person.make_prompt(program, "Still working", "yes")

    def test_is_free_again_when_the_program_has_ended(self):
        program = self.started()
        other = self.other_program()
        self.open_and_close(program, other)
        program.end()
        other.click_into()
        keyboard.press_hot_key()
        stays(lambda: True, "a moment", seconds=0.2)
        self.assertIn("space", other.pressed())


if __name__ == "__main__":
    unittest.main()
