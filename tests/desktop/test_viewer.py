# SPDX-License-Identifier: GPL-3.0-or-later
"""A listed file opens in the desktop's viewer: once for a double click, once for the menu entry."""

import os
import unittest

from converter import TITLE, script
from desktop import wait_for
from desktop_case import DesktopCase


class Viewer(DesktopCase):
    def setUp(self):
        super().setUp()
        self.opened = self.folder / "opened"
        opener = self.folder / "opener"
        opener.mkdir()
        # Replaces the desktop's opener and records what it is asked to open.
        script(opener / "xdg-open", f'echo "$@" >>"{self.opened}"\n')
        self.environment = {"PATH": f"{opener}:{os.environ['PATH']}"}

    def settle(self, converter):
        """Opens and closes a dialog: afterwards all effects of earlier clicks have happened."""
        converter.click("About")
        self.desktop.window("About")
        self.desktop.keys("Return")
        self.desktop.gone("About")
        self.desktop.window(TITLE)

    def requests(self):
        return self.opened.read_text().split("\n")[:-1] if self.opened.exists() else []

    def test_double_click_opens_one_viewer(self):
        names = self.empty_pdfs("a.pdf", "b c.pdf")
        converter = self.converter(environment=self.environment)
        converter.add(self.inputs, names)
        converter.click_row(1, times=2)
        wait_for("the viewer", self.requests)
        self.settle(converter)
        self.assertEqual(len(self.requests()), 1, self.requests())
        self.assertTrue(self.requests()[0].replace("%20", " ").endswith("/b c.pdf"), self.requests())
        # A double click on the size cell opens the same file, also once.
        self.desktop.click(converter.window, *converter.place(640, 117), times=2)
        wait_for("the second viewer", lambda: len(self.requests()) > 1)
        self.settle(converter)
        self.assertEqual(len(self.requests()), 2, self.requests())
        self.assertTrue(self.requests()[1].endswith("/a.pdf"), self.requests())

    def test_context_menu(self):
        names = self.empty_pdfs("a.pdf", "b.pdf")
        converter = self.converter(environment=self.environment)
        converter.add(self.inputs, names)
        converter.click_row(1)
        converter.click_row(1, button=3)
        self.desktop.keys("Down", "Down")
        self.picture("context-menu")
        self.desktop.keys("Return")
        wait_for("the viewer", self.requests)
        self.settle(converter)
        self.assertEqual(len(self.requests()), 1, self.requests())
        self.assertTrue(self.requests()[0].endswith("/b.pdf"), self.requests())

    def test_about_links(self):
        converter = self.converter(environment=self.environment)
        converter.click("About")
        dialog = self.desktop.window("About")
        self.desktop.park()
        self.picture("about", dialog)
        # The text browser has the keyboard focus first: Tab moves from link to link.
        self.desktop.click(dialog, 10, 180)
        self.desktop.keys("Tab", "Return")
        wait_for("the home page", self.requests)
        self.desktop.keys("Tab", "Return")
        wait_for("the mail", lambda: len(self.requests()) > 1)
        self.assertEqual([text.rstrip("/") for text in self.requests()],
                         ["https://marbeck.example", "mailto:support@marbeck.example"])


if __name__ == "__main__":
    unittest.main()
