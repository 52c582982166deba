"""A preferences file that can't be read, or holds values of other types."""
import json
import signal
import unittest

from driver import keyboard, person
from driver.desktop_case import DesktopCase


class Preferences(DesktopCase):
    def put(self, text):
        self.home.preferences.parent.mkdir(mode=0o700)
        self.home.preferences.write_text(text)

    def test_a_broken_file_is_set_aside_and_the_defaults_hold(self):
        broken = '{"appearanceMode": "light", '
        self.put(broken)
        program = self.started()
        program.leave_welcome()
        person.call_panel(program)
        aside = [file for file in self.home.preferences.parent.iterdir() if file != self.home.preferences]
        self.assertEqual([file.read_text() for file in aside], [broken])
        program.logs(f"Preferences can't be read, defaults apply: {self.home.preferences}")

    def test_a_hot_key_of_another_type_is_the_default_one(self):
        self.put(json.dumps({"globalHotkeyKeyCode": "a text", "globalHotkeyModifiers": True}))
        program = self.started()
        program.logs("Hotkey registered - keyCode: 49, modifiers: 768")
        person.call_panel(program)

    def test_a_stored_number_that_no_hot_key_can_have_ends_the_program(self):
        for values in ({"globalHotkeyModifiers": -1}, {"globalHotkeyKeyCode": -1}, {"globalHotkeyKeyCode": 1 << 32}):
            with self.subTest(values):
                self.home.preferences.parent.mkdir(mode=0o700, exist_ok=True)
                self.home.preferences.write_text(json.dumps(values))
                program = self.start()
                self.assertEqual(program.wait_end(), -signal.SIGABRT)
                self.assertIn("cannot be converted", program.errors)

    def test_a_stored_hot_key_is_the_one_that_works(self):
        option_and_command, key_of_k = 0x180000, 40
        self.put(json.dumps({"globalHotkeyKeyCode": key_of_k, "globalHotkeyModifiers": option_and_command}))
        program = self.started()
        program.logs("Hotkey registered - keyCode: 40, modifiers: 2304")
        keyboard.press_hot_key()
        keyboard.press("ctrl+alt+k")
        program.wait_for_panel()


if __name__ == "__main__":
    unittest.main()
