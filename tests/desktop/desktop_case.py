# SPDX-License-Identifier: GPL-3.0-or-later
"""Shared by the tests on a virtual desktop.

Environment: QUORRA_BINARIES folder of quorra-converter and Qtminw, QUORRA_TOOLS folder of the tests' own programs,
QUORRA_SAMPLES the sample documents, QUORRA_PICTURES where pictures of the windows go.
"""

import os
import shutil
import tempfile
import unittest
from pathlib import Path

from converter import Converter
from desktop import Desktop

BINARIES = Path(os.environ["QUORRA_BINARIES"])
TOOLS = Path(os.environ["QUORRA_TOOLS"])
SAMPLES = Path(os.environ["QUORRA_SAMPLES"])
PICTURES = Path(os.environ["QUORRA_PICTURES"])


class DesktopCase(unittest.TestCase):
    """A test with its own desktop and temporary folder."""

    screen = (1024, 768)

    def setUp(self):
        self.folder = Path(tempfile.mkdtemp(prefix="quorra-test-"))
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        self.output = self.folder / "out"
        self.output.mkdir()
        self.inputs = self.folder / "in"
        self.inputs.mkdir()
        self.desktop = Desktop(self.screen)
        self.desktop.__enter__()
        self.addCleanup(self.desktop.__exit__, None, None, None)
        self.addCleanup(self.picture_of_failure)

    def picture_of_failure(self):
        outcome = self._outcome
        results = getattr(outcome, "result", None)
        wrong = [text for case, text in getattr(results, "failures", []) + getattr(results, "errors", [])
                 if case is self]
        if wrong or not getattr(outcome, "success", True):
            self.picture("failure-" + self.id().rsplit(".", 1)[-1])

    def converter(self, **options):
        return Converter(self.desktop, BINARIES, self.folder / "program", **options)

    def picture(self, name, window="root"):
        self.desktop.picture(PICTURES / f"{name}.png", window)

    def samples(self, *names):
        """Copies of sample documents in the test's input folder; returns their names."""
        for name in names:
            shutil.copy(SAMPLES / name, self.inputs / name)
        return list(names)

    def empty_pdfs(self, *names):
        """Creates fake documents, for engines that do not read them; returns their names."""
        for name in names:
            (self.inputs / name).write_bytes(b"%PDF-1.4\n" + b"%" * 2000)
        return list(names)
