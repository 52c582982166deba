"""A session without an X server: what a compositor allows, the desktop's portal for the hot key, and its absence."""
import unittest

from driver import bus
from driver.compositor import Compositor
from driver.desktop_case import DesktopCase
from driver.program import MAIN
from driver.shortcuts_portal import ShortcutsPortal
from driver.waiting import stays, until

PANEL_TITLE = "Quick access — Quillstacks"
WELCOME_TITLE = "Welcome to Quillstacks"
COMMAND = "gapplication action app.Quillstacks quick-access"
BANNER = "Enable global shortcuts"
ASKED = ["Register app.Quillstacks", "CreateSession", "BindShortcuts quick-access CTRL+SHIFT+space"]


class Wayland(DesktopCase):
    def setUp(self):
        super().setUp()
        self.compositor = Compositor()
        self.addCleanup(self.compositor.end)

    def windows(self, program):
        return self.compositor.windows(program.pid)

    def started(self):
        program = self.start(wrapper=self.compositor.wrapper)
        until(lambda: self.windows(program) == [MAIN], "the main window at the compositor")
        return program

    def portal(self, person):
        portal = ShortcutsPortal(person)
        self.addCleanup(portal.end)
        return portal

    def open_settings(self, program):
        program.ui.find("Settings", "push button").press()
        return program.ui.find("Global Hotkey", "label")

    def test_shows_its_window_and_ends_in_peace(self):
        program = self.started()
        program.ui.find("No prompts yet", "label")
        program.logs("No status area found")
        self.assertEqual(program.end(), 0)
        self.assertEqual(self.windows(program), [])

    def test_a_first_start_shows_the_welcome_which_its_button_closes(self):
        program = self.start(wrapper=self.compositor.wrapper, welcome=True)
        until(lambda: set(self.windows(program)) == {WELCOME_TITLE, MAIN}, "the welcome beside the main window")
        program.ui.find("Got it, let's go!", "push button").press()
        until(lambda: self.windows(program) == [MAIN], "the welcome to be gone")

    def test_the_icon_in_the_status_area_calls_the_panel(self):
        area = self.status_area()
        program = self.started()
        area.choose(area.wait_for_icon(), "Quick Access (⇧⌘Space)")
        until(lambda: self.windows(program) == [PANEL_TITLE, MAIN], "the panel in front of the main window")

    def test_without_a_portal_the_settings_say_how_to_bind_the_desktops_action(self):
        program = self.started()
        program.ui.find(BANNER, "label")
        program.logs("No accessibility permission, hotkey registration skipped")
        self.open_settings(program)
        program.ui.find(COMMAND, "label")
        program.ui.find("Grant Permission", "push button")

    def test_without_a_portal_the_desktops_action_calls_the_panel(self):
        program = self.started()
        bus.perform("quick-access")
        until(lambda: self.windows(program) == [PANEL_TITLE, MAIN], "the panel in front of the main window")
        bus.perform("quick-access")
        until(lambda: self.windows(program) == [MAIN], "the panel to be gone")

    def test_a_person_who_agrees_is_asked_once_and_the_key_calls_the_panel(self):
        portal = self.portal("agrees")
        program = self.started()
        program.logs("Hotkey registered - keyCode: 49, modifiers: 768")
        self.assertNotIn("Failed to register hotkey", program.log)
        self.assertEqual(portal.calls(), ASKED)
        portal.press()
        until(lambda: self.windows(program) == [PANEL_TITLE, MAIN], "the panel in front of the main window")
        self.open_settings(program)
        self.assertFalse(program.ui.has(COMMAND))
        self.assertFalse(program.ui.has("Grant Permission"))
        self.assertFalse(program.ui.has(BANNER))
        self.assertEqual(portal.calls(), ASKED)

    def test_a_person_who_declines_is_asked_again_only_by_the_settings(self):
        portal = self.portal("declines")
        program = self.started()
        until(lambda: portal.calls()[:3] == ASKED, "the question")
        program.logs("Failed to register hotkey - keyCode: 49, modifiers: 768")
        stays(lambda: portal.calls().count(ASKED[-1]) == 1, "one question")
        self.open_settings(program)
        self.assertFalse(program.ui.has(COMMAND), "this desktop has shortcuts")
        portal.answer("agrees")
        program.ui.find("Grant Permission", "push button").press()
        program.ui.find("Accessibility Permission Required", "label")
        program.ui.find("Open System Settings", "push button").press()
        program.logs("Hotkey registered - keyCode: 49, modifiers: 768")
        program.ui.find("Check Again", "push button").press()
        program.ui.find("Accessibility Permission Granted", "label")
        self.assertEqual(portal.calls().count(ASKED[-1]), 2)

    def test_while_the_person_thinks_the_program_works(self):
        portal = self.portal("thinks")
        program = self.started()
        until(lambda: portal.calls() == ASKED, "the question")
        program.ui.find("New Prompt", "push button").press()
        program.ui.find("Prompt text", "text")
        self.assertNotIn("Hotkey registered", program.log)
        portal.answer("agrees")
        program.logs("Hotkey registered - keyCode: 49, modifiers: 768")
        portal.press()
        until(lambda: PANEL_TITLE in self.windows(program), "the panel")

    def test_a_portal_that_never_answers_holds_nothing_up(self):
        portal = self.portal("silent")
        program = self.started()
        until(lambda: portal.calls() == [ASKED[0], "CreateSession, left without a word"], "the question")
        program.ui.find("New Prompt", "push button").press()
        program.ui.find("Prompt text", "text")
        self.assertNotIn("Hotkey registered", program.log)
        self.assertEqual(program.end(), 0)


if __name__ == "__main__":
    unittest.main()
