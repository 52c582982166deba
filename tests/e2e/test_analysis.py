"""A prompt rated by an Ollama server, in the editor of the real program."""
import json
import unittest

from driver import keyboard, person
from driver.desktop_case import DesktopCase
from driver.ollama import Ollama
from driver.waiting import until

TITLE, BODY = "Greet", "Say hello to {name}."


class Analysis(DesktopCase):
    def setUp(self):
        super().setUp()
        self.ollama = Ollama()
        self.addCleanup(self.ollama.end)
        self.home.preferences.parent.mkdir(mode=0o700)
        self.home.preferences.write_text(json.dumps(self.ollama.preferences()))

    def begun(self):
        """The program with a prompt in its editor that is written and not saved."""
        program = self.started()
        window = program.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        person.begin_prompt(program, TITLE, BODY)
        return program

    def test_a_prompt_is_rated_as_it_stands_in_the_editor(self):
        program = self.begun()
        program.ui.find("Analyze", "push button").click()
        for text in ("8", "/ 10", "Good", "Name the language"):
            program.ui.find(text, "label")
        path, request = self.ollama.requests[0]
        self.assertEqual(path, "/api/chat")
        self.assertEqual(sorted(request), ["messages", "model", "stream"])
        self.assertEqual(request["messages"][1]["content"], f"Analyze this prompt:\n\n{BODY}")
        person.save_prompt(program, TITLE)

    def test_the_window_answers_while_the_model_is_silent(self):
        self.ollama.hold.clear()
        program = self.begun()
        program.ui.find("Analyze", "push button").click()
        program.ui.find("Analyzing prompt...", "label")
        editor = program.ui.find("Prompt text", "text")
        editor.click()
        keyboard.press("ctrl+End")
        keyboard.type_text(" Twice.")
        until(lambda: editor.text == BODY + " Twice.", "the body to hold what was typed")
        person.save_prompt(program, TITLE)
        self.ollama.hold.set()
        program.logs("Prompt analysis completed successfully")

    def test_the_program_ends_in_order_while_the_model_is_silent(self):
        self.ollama.hold.clear()
        program = self.begun()
        program.ui.find("Analyze", "push button").click()
        program.ui.find("Analyzing prompt...", "label")
        until(lambda: self.ollama.requests, "the request")
        self.assertEqual(program.end(), 0)

    def test_an_answer_that_is_none_says_so(self):
        self.ollama.answer = "I would rather not."
        program = self.begun()
        program.ui.find("Analyze", "push button").click()
        program.ui.find("Analysis failed: Failed to parse the analysis response", "label")
        self.assertNotIn("rather not", program.log)


if __name__ == "__main__":
    unittest.main()
