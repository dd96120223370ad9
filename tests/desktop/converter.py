# SPDX-License-Identifier: GPL-3.0-or-later
"""The converter on a virtual desktop: a copy of the program and an engine in a folder of their own, and what a user
does with them, by pointer and keys."""

import configparser
import os
import shutil
from pathlib import Path

from desktop import LIMIT, wait_for

TITLE = "Marbeck Quorra Converter"
ADD_TITLE = "Select one or more files to open"
FOLDER_TITLE = "Open directory"
WIDTH, HEIGHT = 720, 483

# Centres of the controls in the window, which has a fixed size and layout.
PLACES = {
    "Add": (44, 46), "Delete": (120, 46), "Clear": (196, 46), "Setting": (272, 46), "Start": (348, 46),
    "About": (424, 46), "Output Folder": (280, 433), "Choose": (500, 433),
}
KINDS = ["PDF to Word", "PDF to Excel", "PDF to PPT", "PDF to HTML", "PDF to XML", "PDF to PostScript", "PDF to EPS",
         "PDF to Text", "PDF to Image"]
KIND_PLACE = (84, 105)
KIND_HEIGHT = 29
ROW_PLACE = (330, 117)
ROW_HEIGHT = 30
# The same in the settings dialog; its buttons do not move in a mirrored dialog, everything else does.
SETTING_WIDTH = 470
SETTING_BUTTONS = {"Apply": (138, 401), "Reset": (228, 401), "Cancel": (320, 401)}
SETTING_PLACES = {"Basic Setting": (52, 23), "Image Setting": (157, 23), "User Password": (290, 85)}


