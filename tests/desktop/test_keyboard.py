# SPDX-License-Identifier: GPL-3.0-or-later
"""The whole program without a mouse: all controls can be reached with Tab and operated with keys."""

import unittest

from converter import ADD_TITLE, FOLDER_TITLE, TITLE, script
from desktop import wait_for
from desktop_case import DesktopCase
from test_drag import RECORD

STOPS = ["Add", "Delete", "Clear", "Setting", "Start", "About", "kinds", "files", "Output Folder", "Choose"]


class Keyboard(DesktopCase):
    def setUp(self):
        super().setUp()
        self.app = self.converter(engine=script(self.folder / "engine", RECORD))
        self.stop = STOPS[0]  # where the keyboard is in a fresh window

    def go(self, name):
        """Presses Tab until the control has the keyboard focus, counted from the control that had it before."""
        times = (STOPS.index(name) - STOPS.index(self.stop)) % len(STOPS)
        self.desktop.window(TITLE)
        if times:
            self.desktop.keys(*["Tab"] * times)
        self.stop = name

    def press(self, name, key="space"):
        self.go(name)
        self.desktop.keys(key)

    def add(self, names):
        self.press("Add")
        self.app.answer_add_dialog(self.inputs, names)

    def record(self):
        record = self.folder / "program" / "inputs"
        return [line.rsplit("/", 1)[1] for line in record.read_text().split()] if record.exists() else []

    def test_convert_by_keys_alone(self):
        self.add(self.empty_pdfs("a.pdf", "b.pdf", "c.pdf"))
        self.go("kinds")
        self.desktop.keys("Home", "Down", "Down", "Down")
        wait_for("the kind", lambda: self.app.settings().get("ListWidgetCurrtentItemRow") == "3")
        self.press("Choose")
        self.app.answer_folder_dialog(self.output)
        self.go("files")
        self.desktop.keys("Home", "Down")
        self.picture("keyboard-row", self.app.window)
        self.press("Delete")
        self.press("Start")
        wait_for("both files", lambda: self.record() == ["a.pdf", "c.pdf"])
        self.app.wait_for_end()
        self.press("Clear")
        self.add(self.empty_pdfs("d.pdf"))
        self.go("Output Folder")
        self.desktop.keys("ctrl+a")
        self.desktop.type(str(self.inputs))  # a typed folder counts for the run
        self.press("Start")
        wait_for("the file of the cleared list", lambda: self.record() == ["a.pdf", "c.pdf", "d.pdf"])

    def test_dialogs_close_by_return_and_escape(self):
        self.press("Setting")
        self.desktop.window("Setting")
        self.desktop.keys("Return")
        self.desktop.gone("Setting")
        wait_for("what Apply stores", lambda: "ColorDepth" in self.app.settings())
        before = self.app.settings()
        self.press("Setting")
        self.desktop.window("Setting")
        self.desktop.keys("Escape")
        self.desktop.gone("Setting")
        self.assertEqual(self.app.settings(), before)
        for key in ("Return", "Escape"):
            self.press("About")
            self.desktop.window("About")
            self.desktop.keys(key)
            self.desktop.gone("About")
            self.desktop.window(TITLE)
        for stop, title in (("Add", ADD_TITLE), ("Choose", FOLDER_TITLE)):
            self.press(stop)
            self.desktop.window(title)
            self.desktop.keys("Escape")
            self.desktop.gone(title)
        self.add(self.empty_pdfs("a.pdf"))
        for key in ("Return", "Escape"):
            self.press("Start")  # no output folder yet
            self.desktop.window("Warning")
            self.picture("warning")
            self.desktop.keys(key)
            self.desktop.gone("Warning")
        self.assertIsNone(self.app.process.poll(), "the program still runs")

    def test_settings_by_keys(self):
        self.go("kinds")
        self.desktop.keys("End")
        wait_for("the kind", lambda: self.app.settings().get("ListWidgetCurrtentItemRow") == "8")
        self.press("Setting")
        self.desktop.window("Setting")
        # From the tabs: owner password, user password, colour depth, format, resize, (sizes are off), resolution.
        self.desktop.keys("Tab")
        self.desktop.type("owner")
        self.desktop.keys("Tab")
        self.desktop.type("user")
        self.desktop.keys("Tab", "Tab", "End", "Tab", "space", "Tab")
        self.desktop.type("800")
        self.desktop.keys("Tab")
        self.desktop.type("0600")
        self.picture("settings-by-keys")
        self.desktop.keys("Return")
        self.desktop.gone("Setting")
        wait_for("the stored values", lambda: self.app.settings().get("Width") == "800")
        stored = self.app.settings()
        self.assertEqual({key: stored[key] for key in ("MasterPassword", "UserPassword", "ConverterFormat",
                                                       "ResizePage", "Width", "Height")},
                         {"MasterPassword": "owner", "UserPassword": "user", "ConverterFormat": "21",
                          "ResizePage": "1", "Width": "800", "Height": "600"})


if __name__ == "__main__":
    unittest.main()
