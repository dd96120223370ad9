# SPDX-License-Identifier: GPL-3.0-or-later
"""The files that packages carry beside the program: icons, metainfo, bundle description."""

import configparser
import os
import plistlib
import struct
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

PACKAGING = Path(os.environ["QUORRA_SOURCE"]) / "packaging"
LINUX = PACKAGING / "linux"
ICON_SIZES = [16, 22, 24, 32, 48, 64, 128, 256]
PNG_SIGNATURE = b"\x89PNG\r\n\x1a\n"


def png_size(data):
    assert data.startswith(PNG_SIGNATURE), "not a PNG file"
    return struct.unpack(">II", data[16:24])


def icns_entries(data):
    """Type and content of each entry of a macOS icon file."""
    assert data[:4] == b"icns" and struct.unpack(">I", data[4:8])[0] == len(data)
    place, entries = 8, {}
    while place < len(data):
        length = struct.unpack(">I", data[place + 4:place + 8])[0]
        entries[data[place:place + 4].decode()] = data[place + 8:place + length]
        place += length
    return entries


class Files(unittest.TestCase):
    def test_icons_of_the_desktop_theme(self):
        for size in ICON_SIZES:
            with self.subTest(size=size):
                icon = LINUX / f"icons/{size}x{size}/apps/quorra-converter.png"
                self.assertEqual(png_size(icon.read_bytes()), (size, size))
        self.assertEqual(len(list(LINUX.glob("icons/**/*.png"))), len(ICON_SIZES))

    def test_icon_of_the_bundle(self):
        sizes = {kind: png_size(picture)[0] for kind, picture
                 in icns_entries((PACKAGING / "macos/quorra-converter.icns").read_bytes()).items()}
        self.assertEqual(sizes, {"icp4": 16, "icp5": 32, "ic07": 128, "ic08": 256, "ic09": 512, "ic10": 1024,
                                 "ic11": 32, "ic12": 64, "ic13": 256, "ic14": 512})

    def test_rendering_gives_the_same_files(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([PACKAGING / "render-icons", folder], check=True)
            rendered = sorted(path.relative_to(folder) for path in Path(folder).rglob("*") if path.is_file())
            self.assertEqual(len(rendered), len(ICON_SIZES) + 1)
            for path in rendered:
                self.assertTrue((PACKAGING / path).is_file(), path)
                fresh, kept = (Path(folder) / path).read_bytes(), (PACKAGING / path).read_bytes()
                if path.suffix == ".png":
                    self.assertEqual(png_size(fresh), png_size(kept))
                else:
                    self.assertEqual(icns_entries(fresh).keys(), icns_entries(kept).keys())

    def test_desktop_entry_takes_no_files(self):
        parser = configparser.RawConfigParser()
        parser.optionxform = str
        parser.read(LINUX / "quorra-converter.desktop")
        entry = parser["Desktop Entry"]
        self.assertEqual(entry["Name"], "Marbeck Quorra Converter")
        self.assertEqual(entry["Exec"], "quorra-converter")  # the program looks at no arguments
        self.assertNotIn("MimeType", entry)

    def test_metainfo_tells_this_version(self):
        root = ElementTree.parse(LINUX / "example.marbeck.QuorraConverter.metainfo.xml").getroot()
        self.assertEqual(root.find("releases/release").get("version"), os.environ["QUORRA_VERSION"])
        self.assertEqual(root.find("launchable").text, "quorra-converter.desktop")
        self.assertIsNone(root.find("screenshots"))  # no page has any

    def test_bundle_description(self):
        with open(os.environ["QUORRA_BUNDLE_DESCRIPTION"], "rb") as file:
            description = plistlib.load(file)
        metainfo = ElementTree.parse(LINUX / "example.marbeck.QuorraConverter.metainfo.xml").getroot()
        self.assertEqual(description["CFBundleIdentifier"], metainfo.find("id").text)
        self.assertEqual(description["CFBundleVersion"], os.environ["QUORRA_VERSION"])
        self.assertEqual(description["CFBundleShortVersionString"], os.environ["QUORRA_VERSION"])
        self.assertEqual(description["CFBundleExecutable"], "Quorra Converter")
        self.assertTrue((PACKAGING / "macos" / description["CFBundleIconFile"]).is_file())
        self.assertIs(description["NSHighResolutionCapable"], True)
        self.assertIs(description["NSRequiresAquaSystemAppearance"], True)  # native controls are light as well
        self.assertNotIn("CFBundleDocumentTypes", description)
        self.assertNotIn("@", "".join(str(value) for value in description.values()))

    def test_the_oldest_macos_is_told_once(self):
        with open(os.environ["QUORRA_BUNDLE_DESCRIPTION"], "rb") as file:
            oldest = plistlib.load(file)["LSMinimumSystemVersion"]
        self.assertEqual(oldest, os.environ["QUORRA_OLDEST_MACOS"])
        self.assertGreaterEqual(tuple(map(int, oldest.split("."))), (13, 3))  # std::to_chars of floating-point numbers


if __name__ == "__main__":
    unittest.main()
