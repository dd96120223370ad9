# SPDX-License-Identifier: GPL-3.0-or-later
"""Shared by the tests of packages: an ordinary user of the package on a virtual desktop.

Environment: QUORRA_SOURCE this project's folder, QUORRA_VERSION its version, QUORRA_BUILD the build folder,
QUORRA_PACKAGES the folder with the packages.
"""

import os
import shutil
import tempfile
import unittest
from pathlib import Path

from converter import Converter
from desktop import LIMIT, Desktop

SOURCE = Path(os.environ["QUORRA_SOURCE"])
PACKAGES = Path(os.environ["QUORRA_PACKAGES"])
AS_ROOT = os.geteuid() == 0
PROGRAM_FILES = {"quorra-converter", "Qtminw"}
MODULE = "Qtminw-ocr.so"  # what reads scanned pages; found beside the engine
MANUAL_PAGES = {"man/man1/Qtminw.1", "man/man1/quorra-converter.1"}  # compressed in the Debian package
SHARED_FILES = {
    "bash-completion/completions/Qtminw",
    "applications/quorra-converter.desktop",
    "metainfo/example.marbeck.QuorraConverter.metainfo.xml",
    "icons/hicolor/scalable/apps/quorra-converter.svg",
    *(f"icons/hicolor/{size}x{size}/apps/quorra-converter.png" for size in (16, 22, 24, 32, 48, 64, 128, 256)),
}
SAMPLE_TEXT = "Lower Mill Print Works"


def only_package(pattern):
    """The one package file of this name pattern."""
    found = sorted(PACKAGES.glob(pattern))
    assert len(found) == 1, f"{pattern}: {found}"
    return found[0]


class User:
    """An ordinary user: root's tests take one of their own by number, others are the user that runs the test. Has a
    home, a folder with a sample document and an output folder."""

    def __init__(self, folder, number):
        self.number = number if AS_ROOT else os.geteuid()
        self.home = folder / f"home{number}"
        self.inputs = self.home / "in"
        self.output = self.home / "out"
        for made in (self.inputs, self.output):
            made.mkdir(parents=True)
        shutil.copy(SOURCE / "samples/report.pdf", self.inputs)
        self.own(self.home)

    def own(self, folder):
        """Makes the folder with all it holds this user's."""
        if AS_ROOT:
            for path in (folder, *folder.rglob("*")):
                os.chown(path, self.number, self.number, follow_symlinks=False)

    def command(self, *words):
        """The command line that runs `words` as this user."""
        words = [str(word) for word in words]
        if not AS_ROOT:
            return words
        return ["setpriv", f"--reuid={self.number}", f"--regid={self.number}", "--clear-groups", "--", *words]

    def environment(self):
        return {"HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home)}


class PackageCase(unittest.TestCase):
    """A test with a folder of its own that every user can look into, and with a desktop."""

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="quorra-package-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.folder.chmod(0o755)
        self.desktop = Desktop()
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__, None, None, None)

    def start(self, program, user, settings_folder):
        """Starts the program as the user; its settings are expected in settings_folder."""
        return Converter.of(self.desktop, user.command(program), settings_folder, user.environment())

    def convert_sample(self, converter, user, kind):
        """Picks a kind and converts the user's sample document to it."""
        converter.pick(kind)
        converter.choose(user.output)
        converter.add(user.inputs, ["report.pdf"])
        converter.start()
        converter.wait_for_end(LIMIT)

    def assert_private(self, path, mode):
        self.assertEqual(oct(path.stat().st_mode & 0o777), oct(mode), path)
