"""What `cmake --install` puts below a prefix."""
import configparser
import gzip
import os
import stat
import struct
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

PREFIX = Path(os.environ["QUILLSTACKS_STAGED"])
VERSION = os.environ["QUILLSTACKS_VERSION"]
SIZES = (48, 64, 128, 256)
FILES = {
    "bin/quillstacks",
    "share/applications/app.Quillstacks.desktop",
    "share/dbus-1/services/app.Quillstacks.service",
    "share/doc/quillstacks/changelog.Debian.gz",
    "share/doc/quillstacks/copyright",
    "share/icons/hicolor/scalable/apps/app.Quillstacks.svg",
    "share/icons/hicolor/symbolic/apps/app.Quillstacks-symbolic.svg",
    "share/man/man1/quillstacks.1.gz",
    "share/metainfo/app.quillstacks.quillstacks.metainfo.xml",
    "share/quillstacks/sample-library.json",
    *(f"share/icons/hicolor/{size}x{size}/apps/app.Quillstacks.png" for size in SIZES),
}


def read_keys(path):
    keys = configparser.RawConfigParser(delimiters=("=",))
    keys.optionxform = str
    keys.read_string((PREFIX / path).read_text())
    return keys


class Installation(unittest.TestCase):
    def test_has_these_files_and_no_others(self):
        found = {str(path.relative_to(PREFIX)) for path in PREFIX.rglob("*") if not path.is_dir()}
        self.assertEqual(found, FILES)

    def test_everybody_may_read_it_and_only_its_owner_may_write(self):
        for path in PREFIX.rglob("*"):
            wanted = 0o755 if path.is_dir() or path.name == "quillstacks" else 0o644
            self.assertEqual(stat.S_IMODE(path.stat().st_mode), wanted, path)

    def test_the_bus_starts_the_program_below_the_same_prefix(self):
        service = read_keys("share/dbus-1/services/app.Quillstacks.service")["D-BUS Service"]
        self.assertEqual(dict(service), {"Name": "app.Quillstacks", "Exec": str(PREFIX / "bin/quillstacks")})

    def test_the_entry_names_program_icon_and_actions(self):
        entry = read_keys("share/applications/app.Quillstacks.desktop")
        main = entry["Desktop Entry"]
        self.assertEqual(main["Exec"], "quillstacks")
        self.assertEqual(main["Icon"], "app.Quillstacks")
        self.assertEqual(main["DBusActivatable"], "true")
        self.assertEqual(main["Actions"], "quick-access;new-prompt;")
        for action in ("quick-access", "new-prompt"):
            self.assertEqual(entry[f"Desktop Action {action}"]["Exec"], f"gapplication action app.Quillstacks {action}")

    def test_each_icon_has_the_size_of_its_folder_and_is_a_picture(self):
        for size in SIZES:
            icon = PREFIX / f"share/icons/hicolor/{size}x{size}/apps/app.Quillstacks.png"
            head = icon.read_bytes()[:26]
            self.assertEqual(head[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual(struct.unpack(">II", head[16:24]), (size, size))
            colours, opaque = subprocess.run(["identify", "-format", "%k %[opaque]", icon], check=True,
                                             capture_output=True, text=True).stdout.split()
            self.assertGreater(int(colours), 200, icon)
            self.assertEqual(opaque.lower(), "false", f"{icon}: the corners should be clear")

    def test_software_centres_find_the_entry_and_this_version(self):
        component = ElementTree.parse(PREFIX / "share/metainfo/app.quillstacks.quillstacks.metainfo.xml").getroot()
        self.assertEqual(component.findtext("launchable"), "app.Quillstacks.desktop")
        self.assertEqual(component.findtext("provides/binary"), "quillstacks")
        self.assertEqual(component.find("releases/release").get("version"), VERSION)

    def test_what_is_compressed_says_nothing_of_when(self):
        for path in PREFIX.rglob("*.gz"):
            self.assertEqual(path.read_bytes()[4:8], bytes(4), path)
            self.assertTrue(gzip.decompress(path.read_bytes()).strip(), path)

    def test_the_manual_can_be_read(self):
        page = subprocess.run(["mandoc", "-T", "utf8", PREFIX / "share/man/man1/quillstacks.1.gz"], check=True,
                              capture_output=True, text=True).stdout
        self.assertIn("quick-access", page)


if __name__ == "__main__":
    unittest.main()
