"""The road of a prompt: written, called up from another program, filled in, pasted elsewhere."""
import unittest

from driver import clipboard, keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.program import MAIN
from driver.waiting import stays, until


class Road(DesktopCase):
    def test_from_an_empty_library_to_the_clipboard(self):
        program = self.started()
        program.ui.find("No prompts yet")
        person.make_prompt(program, "Translate a text", "Translate into {{language}}:\n\n{text}")
        self.assertFalse(program.ui.has("No prompts yet"))

        person.close_main_window(program)
        other = self.other_program()
        other.click_into()
        stays(lambda: program.is_running, "the program without a window")

        person.call_panel(program)
        person.search(program, "tra", "Translate a text")
        keyboard.press("Return")
        person.fill_in(program, [("language", "French"), ("text", "Good morning, Anna!")])

        program.wait_for_no_panel()
        # Two braces lose one to the value: that is how they are filled.
        self.assertEqual(clipboard.text(), "Translate into {French}:\n\nGood morning, Anna!")
        until(lambda: other.window.has_keyboard, "the other program to have the keyboard back")
        self.assertNotIn("t", other.pressed())
        self.assertIsNone(windows.find(MAIN, program.pid))

    def test_the_last_values_are_remembered(self):
        program = self.started()
        person.make_prompt(program, "Greeting", "Hello {name}")
        person.call_panel(program)
        keyboard.press("Return")
        person.fill_in(program, [("name", "Ada")])
        program.wait_for_no_panel()

        person.call_panel(program)
        keyboard.press("Return")
        field = program.ui.find("name", "text")
        until(lambda: field.is_focused, "the field to have the keyboard")
        self.assertEqual(field.text, "Ada")
        clipboard.put("something else")
        keyboard.press("Return")
        program.wait_for_no_panel()
        self.assertEqual(clipboard.text(), "Hello Ada")

    def test_a_prompt_without_variables_is_copied_as_it_stands(self):
        program = self.started()
        body = "A first line\n\tindented & \"quoted\"\n  last"
        person.make_prompt(program, "Plain", "x")
        program.ui.find("Plain", "list item").click(times=2)
        editor = program.ui.find("Prompt text", "text")
        editor.click()
        keyboard.press("ctrl+a")
        clipboard.put(body)
        keyboard.press("ctrl+v")
        until(lambda: editor.text == body, "the pasted body")
        clipboard.put("something else")
        keyboard.press("ctrl+s")
        person.editor_gone(program)
        person.call_panel(program)
        keyboard.press("Return")
        program.wait_for_no_panel()
        self.assertEqual(clipboard.text(), body)

    def test_cancel_in_the_fill_in_sheet_stays_in_the_panel_and_copies_nothing(self):
        program = self.started()
        person.make_prompt(program, "Greeting", "Hello {name}")
        clipboard.put("untouched")
        panel = person.call_panel(program)
        person.search(program, "gre", "Greeting")
        keyboard.press("Return")
        program.ui.find("name", "text")
        keyboard.press("Escape")
        program.ui.gone("name", "text")
        self.assertEqual(person.search_field(program).text, "gre")
        self.assertTrue(panel.is_visible)
        self.assertEqual(clipboard.text(), "untouched")
        keyboard.press("Escape")
        program.wait_for_no_panel()


if __name__ == "__main__":
    unittest.main()
