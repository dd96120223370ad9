# SPDX-License-Identifier: GPL-3.0-or-later
"""The windows on unusual desktops: high density, dark colours, right to left, a small screen.

Each test saves pictures of the windows and checks what a program can tell: that the window is as large as it should be,
light where it should be light, and that its controls can be clicked.
"""

import unittest

from converter import HEIGHT, TITLE, WIDTH, script
from desktop import wait_for
from desktop_case import TOOLS, DesktopCase
from test_drag import RECORD

# Settings of a dark desktop, in the format of one of the desktops.
DARK_COLORS = {"Button": "49,54,59", "Selection": "61,174,233", "Tooltip": "49,54,59", "View": "35,38,41",
               "Window": "49,54,59"}
DARK = "[General]\nColorScheme=Dark\n" + "".join(
    f"[Colors:{part}]\nBackgroundNormal={color}\nForegroundNormal=239,240,241\n"
    for part, color in DARK_COLORS.items())
DARK_DESKTOP = {"XDG_CURRENT_DESKTOP": "KDE", "KDE_FULL_SESSION": "true", "KDE_SESSION_VERSION": "5"}


def brightness(pixels):
    return sum(pixels) / len(pixels)


class Looks(DesktopCase):
    def tour(self, name, converter, folder_dialogs=True):
        """Opens every window once, with files in the list, and takes a picture of each."""
        files = self.empty_pdfs("a report with a long name.pdf", "b.pdf")
        converter.add(self.inputs, files)
        if folder_dialogs:
            converter.choose(self.output)
        converter.pick("PDF to Image")
        self.desktop.park()
        self.picture(f"{name}-main", converter.window)
        converter.click("Setting")
        dialog = self.desktop.window("Setting")
        self.desktop.park()
        self.picture(f"{name}-setting", dialog)
        x, y, width, height = self.desktop.geometry(dialog)
        self.assertGreaterEqual(min(x, y), 0, "the dialog begins on the screen")
        self.assertLessEqual(x + width, self.desktop.size[0])
        self.assertLessEqual(y + height, self.desktop.size[1])
        converter.click_in_setting("Image Setting")
        self.desktop.park()
        self.picture(f"{name}-setting-image", dialog)
        self.desktop.keys("Escape")
        self.desktop.gone("Setting")
        converter.click("About")
        dialog = self.desktop.window("About")
        self.picture(f"{name}-about", dialog)
        self.desktop.keys("Escape")
        self.desktop.gone("About")
        self.desktop.window(TITLE)

    def convert(self, converter, count):
        converter.start()
        record = self.folder / "program" / "inputs"
        wait_for("the run", lambda: record.exists() and len(record.read_text().splitlines()) == count)
        converter.wait_for_end()

    def recording(self, **options):
        return self.converter(engine=script(self.folder / "engine", RECORD), **options)


class ScaleFactor(Looks):
    screen = (1600, 1200)

    def test_scale_factor_2(self):
        converter = self.recording(environment={"QT_SCALE_FACTOR": "2"}, scale=2)
        self.assertEqual(self.desktop.geometry(converter.window)[2:], (2 * WIDTH, 2 * HEIGHT))
        self.tour("scale-2", converter)
        self.convert(converter, 2)


class DarkPalette(Looks):
    def test_dark_desktop(self):
        (self.desktop.folder / ".config").mkdir()
        (self.desktop.folder / ".config" / "kdeglobals").write_text(DARK)
        # A window without its own colours proves that the desktop is dark.
        self.desktop.start([str(TOOLS / "drag_source")], DARK_DESKTOP)
        plain = self.desktop.window("Drag source")
        wait_for("the plain window", lambda: brightness(self.desktop.pixels(plain, 5, 5, 20, 20)) < 90)
        self.desktop.run("xdotool", "windowmove", plain, 5, 30)
        converter = self.recording(environment=DARK_DESKTOP)
        self.tour("dark", converter)
        for what, x, y in (("list", 60, 370), ("table", 400, 370), ("window", 600, 445), ("toolbar", 700, 60)):
            self.assertGreater(brightness(self.desktop.pixels(converter.window, x, y, 12, 5)), 150, what)


class RightToLeft(Looks):
    def test_right_to_left(self):
        # Qt mirrors windows only for its own option; the locale sets digits and text direction.
        converter = self.recording(environment={"LANG": "ar_EG.UTF-8", "LC_ALL": "ar_EG.UTF-8"},
                                   arguments=["-reverse"], mirrored=True)
        self.tour("right-to-left", converter)
        self.convert(converter, 2)

    def test_right_to_left_locale_alone(self):
        converter = self.recording(environment={"LANG": "he_IL.UTF-8", "LC_ALL": "he_IL.UTF-8"})
        self.tour("hebrew-locale", converter)
        self.convert(converter, 2)


class SmallScreen(Looks):
    screen = (640, 480)

    def test_640_by_480(self):
        converter = self.recording()
        self.assertEqual(self.desktop.geometry(converter.window)[2:], (WIDTH, HEIGHT))
        self.picture("small-screen")
        self.tour("small", converter)
        self.convert(converter, 2)


if __name__ == "__main__":
    unittest.main()
