"""The program as it is installed: started by what the desktop reads of it, while it runs and while it doesn't."""
import os
import shlex
import subprocess
import unittest

from gi.repository import Gio, GLib

from driver import bus, keyboard, person
from driver.desktop_case import DesktopCase
from driver.program import Activated
from driver.waiting import stays, until

ENTRY = "app.Quillstacks.desktop"


class Installed(DesktopCase):
    def setUp(self):
        super().setUp()
        self.home.skip_welcome()
        bus.start_programs_in(self.home)
        self.entry = Gio.DesktopAppInfo.new(ENTRY)
        self.assertIsNotNone(self.entry, "the desktop doesn't know the entry")

    def activated(self):
        program = Activated()
        self.addCleanup(program.end)
        return program

    def command(self, group):
        """The entry's Exec line, for desktops that start programs by their commands alone."""
        entry = GLib.KeyFile()
        entry.load_from_file(self.entry.get_filename(), GLib.KeyFileFlags.NONE)
        return shlex.split(entry.get_string(group, "Exec"))

    def test_the_entry_is_the_installed_one(self):
        prefix = os.path.realpath(os.environ["DESKTOP_PREFIX"])
        self.assertTrue(os.path.realpath(self.entry.get_filename()).startswith(prefix + "/"))
        self.assertTrue(self.entry.get_boolean("DBusActivatable"))
        self.assertEqual(self.entry.list_actions(), ["quick-access", "new-prompt"])

    def test_a_click_on_the_icon_starts_the_program(self):
        self.assertTrue(self.entry.launch([], None))
        program = self.activated()
        window = program.main_window()
        until(lambda: window.has_keyboard, "the main window to have the keyboard")
        self.assertTrue(self.home.store.exists())

    def test_quick_access_in_the_icons_menu_starts_the_program_with_the_panel(self):
        self.entry.launch_action("quick-access", None)
        program = self.activated()
        program.wait_for_panel()
        person.search_field(program)
        stays(lambda: program.panel, "the panel")

    def test_new_prompt_in_the_icons_menu_starts_the_program_with_the_editor(self):
        self.entry.launch_action("new-prompt", None)
        program = self.activated()
        field = person.title_field(program)
        keyboard.type_text("From the menu")
        until(lambda: field.text == "From the menu", "the title to hold what was typed")

    def test_the_actions_serve_while_the_program_runs(self):
        self.entry.launch([], None)
        program = self.activated()
        program.main_window()
        person.close_main_window(program)
        self.entry.launch_action("quick-access", None)
        program.wait_for_panel()
        self.entry.launch_action("quick-access", None)
        program.wait_for_no_panel()
        self.assertEqual(bus.owner(), program.pid)

    def test_the_action_bound_to_a_key_starts_the_program_with_the_panel(self):
        subprocess.run(self.command("Desktop Action quick-access"), check=True)
        program = self.activated()
        program.wait_for_panel()
        subprocess.run(self.command("Desktop Action quick-access"), check=True)
        program.wait_for_no_panel()
        self.assertEqual(bus.owner(), program.pid)

    def test_the_new_prompt_action_bound_to_a_key_starts_the_program_with_the_editor(self):
        subprocess.run(self.command("Desktop Action new-prompt"), check=True)
        person.title_field(self.activated())

    def test_the_command_of_the_entry_starts_the_program_once(self):
        self.program_path, = self.command("Desktop Entry")
        program = self.started()
        self.assertEqual(bus.owner(), program.pid)
        self.assertEqual(self.start().wait_end(), 0)

    def test_the_status_area_gets_the_icon_that_it_can_recolour(self):
        area = self.status_area()
        self.entry.launch([], None)
        self.activated()
        self.assertEqual(area.icon_name(area.wait_for_icon()), "app.Quillstacks-symbolic")


if __name__ == "__main__":
    unittest.main()