class Converter:
    """The running program.

    binaries: the folder with quorra-converter and Qtminw; both are copied to `folder`, because the program keeps its
    settings beside its own file. engine: another file to put in the engine's place. scale: what one unit of a place is
    in pixels; mirrored: the window is laid out from right to left.
    """

    def __init__(self, desktop, binaries, folder, engine=None, environment=None, arguments=(), scale=1, mirrored=False):
        self.desktop = desktop
        self.folder = Path(folder)
        self.scale = scale
        self.mirrored = mirrored
        self.folder.mkdir(parents=True, exist_ok=True)
        self.program = self.folder / "quorra-converter"
        shutil.copy2(Path(binaries) / "quorra-converter", self.program)
        shutil.copy2(engine or Path(binaries) / "Qtminw", self.folder / "Qtminw")
        module = Path(binaries) / "Qtminw-ocr.so"
        if engine is None and module.exists():
            shutil.copy2(module, self.folder / module.name)
        self._begin([str(self.program), *arguments], environment)

    @classmethod
    def of(cls, desktop, command, folder, environment=None):
        """A program that is installed already. command: its command line; folder: where it keeps its settings."""
        converter = cls.__new__(cls)
        converter.desktop, converter.folder = desktop, Path(folder)
        converter.scale, converter.mirrored = 1, False
        converter._begin(command, environment)
        return converter

    def _begin(self, command, environment):
        # Started in another folder on purpose: the program finds its files in its own folder.
        self.process = self.desktop.start(command, environment, cwd="/")
        self.window = self.desktop.window(TITLE)
        self.desktop.park()
        wait_for("the window's drawing", lambda: len(set(self.start_icon())) > 2)
        self.idle_icon = self.start_icon()
        self.plain_button = self.button_pixels("About")

    def place(self, x, y):
        return (self.scale * (WIDTH - x if self.mirrored else x), self.scale * y)

    def click(self, name):
        """Clicks the control with this name."""
        self.desktop.click(self.window, *self.place(*PLACES[name]))

    def pick(self, kind):
        """Selects an output kind by its text, and waits until the program has stored it."""
        row = KINDS.index(kind)
        self.desktop.click(self.window, *self.place(KIND_PLACE[0], KIND_PLACE[1] + KIND_HEIGHT * row))
        wait_for(f"{kind} to be stored", lambda: self.settings().get("ListWidgetCurrtentItemRow") == str(row))

    def click_row(self, row, button=1, times=1):
        """Clicks a row of the file table, counted from 0."""
        self.desktop.click(self.window, *self.place(ROW_PLACE[0], ROW_PLACE[1] + ROW_HEIGHT * row), button, times)

    def settings(self):
        """The current settings file, without the name of its section."""
        parser = configparser.RawConfigParser()
        parser.optionxform = str
        parser.read(self.folder / "settingquorra.ini", encoding="utf-8")
        return dict(parser["SettingInfo"]) if parser.has_section("SettingInfo") else {}

    # Actions with several steps

    def add(self, folder, names):
        """Adds files of one folder through the open dialog."""
        self.click("Add")
        self.answer_add_dialog(folder, names)

    def answer_add_dialog(self, folder, names):
        self.desktop.window(ADD_TITLE)
        quoted = " ".join(f'"{Path(folder) / name}"' for name in names)
        self.desktop.type(quoted if len(names) > 1 else quoted.strip('"'))
        self.desktop.keys("Return")
        self.desktop.gone(ADD_TITLE)
        wait_for("the input folder to be stored", lambda: self.settings().get("InputFolder") == str(folder))

    def choose(self, folder):
        """Chooses the output folder through the folder dialog."""
        self.click("Choose")
        self.answer_folder_dialog(folder)

    def answer_folder_dialog(self, folder):
        self.desktop.window(FOLDER_TITLE)
        self.desktop.keys("ctrl+a")
        self.desktop.type(str(folder))
        self.desktop.keys("Return")
        self.desktop.gone(FOLDER_TITLE)
        wait_for("the output folder to be stored", lambda: self.settings().get("OutputFolder") == str(folder))

    def set_user_password(self, password):
        """Types a user password in the settings dialog and applies it."""
        self.click("Setting")
        self.desktop.window("Setting")
        self.click_in_setting("User Password")
        self.desktop.keys("ctrl+a")
        self.desktop.type(password)
        self.click_in_setting("Apply")
        self.desktop.gone("Setting")
        self.desktop.window(TITLE)
        wait_for("the password to be stored", lambda: self.settings().get("UserPassword") == password)

    def click_in_setting(self, name):
        """Clicks a control of the settings dialog, which must be open."""
        dialog = self.desktop.window("Setting")
        x, y = SETTING_BUTTONS.get(name) or SETTING_PLACES[name]
        if self.mirrored and name in SETTING_PLACES:
            x = SETTING_WIDTH - x
        self.desktop.click(dialog, self.scale * x, self.scale * y)

    # The run

    def button_pixels(self, button):
        """The pixels of the button."""
        x, y = self.place(*PLACES[button])
        half = 34 * self.scale
        return self.desktop.pixels(self.window, x - half, y - half, 2 * half, 2 * half)

    def start_icon(self):
        """The centre of the Start button's icon, which differs between start and stop even if the button is highlighted."""
        x, y = PLACES["Start"]
        x, y = self.place(x, y - 10)
        return self.desktop.pixels(self.window, x - 8, y - 8, 16, 16)

    def settle(self):
        """Waits until the program has dealt with all pointer events so far: until a button that the pointer is then
        moved to is drawn highlighted."""
        self.desktop.park()
        wait_for("the plain button", lambda: self.button_pixels("About") == self.plain_button)
        self.desktop.move(self.window, *self.place(*PLACES["About"]))
        wait_for("the highlighted button", lambda: self.button_pixels("About") != self.plain_button)
        self.desktop.park()

    def engines(self):
        """Process IDs of running engines that are children of the program."""
        try:
            children = Path(f"/proc/{self.process.pid}/task/{self.process.pid}/children").read_text().split()
        except OSError:
            return []
        return [int(number) for number in children if not is_zombie(number)]

    def start(self):
        """Presses Start and waits until the program has reacted; a short run may have ended by then."""
        self.click("Start")
        self.settle()

    def wait_for_end(self, limit=10 * LIMIT):
        """Waits until the Start button looks idle again and no engine runs."""
        wait_for("the end of the run", lambda: not self.engines() and self.start_icon() == self.idle_icon
                 and not self.engines(), limit)

    def close(self):
        """Closes the window with the window manager's key and returns the program's exit status."""
        self.desktop.window(TITLE)
        self.desktop.press_until("alt+F4", "end of the program", lambda: self.process.poll() is not None)
        return self.process.returncode


def is_zombie(number):
    try:
        return Path(f"/proc/{number}/stat").read_text().rsplit(")", 1)[1].split()[0] == "Z"
    except OSError:
        return True


def script(path, lines):
    """Writes an executable shell script."""
    path = Path(path)
    path.write_text("#!/bin/sh\n" + lines)
    os.chmod(path, 0o755)
    return path
