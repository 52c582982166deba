"""A store that can't be opened: the reason and the path on screen, the file as it was, everything else alive."""
import os
import sqlite3
import subprocess
import unittest

from driver import keyboard, person
from driver.desktop_case import DesktopCase
from driver.waiting import stays, until


def without_rights_of_root():
    """Root may write anywhere; without these two capabilities it is a user like others."""
    if os.getuid() != 0:
        return ()
    return ("setpriv", "--bounding-set", "-dac_override,-dac_read_search")


class StoreFailure(DesktopCase):
    def make_library(self):
        program = self.started()
        person.make_prompt(program, "Precious", "words")
        program.end()

    def put_store(self, content):
        self.home.store.parent.mkdir(mode=0o700)
        self.home.store.write_bytes(content)

    def assert_failure_screen(self, program):
        program.ui.find("Failed to Initialize Data Store")
        self.assertTrue([label for label in program.ui.all(role="label") if str(self.home.store.parent) in label.name],
                        "no path on the failure screen:\n" + program.ui.tree())
        program.ui.find("Possible Solutions:")
        program.logs("Failed to create SwiftData container: ")

    def assert_hot_key_alive_without_panel(self, program):
        other = self.other_program()
        other.click_into()
        keyboard.press_hot_key()
        stays(lambda: program.panel is None, "no panel without a store")
        self.assertTrue(program.is_running)
        # It is taken by the program all the same.
        self.assertIn("Control_L", other.pressed())
        self.assertNotIn("space", other.pressed())

    def check_untouched(self, content):
        self.put_store(content)
        area = self.status_area()
        program = self.started()
        self.assert_failure_screen(program)
        self.assert_hot_key_alive_without_panel(program)
        icon = area.wait_for_icon()
        self.assertIn("Quit Quillstacks", area.labels(icon))
        area.choose(icon, "Quit Quillstacks")
        self.assertEqual(program.wait_end(), 0)
        self.assertEqual(self.home.store.read_bytes(), content)
        self.assertEqual([file.name for file in self.home.store.parent.iterdir()], ["Quillstacks.store"])

    def test_a_corrupt_store(self):
        self.check_untouched(b"This is no store.\n" * 500)

    def test_a_store_of_an_unknown_schema(self):
        path = self.home.folder / "foreign.db"
        connection = sqlite3.connect(path)
        connection.execute("CREATE TABLE someone_elses(text)")
        connection.execute("INSERT INTO someone_elses VALUES ('precious')")
        connection.commit()
        connection.close()
        self.check_untouched(path.read_bytes())

    def test_a_store_of_a_newer_version(self):
        self.make_library()
        connection = sqlite3.connect(self.home.store)
        connection.execute("PRAGMA journal_mode = DELETE")
        connection.execute("PRAGMA user_version = 999999")
        connection.commit()
        connection.close()
        before = self.home.store.read_bytes()
        self.assert_failure_screen(self.started())
        self.assertEqual(self.home.store.read_bytes(), before)

    def test_a_store_cut_off_in_the_middle(self):
        self.make_library()
        content = self.home.store.read_bytes()
        self.home.store.write_bytes(content[:len(content) // 2 - 100])
        before = self.home.store.read_bytes()
        self.assert_failure_screen(self.started())
        self.assertEqual(self.home.store.read_bytes(), before)

    def test_a_store_held_by_another_process(self):
        self.make_library()
        holder = sqlite3.connect(self.home.store, isolation_level=None)
        self.addCleanup(holder.close)
        holder.execute("BEGIN EXCLUSIVE")
        program = self.started()
        self.assert_failure_screen(program)
        self.assert_hot_key_alive_without_panel(program)
        program.end()
        holder.execute("ROLLBACK")
        holder.close()
        program = self.started()
        program.ui.find("Precious", "list item")

    def test_a_folder_that_may_not_be_written(self):
        self.make_library()
        folder = self.home.store.parent
        before = self.home.store.read_bytes()
        self.home.store.chmod(0o400)
        folder.chmod(0o500)
        self.addCleanup(folder.chmod, 0o700)
        program = self.started(wrapper=without_rights_of_root())
        self.assert_failure_screen(program)
        self.assert_hot_key_alive_without_panel(program)
        self.assertEqual(self.home.store.read_bytes(), before)

    def test_a_folder_that_can_not_be_made(self):
        self.home.data.chmod(0o500)
        self.addCleanup(self.home.data.chmod, 0o700)
        program = self.started(wrapper=without_rights_of_root())
        self.assert_failure_screen(program)
        self.assertFalse(self.home.store.parent.exists())

    def test_a_file_where_the_folder_should_be(self):
        self.home.store.parent.write_text("a file")
        program = self.started()
        self.assert_failure_screen(program)
        self.assertEqual(self.home.store.parent.read_text(), "a file")

    def test_the_window_can_not_be_made_smaller_than_it_needs(self):
        self.put_store(b"no store" * 100)
        program = self.started()
        self.assert_failure_screen(program)
        window = program.main_window()
        for asked, least in ((("900", "600"), (1280, 720)), (("1300", "600"), (1300, 720)), (("900", "750"), (1280, 750))):
            subprocess.run(["xdotool", "windowsize", str(window.number), *asked], check=True)
            until(lambda: (window.area.width, window.area.height) == least, f"{least} instead of {asked}")
            stays(lambda: (window.area.width, window.area.height) == least, f"{least} instead of {asked}")

    def test_its_quit_answers_escape(self):
        self.put_store(b"no store" * 100)
        program = self.started()
        self.assert_failure_screen(program)
        keyboard.press("Escape")
        self.assertEqual(program.wait_end(), 0)

    def test_it_shows_the_details_on_request(self):
        self.put_store(b"no store" * 100)
        program = self.started()
        self.assert_failure_screen(program)
        self.assertFalse(program.ui.has("Error Details:"))
        program.ui.find("Show Technical Details", "push button").click()
        program.ui.find("Error Details:")


if __name__ == "__main__":
    unittest.main()
