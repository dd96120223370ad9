# SPDX-License-Identifier: GPL-3.0-or-later
"""The window is closed while a file is being converted, and while it is idle."""

import os
import unittest

from converter import script
from desktop import wait_for
from desktop_case import DesktopCase

# Writes its process ID, waits for the gate, then writes the output given by its last argument.
SLOW = """for output in "$@"; do :; done
echo $$ >>"${0%%/*}/started"
while [ ! -e "%(gate)s" ]; do sleep 0.05; done
echo converted >"$output"
"""


class Close(DesktopCase):
    def test_close_when_idle(self):
        self.assertEqual(self.converter().close(), 0)

    def test_close_during_a_run(self):
        gate = self.folder / "gate"
        self.addCleanup(gate.touch)
        names = self.empty_pdfs("first.pdf", "second.pdf")
        converter = self.converter(engine=script(self.folder / "engine", SLOW % {"gate": gate}))
        converter.pick("PDF to Text")
        converter.add(self.inputs, names)
        converter.choose(self.output)
        converter.start()
        started = self.folder / "program" / "started"
        wait_for("the first engine", lambda: started.exists() and started.read_text().strip())
        engine = int(started.read_text())
        self.picture("running", converter.window)
        self.assertEqual(converter.close(), 0, "exit status of the program")
        os.kill(engine, 0)  # raises if the engine ended with the program
        self.assertEqual(list(self.output.iterdir()), [])
        gate.touch()
        wait_for("the file under way", (self.output / "first.txt").exists)
        self.assertEqual(started.read_text().split(), [str(engine)], "no other file was started")
        self.assertFalse((self.output / "second.txt").exists())


if __name__ == "__main__":
    unittest.main()
