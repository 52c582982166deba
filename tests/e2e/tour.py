"""The tour: two prompts written, one of them rated by a model, the other called up from another program, filled in, and
read from the clipboard; then a library imported.

tour.py FOLDER: the program is in QUILLSTACKS_PROGRAM; a picture of each step goes into the folder. Ends with 1 when a step
fails, and says which. TOUR_APPEARANCE is "dark" or "light"; without it the default counts.
"""
import json
import os
import sys
import tempfile
import traceback
from pathlib import Path

from driver import clipboard, keyboard, person, windows
from driver.ollama import Ollama
from driver.other_program import OtherProgram
from driver.program import Home, Program
from driver.waiting import until

FIRST = ("Translate a text", "Translate into {language}, and keep the tone:\n\n{text}")
SECOND = ("Review code", "Review this change as a careful colleague would.\nName what is wrong, then what is missing.")
VALUES = [("language", "French"), ("text", "The kettle is on.")]
SAMPLES = Path(__file__).resolve().parents[2] / "resources" / "sample-library.json"
EXPECTED = "Translate into French, and keep the tone:\n\nThe kettle is on."


class Tour:
    def __init__(self, folder):
        self._folder = Path(folder)
        self._folder.mkdir(parents=True, exist_ok=True)
        for old in self._folder.glob("*.png"):
            old.unlink()
        self._home = Home(tempfile.mkdtemp(prefix="tour-", dir=os.environ["HOME"]))
        self._ollama = Ollama()
        self._home.preferences.parent.mkdir(mode=0o700)
        self._home.preferences.write_text(json.dumps(self._ollama.preferences() | self._appearance()))
        self._count = 0
        self._step = "start the program"
        self._program = None
        self._other = None

    @staticmethod
    def _appearance():
        wanted = os.environ.get("TOUR_APPEARANCE")
        return {"appearanceMode": wanted} if wanted else {}

    def _begin(self, step):
        self._step = step

    def _done(self):
        """The picture of a step that went well."""
        self._count += 1
        name = f"{self._count:02}-{self._step.replace(' ', '-')}.png"
        windows.settle()
        windows.screenshot(self._folder / name)
        print(f"  {self._count:2}  {self._step}  ({name})", flush=True)

    def _write_by_keys(self):
        self._begin("an empty library")
        self._program = Program(os.environ["QUILLSTACKS_PROGRAM"], self._home)
        window = self._program.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        self._program.ui.find("No prompts yet")
        self._done()

        self._begin("write a prompt by keys")
        person.begin_prompt(self._program, *FIRST)
        self._done()
        self._begin("save it")
        person.save_prompt(self._program, FIRST[0])
        self._done()

    def _write_by_mouse(self):
        self._begin("write another with the mouse")
        ui = self._program.ui
        ui.find("New Prompt", "push button").click()
        person.title_field(self._program).click()
        keyboard.type_text(SECOND[0])
        editor = ui.find("Prompt text", "text")
        editor.click()
        keyboard.type_text(SECOND[1])
        until(lambda: editor.text == SECOND[1], "the body to hold what was typed")
        self._done()
        self._begin("have it rated by a model")
        ui.find("Analyze", "push button").click()
        ui.find("Quality Score", "label")
        self._done()
        self._begin("two prompts in the list")
        ui.find("Create", "push button").click()
        person.editor_gone(self._program)
        until(lambda: person.list_rows(self._program) == [SECOND[0], FIRST[0]], "both prompts in the list")
        self._done()

    def _call(self):
        self._begin("close the window and work elsewhere")
        person.close_main_window(self._program)
        self._other = OtherProgram("Another program", "900x560+80+90")
        self._other.click_into()
        assert windows.listed(self._program.pid) == [], "a window of the program is still there"
        self._done()

        self._begin("call the panel by its hot key")
        person.call_panel(self._program)
        until(lambda: person.panel_rows(self._program) == [SECOND[0], FIRST[0]], "both prompts in the panel")
        self._done()
        self._begin("type three letters")
        person.search(self._program, "tra", FIRST[0])
        self._done()

    def _fill_in(self):
        self._begin("choose it and fill in the first value")
        keyboard.press("Return")
        person.fill_in(self._program, VALUES[:1])
        self._done()
        self._begin("copy")
        clipboard.put("nothing yet")
        person.fill_in(self._program, VALUES[1:])
        self._program.wait_for_no_panel()
        until(lambda: self._other.window.has_keyboard, "the other program to have the keyboard back")
        self._done()

        self._begin("read the clipboard from another program")
        text = clipboard.text()
        assert text == EXPECTED, f"the clipboard holds {text!r}"
        print("\nOn the clipboard, read by xclip:\n")
        print("\n".join(f"    {line}" for line in text.split("\n")), flush=True)

    def _import(self):
        self._begin("bring the window back by a second start")
        second = Program(os.environ["QUILLSTACKS_PROGRAM"], self._home)
        assert second.wait_end() == 0, "the second start has not handed over"
        window = self._program.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        self._done()

        self._begin("import a library to try")
        ui = self._program.ui
        keyboard.press("ctrl+comma")
        ui.find("Advanced", "radio button").click()
        ui.find("Import", "push button").press()
        name = ui.find("File name:", "text")
        until(lambda: name.is_focused, "the file dialog to have the keyboard")
        keyboard.type_text(str(SAMPLES))
        keyboard.press("Return")
        ui.find("Import Result", "label")
        self._done()
        self._begin("twenty prompts more")
        for _ in range(2):  # the result, then the settings
            keyboard.press("Return")
            windows.settle()
        ui.gone("Settings", "dialog")
        ui.find("All Prompts", "list item")
        titles = [prompt["title"] for prompt in json.loads(SAMPLES.read_text())["prompts"]]
        until(lambda: set(titles) & set(person.list_rows(self._program)), "imported prompts in the list")
        self._done()

    def walk(self):
        """0 when every step went well."""
        try:
            self._write_by_keys()
            self._write_by_mouse()
            self._call()
            self._fill_in()
            self._import()
            return 0
        except Exception as error:
            windows.screenshot(self._folder / "failed.png")
            traceback.print_exc()
            log = self._program.log if self._program else ""
            print(f"\nThe tour failed at the step “{self._step}”: {error}\n{log}", file=sys.stderr)
            return 1
        finally:
            print(f"\nPictures: {self._folder}", flush=True)
            for started in (self._program, self._other, self._ollama):
                if started:
                    started.end()


if __name__ == "__main__":
    print("A tour of Quillstacks:\n", flush=True)
    sys.exit(Tour(sys.argv[1]).walk())
