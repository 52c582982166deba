"""A person who can't see the screen finds every control by name, and sheets, lists and rows as what they are."""
import unittest

from driver import keyboard, person
from driver.desktop_case import DesktopCase
from driver.waiting import until

# What a person can act on, and so must know the name of.
ACTED_ON = {"text", "push button", "check box", "toggle button", "radio button", "list item", "list", "dialog"}


class AssistiveTools(DesktopCase):
    def assert_all_named(self, root):
        nameless = [control.role for control in root.all() if control.role in ACTED_ON and not control.name]
        self.assertEqual(nameless, [], root.tree())

    def test_every_control_of_the_main_window_has_a_name(self):
        program = self.started()
        self.assert_all_named(program.ui)
        person.make_prompt(program, "Named", "words")
        self.assert_all_named(program.ui)
        program.ui.find("Prompts", "list")
        program.ui.find("Search", "text")
        program.ui.find("Named", "list item")

    def test_the_editor_is_a_dialog_with_named_controls(self):
        program = self.started()
        keyboard.press("ctrl+n")
        editor = program.ui.find("New Prompt", "dialog")
        for name in ("Title", "Prompt text"):
            editor.find(name, "text")
        for name in ("Create Tag", "Collapse Variables", "Cancel", "Create"):
            editor.find(name, "push button")
        self.assert_all_named(editor)

    def test_the_alert_is_a_dialog_that_says_what_it_asks(self):
        program = self.started()
        person.make_prompt(program, "Doomed", "words")
        program.ui.find("Doomed", "list item").click()
        keyboard.press("Delete")
        alert = program.ui.find(role="dialog", name_starts="Delete Prompt?")
        self.assert_all_named(alert)
        keyboard.press("Escape")
        until(lambda: not program.ui.has(role="dialog"), "the alert to close")
        self.assertEqual(person.list_rows(program), ["Doomed"])

    def test_every_control_of_panel_and_fill_in_has_a_name(self):
        program = self.started()
        person.make_prompt(program, "Ask", "{name}")
        person.close_main_window(program)
        person.call_panel(program)
        self.assert_all_named(program.ui)
        keyboard.press("Return")
        sheet = program.ui.find("Fill in Variables", "dialog")
        for name in ("Clear", "Show Preview", "Cancel", "Copy"):
            sheet.find(name, "push button")
        self.assert_all_named(sheet)

    def test_the_selected_row_is_told(self):
        program = self.started()
        person.make_prompt(program, "First", "one")
        person.make_prompt(program, "Second", "two")
        program.ui.find("First", "list item").click()
        until(lambda: "selected" in program.ui.find("First", "list item").states, "the row to be selected")
        self.assertNotIn("selected", program.ui.find("Second", "list item").states)


if __name__ == "__main__":
    unittest.main()
