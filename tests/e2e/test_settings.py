"""What the settings change outside the program's own window: the session's start, the library, the clipboard."""
import json
import os
import unittest

from driver import clipboard, keyboard, person
from driver.desktop_case import DesktopCase
from driver.waiting import until

COMMAND = ('journalctl SYSLOG_IDENTIFIER=app.Quillstacks --since "1 hour ago" -o short-precise > '
           '"$(xdg-user-dir DESKTOP)/Quillstacks_logs.txt"')


class Settings(DesktopCase):
    def opened(self, program, tab="General"):
        """The settings' sheet, on one of its tabs."""
        keyboard.press("ctrl+comma")
        sheet = program.ui.find("Settings", "dialog")
        if tab != "General":
            sheet.find(tab, "radio button").click()
        return sheet

    def test_the_login_switch_writes_the_sessions_entry_and_takes_it_away(self):
        entry = self.home.config / "autostart" / "app.Quillstacks.desktop"
        program = self.started()
        sheet = self.opened(program)
        switch = sheet.find("Launch at Login", "check box")
        switch.press()
        sheet.find("Quillstacks will start after you log in.", "label")
        self.assertIn(f'Exec="{os.path.realpath(self.program_path)}"', entry.read_text())
        keyboard.press("Return")
        program.ui.gone("Settings", "dialog")

        sheet = self.opened(program)
        switch = sheet.find("Launch at Login", "check box")
        until(lambda: "checked" in switch.states, "the switch to show what the session does")
        switch.press()
        sheet.find("Launch at login is disabled.", "label")
        self.assertFalse(entry.exists())

    def test_an_autostart_folder_that_can_not_be_made_is_said_and_the_switch_goes_back(self):
        (self.home.config / "autostart").write_text("in the way")
        program = self.started()
        sheet = self.opened(program)
        switch = sheet.find("Launch at Login", "check box")
        switch.press()
        sheet.find(role="label", name_starts="Could not update login item: ")
        until(lambda: "checked" not in switch.states, "the switch to go back")

    def test_a_restore_empties_library_and_settings_and_the_next_start_is_a_first_one(self):
        self.home.preferences.parent.mkdir(mode=0o700)
        self.home.preferences.write_text(json.dumps(
            {"appearanceMode": "light", "globalHotkeyKeyCode": 40, "globalHotkeyModifiers": 0x180000, "var_a": "x"}))
        program = self.started()
        person.make_prompt(program, "Doomed", "words")
        sheet = self.opened(program, "Advanced")
        sheet.find("Restore Quillstacks", "push button").press()
        alert = program.ui.find(role="dialog", name_starts="Restore Quillstacks?")
        alert.find("Restore", "push button").press()
        sheet.find("Quillstacks has been restored to factory defaults.", "label")
        keyboard.press("Escape")
        until(lambda: person.list_rows(program) == [], "an empty list")
        person.call_panel(program)  # by the default hot key
        keyboard.press("Escape")
        self.assertEqual(json.loads(self.home.preferences.read_text()), {})
        program.end()

        again = self.start(welcome=True)
        again.leave_welcome()
        self.assertEqual(person.list_rows(again), [])

    def test_the_logs_command_goes_on_the_clipboard(self):
        program = self.started()
        self.opened(program, "Advanced").find("How to Export Logs", "push button").press()
        program.ui.find("Export Debug Logs", "dialog").find("Copy to clipboard", "push button").press()
        until(lambda: clipboard.text() == COMMAND, "the command on the clipboard")

    def test_a_build_without_an_origin_says_so_when_it_is_asked_for_updates(self):
        program = self.started()
        sheet = self.opened(program)
        button = sheet.find("Check for Updates Now", "push button")
        button.press()
        program.ui.find("This build of Quillstacks names no place to get updates from.", "label")
        keyboard.press("Return")
        until(lambda: button.is_enabled, "the button to be there again")


if __name__ == "__main__":
    unittest.main()
