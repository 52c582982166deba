"""The library as its user keeps it: tags, older versions, and the look."""
import subprocess
import tempfile
import unittest
from pathlib import Path

from driver import keyboard, person, windows
from driver.desktop_case import DesktopCase
from driver.waiting import until


def brightness():
    """The mean of the whole screen's grey, from 0 to 1; the window fills most of it."""
    windows.settle()
    with tempfile.TemporaryDirectory() as folder:
        picture = Path(folder) / "screen.png"
        windows.screenshot(picture)
        mean = subprocess.run(["convert", str(picture), "-colorspace", "gray", "-format", "%[fx:mean]", "info:"],
                              check=True, capture_output=True, text=True).stdout
    return float(mean)


class Library(DesktopCase):
    def make_tag(self, program, name):
        keyboard.press("t")
        field = program.ui.find("Tag name", "text")
        until(lambda: field.is_focused, "the tag's name to have the keyboard")
        keyboard.type_text(name)
        until(lambda: field.text == name, "the tag's name to hold what was typed")
        keyboard.press("Return")
        program.ui.gone("Tag name", "text")

    def test_a_tag_is_made_put_on_a_prompt_and_chosen_in_the_sidebar(self):
        program = self.started()
        ui = program.ui
        person.make_prompt(program, "Plain", "Nothing special")
        self.make_tag(program, "Mail")
        keyboard.press("ctrl+n")
        person.title_field(program)
        keyboard.type_text("Reply")
        sheet = ui.find("New Prompt", "dialog")
        sheet.find("Mail", "check box").click()
        body = ui.find("Prompt text", "text")
        body.click()
        keyboard.type_text("Dear {name}")
        keyboard.press("ctrl+s")
        person.editor_gone(program)
        until(lambda: person.list_rows(program) == ["Reply", "Plain"], "both prompts in the list")

        ui.find("Mail", "list item").click()
        until(lambda: person.list_rows(program) == ["Reply"], "only the tagged prompt")

        program.kill()
        again = self.started()
        again.ui.find("Mail", "list item").click()
        until(lambda: person.list_rows(again) == ["Reply"], "the tag and its prompt after a restart")

    def test_an_older_version_is_compared_and_restored(self):
        program = self.started()
        ui = program.ui
        person.make_prompt(program, "Letter", "Dear {name}\nOld line")
        ui.find("Letter", "list item").click(times=2)
        body = ui.find("Prompt text", "text")
        body.click()
        keyboard.press("ctrl+a")
        keyboard.type_text("Dear {name}\nNew line")
        until(lambda: body.text == "Dear {name}\nNew line", "the body to hold what was typed")
        self.assertFalse(ui.has("History", "push button"))
        keyboard.press("ctrl+s")
        person.editor_gone(program)

        ui.find("Letter", "list item").click(times=2)
        ui.find("History", "push button").click()
        history = ui.find("Version History", "dialog")
        version = until(lambda: [row for row in history.all(role="list item") if row.name.startswith("Version 1")],
                        "the older version in the list")[0]
        version.click()
        history.find("Diff", "radio button").click()
        difference = history.find("Body Changes", "text")
        until(lambda: difference.text.split("\n")[:3] == ["Dear {name}", "Old line", "New line"],
              "the difference line by line")
        history.find("Restore", "push button").click()
        alert = until(lambda: [sheet for sheet in ui.all(role="dialog") if sheet.name.startswith("Restore Version?")],
                      "the question before the restore")[0]
        alert.find("Restore", "push button").click()
        ui.gone("Version History", "dialog")
        until(lambda: ui.find("Prompt text", "text").text == "Dear {name}\nOld line", "the old text in the editor")

    def test_the_look_is_changed_in_the_settings_and_kept(self):
        program = self.started()
        dark = brightness()
        keyboard.press("ctrl+comma")
        program.ui.find("Light", "radio button").click()
        keyboard.press("Return")
        program.ui.gone("Settings", "dialog")
        light = brightness()
        self.assertGreater(light, dark + 0.2)
        program.end()
        self.started()
        self.assertAlmostEqual(brightness(), light, delta=0.05)


if __name__ == "__main__":
    unittest.main()
