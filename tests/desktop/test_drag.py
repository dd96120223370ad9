# SPDX-License-Identifier: GPL-3.0-or-later
"""Files are dragged from another program's window to the list."""

import unittest

from converter import script
from desktop import wait_for
from desktop_case import TOOLS, DesktopCase

# An engine that records its inputs, in the order of the rows.
RECORD = """for last in "$@"; do before=$name; name=$last; done
echo "$before" >>"${0%/*}/inputs"
"""


class Drag(DesktopCase):
    def drag(self, converter, urls):
        """Drags the URLs to the centre of the window; returns the last report of the source."""
        source = self.desktop.start([str(TOOLS / "drag_source"), *urls])
        report = self.desktop.log("drag_source")
        window = self.desktop.window("Drag source")
        # The converter's window is in the centre of the screen: the source is placed in a corner.
        self.desktop.run("xdotool", "windowmove", window, 20, 20)
        wait_for("the source's new place", lambda: self.desktop.geometry(window)[0] < 100)
        self.desktop.move(window, 40, 60)
        self.desktop.run("xdotool", "mousedown", 1)
        steps = iter(range(45, 150, 4))
        wait_for("the drag to begin", lambda: (self.desktop.move(window, next(steps, 60), 60),
                                               "dragging" in report.read_text())[1])
        for step in range(1, 6):
            self.desktop.move(converter.window, *converter.place(200 + 40 * step, 100 + 40 * step))
        wait_for("an answer of the window", lambda: "accepted" in report.read_text() or "refused" in report.read_text())
        self.picture("drag-over")
        self.desktop.run("xdotool", "mouseup", 1)
        wait_for("the end of the drag", lambda: "dropped" in report.read_text())
        converter.settle()  # the window fetches the addresses from the source after the pointer was let go
        source.terminate()
        return report.read_text().split("\n")[-2]

    def converted(self, converter):
        """The inputs that a run passes to the engine."""
        converter.choose(self.output)
        converter.start()
        converter.wait_for_end()
        record = self.folder / "program" / "inputs"
        return record.read_text().split() if record.exists() else []

    def test_files_are_listed_up_to_the_first_folder(self):
        self.empty_pdfs("one.pdf", "two.PDF", "three.pdf")
        (self.inputs / "folder.pdf").mkdir()
        converter = self.converter(engine=script(self.folder / "engine", RECORD))
        order = ["one.pdf", "two.PDF", "folder.pdf", "three.pdf"]
        self.assertEqual(self.drag(converter, [(self.inputs / name).as_uri() for name in order]), "dropped")
        self.picture("dropped", converter.window)
        self.assertEqual(self.converted(converter), [str(self.inputs / name) for name in ("one.pdf", "two.PDF")])

    def test_files_dropped_during_a_run_are_converted(self):
        first, second = self.empty_pdfs("first.pdf", "second.pdf")
        gate = self.folder / "gate"
        engine = script(self.folder / "engine", RECORD + f'while [ ! -e "{gate}" ]; do sleep 0.05; done\n')
        converter = self.converter(engine=engine)
        converter.add(self.inputs, [first])
        converter.choose(self.output)
        converter.start()
        record = self.folder / "program" / "inputs"
        wait_for("the first file's engine", record.exists)
        self.assertEqual(self.drag(converter, [(self.inputs / second).as_uri()]), "dropped")
        self.picture("dropped-during-a-run", converter.window)
        gate.touch()
        converter.wait_for_end()
        self.assertEqual(record.read_text().split(), [str(self.inputs / name) for name in (first, second)])


if __name__ == "__main__":
    unittest.main()
