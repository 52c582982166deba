"""The .deb that `cpack` makes of a build."""
import hashlib
import io
import os
import subprocess
import tarfile
import tempfile
import unittest
from pathlib import Path

BUILD = Path(os.environ["QUILLSTACKS_BUILD"])
STAGED = Path(os.environ["QUILLSTACKS_STAGED"])
VERSION = f"{os.environ['QUILLSTACKS_VERSION']}-{os.environ['QUILLSTACKS_REVISION']}"


def output(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout


class DebianPackage(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        place = tempfile.TemporaryDirectory()
        cls.addClassCleanup(place.cleanup)
        # As on a machine where each person has a group of their own.
        subprocess.run(["cpack", "-G", "DEB", "--config", BUILD / "CPackConfig.cmake", "-B", place.name], check=True,
                       capture_output=True, umask=0o002)
        cls.file, = Path(place.name).glob("*.deb")
        cls.files = tarfile.open(fileobj=io.BytesIO(output("dpkg-deb", "--fsys-tarfile", cls.file)))
        cls.addClassCleanup(cls.files.close)

    def field(self, name):
        return output("dpkg-deb", "--field", self.file, name).decode().strip()

    def packages(self, field):
        """The names of a list of packages, without their versions; alternatives stay together."""
        return {entry.partition("(")[0].strip() for entry in self.field(field).split(",")}

    def read(self, path):
        return self.files.extractfile(f"./{path}").read()

    def test_is_named_after_version_build_number_and_architecture(self):
        architecture = output("dpkg", "--print-architecture").decode().strip()
        self.assertEqual(self.file.name, f"quillstacks_{VERSION}_{architecture}.deb")
        self.assertEqual(self.field("Package"), "quillstacks")
        self.assertEqual(self.field("Version"), VERSION)
        self.assertEqual(self.field("Architecture"), architecture)

    def test_needs_what_it_links_and_what_it_loads_or_calls(self):
        needed = self.packages("Depends")
        self.assertLessEqual({"libc6", "libqt6widgets6", "libqt6dbus6", "libqcoro6dbus0", "libsqlite3-0", "libicu72",
                              "libsimdjson14", "libssl3", "libsystemd0", "libxcb-keysyms1"}, needed)
        self.assertLessEqual({"libqt6svg6", "libglib2.0-bin"}, needed)

    def test_recommends_what_a_desktop_usually_has(self):
        self.assertLessEqual({"default-dbus-session-bus | dbus-session-bus", "fonts-dejavu-core", "qt6-wayland",
                              "xdg-desktop-portal"}, self.packages("Recommends"))

    def test_has_the_files_of_an_installation_below_usr(self):
        packed = {member.name.removeprefix("./usr/") for member in self.files if not member.isdir()}
        self.assertEqual(packed, {str(path.relative_to(STAGED)) for path in STAGED.rglob("*") if not path.is_dir()})

    def test_belongs_to_root_and_is_written_by_nobody_else(self):
        for member in self.files:
            wanted = 0o755 if member.isdir() or member.name == "./usr/bin/quillstacks" else 0o644
            self.assertEqual((member.uid, member.gid, member.mode & 0o7777), (0, 0, wanted), member.name)

    def test_the_bus_starts_the_packaged_program(self):
        self.assertIn(b"\nExec=/usr/bin/quillstacks\n", self.read("usr/share/dbus-1/services/app.Quillstacks.service"))

    def test_the_program_has_no_symbols_for_debuggers(self):
        with tempfile.NamedTemporaryFile() as program:
            program.write(self.read("usr/bin/quillstacks"))
            program.flush()
            sections = output("readelf", "--sections", "--wide", program.name).decode()
        self.assertIn(".text", sections)
        self.assertNotIn(".symtab", sections)
        self.assertNotIn(".debug_info", sections)

    def test_its_list_of_sums_is_complete_and_true(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["dpkg-deb", "--control", self.file, folder], check=True)
            lines = (Path(folder) / "md5sums").read_text().splitlines()
        sums = {name: value for value, name in (line.split("  ", 1) for line in lines)}
        wanted = {member.name.removeprefix("./"): hashlib.md5(self.read(member.name.removeprefix("./"))).hexdigest()
                  for member in self.files if not member.isdir()}
        self.assertEqual(sums, wanted)

    def test_software_centres_find_everything_in_its_place(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["dpkg-deb", "--extract", self.file, folder], check=True)
            check = subprocess.run(["appstreamcli", "validate-tree", "--no-net", "--pedantic", folder],
                                   capture_output=True, text=True)
        self.assertEqual(check.returncode, 0, check.stdout)

    def test_its_changelog_begins_with_this_version(self):
        with tempfile.TemporaryDirectory() as folder:
            packed = Path(folder) / "changelog.gz"
            packed.write_bytes(self.read("usr/share/doc/quillstacks/changelog.Debian.gz"))
            self.assertEqual(output("dpkg-parsechangelog", "--file", packed, "--show-field", "Version").decode().strip(),
                             VERSION)


if __name__ == "__main__":
    unittest.main()
