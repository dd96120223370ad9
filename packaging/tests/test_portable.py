# SPDX-License-Identifier: GPL-3.0-or-later
"""The portable package: unpacked in a folder with an awkward name, it runs and can be put into the menu."""

import os
import subprocess
import tarfile
import unittest
from pathlib import Path

from converter import TITLE
from desktop import wait_for
from package_case import MANUAL_PAGES, MODULE, PROGRAM_FILES, SAMPLE_TEXT, SHARED_FILES, PackageCase, User, only_package

# A double quote is missing on purpose: the command line that the program builds for its engine cannot hold one.
AWKWARD = "Übung & Straße, 文書 $HOME `x` 100% \\ it's"


def files_below(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if not path.is_dir()}


class Portable(PackageCase):
    def setUp(self):
        super().setUp()
        self.user = User(self.folder, 65534)
        place = self.folder / AWKWARD
        place.mkdir()
        with tarfile.open(only_package("*.tar.gz")) as archive:
            self.assertEqual({name.split("/")[0] for name in archive.getnames()},
                             {only_package("*.tar.gz").name.removesuffix(".tar.gz")})
            archive.extractall(place)
        self.user.own(place)
        self.program_folder, = place.iterdir()
        self.program = self.program_folder / "quorra-converter"

    def test_holds_what_it_needs(self):
        expected = PROGRAM_FILES | {MODULE} | {f"share/{name}" for name in SHARED_FILES | MANUAL_PAGES}
        expected |= {"LICENSE", "add-to-menu", "DEPENDENCIES"}
        documents = {"README.md", "CHANGELOG.md"}
        self.assertEqual(files_below(self.program_folder) - documents, expected)
        for name in PROGRAM_FILES | {MODULE}:
            libraries = subprocess.run(["ldd", self.program_folder / name], check=True, text=True,
                                       stdout=subprocess.PIPE).stdout
            self.assertNotIn("not found", libraries)
            self.assertNotIn(os.environ["QUORRA_BUILD"], libraries)

    def test_lists_packages_that_exist(self):
        packages = (self.program_folder / "DEPENDENCIES").read_text(encoding="utf-8").split()
        self.assertLessEqual({"poppler-data", "tesseract-ocr-eng", "libreoffice-writer-nogui"}, set(packages))
        for library in ("libqt6widgets6", "libpoppler", "libtesseract"):
            self.assertTrue(any(name.startswith(library) for name in packages), packages)
        subprocess.run(["dpkg-query", "--show", *packages], check=True, stdout=subprocess.DEVNULL)

    def test_installing_gives_the_same_folder(self):
        target = self.folder / "installed"
        subprocess.run([os.environ["QUORRA_CMAKE"], "--install", os.environ["QUORRA_BUILD"], "--prefix", target],
                       check=True, stdout=subprocess.DEVNULL)
        self.assertEqual(files_below(target), files_below(self.program_folder))

    def test_converts_a_file(self):
        converter = self.start(self.program, self.user, self.program_folder)
        self.convert_sample(converter, self.user, "PDF to Text")
        self.assertEqual(converter.close(), 0)
        self.assertIn(SAMPLE_TEXT, (self.user.output / "report.txt").read_text(encoding="utf-8"))
        # The folder can be written: nothing goes elsewhere.
        self.assert_private(self.program_folder / "settingquorra.ini", 0o600)
        self.assertFalse((self.user.home / ".config/quorra-converter").exists())

    def test_menu_entry_starts_the_program_and_goes_again(self):
        menu_folder = self.user.home / ".local/share/applications"
        entry = menu_folder / "quorra-converter.desktop"
        self.run_as_user(self.program_folder / "add-to-menu")
        subprocess.run(["desktop-file-validate", entry], check=True)
        icon, = [line.removeprefix("Icon=") for line in entry.read_text().splitlines() if line.startswith("Icon=")]
        self.assertTrue(Path(icon.replace("\\\\", "\\")).is_file(), icon)

        self.desktop.start(self.user.command("gio", "launch", entry), self.user.environment(), cwd="/")
        self.desktop.window(TITLE)
        wait_for("settings beside the program", (self.program_folder / "settingquorra.ini").exists)
        self.desktop.press_until("alt+F4", "end of the program", lambda: not self.desktop.windows(TITLE))

        self.run_as_user(self.program_folder / "add-to-menu", "--remove")
        self.assertEqual(list(menu_folder.iterdir()), [])

    def run_as_user(self, *command):
        subprocess.run(self.user.command(*command), check=True, stdout=subprocess.DEVNULL,
                       env={**self.desktop.environment, **self.user.environment()})


if __name__ == "__main__":
    unittest.main()
