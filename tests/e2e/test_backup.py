"""A backup that outlives its library: exported and imported by the desktop's own file dialogs."""
import json
import stat

from driver import keyboard, person
from driver.desktop_case import DesktopCase
from driver.program import Home
from driver.waiting import until

MANY = 10_000  # prompts: so many that their import can be cut short


class Backup(DesktopCase):
    def open_settings(self, program):
        keyboard.press("ctrl+comma")
        program.ui.find("Advanced", "radio button").click()

    def choose(self, program, button, path):
        """Answers the file dialog that the button opens, by the name typed."""
        program.ui.find(button, "push button").press()
        name = program.ui.find("File name:", "text")
        until(lambda: name.is_focused, "the file dialog to have the keyboard")
        offered = name.text
        keyboard.press("ctrl+a")
        keyboard.type_text(str(path))
        until(lambda: name.text == str(path), "the dialog to hold the name")
        keyboard.press("Return")
        return offered

    def result(self, program):
        """The text of the result, once it is there; then it is answered."""
        text = program.ui.find(role="label", name_starts="Import completed").name
        keyboard.press("Return")
        program.ui.gone("Import Result", "label")
        return text

    def other_home(self):
        return Home(self.home.folder / "other")

    def test_a_library_is_saved_and_merged_into_another_one(self):
        program = self.started()
        person.make_prompt(program, "Reply", "Dear {name}")
        self.open_settings(program)
        backup = self.home.folder / "Mine.json"
        self.assertEqual(self.choose(program, "Export", backup.with_suffix("")), "Quillstacks-Backup.json")
        program.logs("Export saved to: Mine.json")
        data = json.loads(backup.read_text(encoding="utf-8"))
        self.assertEqual([prompt["title"] for prompt in data["prompts"]], ["Reply"])
        self.assertEqual(list(data), ["version", "exportedAt", "tags", "prompts"])
        self.assertEqual(stat.S_IMODE(backup.stat().st_mode), 0o600)
        self.assertEqual([entry.name for entry in self.home.folder.glob(".Quillstacks-*")], [])
        program.kill()

        other = self.start(self.other_home())
        window = other.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        self.open_settings(other)
        for prompts in (1, 0):  # the second time all is there already
            self.choose(other, "Import", backup)
            self.assertEqual(self.result(other), "Import completed successfully!\n\nImported:\n• 0 tags\n"
                                                 f"• {prompts} prompts\n• 0 versions")
        keyboard.press("Escape")
        other.ui.gone("Settings", "dialog")
        until(lambda: person.list_rows(other) == ["Reply"], "the imported prompt in the list")

    def many(self):
        """A backup that takes its time."""
        prompt = {"body": "long text " * 100, "createdAt": "2025-01-02T08:05:00Z", "updatedAt": "2025-02-10T17:42:10Z",
                  "tagIds": [], "versions": []}
        prompts = [{"id": f"0D7A3C11-9A54-4E7F-A3B2-{number:012X}", "title": f"Prompt {number}", **prompt}
                   for number in range(MANY)]
        path = self.home.folder / "Many.json"
        path.write_text(json.dumps({"version": "1.0", "exportedAt": "2025-03-14T09:26:53Z", "tags": [],
                                    "prompts": prompts}))
        return path

    def test_a_kill_in_the_middle_of_an_import_leaves_the_library_as_it_was(self):
        backup = self.many()
        program = self.started()
        person.make_prompt(program, "Reply", "Dear {name}")
        self.open_settings(program)
        self.choose(program, "Import", backup)
        program.logs("Import file decoded")
        program.kill()
        self.assertNotIn("Import completed", program.log)

        again = self.started()
        self.assertEqual(person.list_rows(again), ["Reply"])
        self.open_settings(again)
        self.choose(again, "Import", backup)
        self.assertIn(f"• {MANY} prompts", self.result(again))
