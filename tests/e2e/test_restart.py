"""What was saved is there again, however the program ended."""
import stat
import unittest

from driver import clipboard, keyboard, person
from driver.desktop_case import DesktopCase
from driver.waiting import until


class Restart(DesktopCase):
    def test_saved_prompts_are_there_after_the_program_was_ended_and_started_again(self):
        program = self.started()
        person.make_prompt(program, "First", "one")
        person.make_prompt(program, "Second", "two")
        self.assertEqual(program.end(), 0)

        program = self.started()
        until(lambda: person.list_rows(program) == ["Second", "First"], "both prompts")

    def test_saved_prompts_are_there_after_the_process_was_killed(self):
        program = self.started()
        person.make_prompt(program, "Saved", "kept {{value}}")
        program.kill()

        program = self.started()
        program.ui.find("Saved", "list item")
        person.call_panel(program)
        keyboard.press("Return")
        person.fill_in(program, [("value", "safe")])
        program.wait_for_no_panel()
        self.assertEqual(clipboard.text(), "kept {safe}")

    def test_a_kill_while_a_prompt_is_being_written_leaves_the_others(self):
        program = self.started()
        person.make_prompt(program, "Saved", "kept")
        keyboard.press("ctrl+n")
        person.title_field(program)
        keyboard.type_text("Half a ti")
        program.kill()

        program = self.started()
        until(lambda: person.list_rows(program) == ["Saved"], "the saved prompt alone")

    def test_folder_and_files_are_the_users_alone(self):
        program = self.started()
        person.make_prompt(program, "Private", "words")
        folder = self.home.store.parent
        self.assertEqual(stat.S_IMODE(folder.stat().st_mode), 0o700)
        files = {file.name: stat.S_IMODE(file.stat().st_mode) for file in folder.iterdir()}
        self.assertIn("Quillstacks.store", files)
        self.assertEqual(set(files.values()), {0o600}, files)
        for file in self.home.preferences.parent.glob("*"):
            self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o600, file)


if __name__ == "__main__":
    unittest.main()
