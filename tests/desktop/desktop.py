# SPDX-License-Identifier: GPL-3.0-or-later
"""A virtual desktop to drive the real program on: X server, window manager, pointer, keys, pictures of windows.

Nothing here sleeps for a fixed time: whatever takes time is waited for by a condition, with a limit generous enough for
a busy machine. Needs the package group `sample` of scripts/install-packages; nothing beyond Python's own library.
"""

import ctypes
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

LIMIT = 60  # seconds for anything that normally takes milliseconds


class TimeOut(AssertionError):
    """A condition was not met within its time limit."""


def wait_for(what, condition, limit=LIMIT):
    """Waits until condition() is true and returns its value; `what` describes it in the error after `limit` seconds."""
    end = time.monotonic() + limit
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise TimeOut(f"waited {limit} s in vain: {what}")
        time.sleep(0.03)


def die_with_parent():
    """In a child process: requests a signal when the parent dies, so that a killed test leaves no X server behind."""
    ctypes.CDLL(None).prctl(1, signal.SIGTERM)


class Desktop:
    """A separate X server with a window manager; use it as a context manager."""

    def __init__(self, size=(1024, 768)):
        self.size = size
        self.processes = []
        self.folder = Path(tempfile.mkdtemp(prefix="quorra-desktop-"))
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("QT_", "XDG_", "KDE_", "WAYLAND_", "LC_", "DBUS_"))}
        # A session bus or a desktop's file dialog would make the behaviour depend on the machine.
        self.environment.update(HOME=str(self.folder), LANG="C.UTF-8", XDG_RUNTIME_DIR=str(self.folder),
                                DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent", QT_QPA_PLATFORM="xcb")

    def __enter__(self):
        try:
            self._start_server()
            self._start_window_manager()
        except BaseException:
            self.__exit__(None, None, None)
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
                try:
                    process.wait(20)
                except subprocess.TimeoutExpired:
                    process.kill()
                    process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)

    def _start_server(self):
        reading, writing = os.pipe()
        # Without -noreset the server resets when its last client disconnects.
        self.start(["Xvfb", "-displayfd", str(writing), "-noreset", "-screen", "0", "%dx%dx24" % self.size,
                    "-nolisten", "tcp"], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("Xvfb did not start: " + self.log("Xvfb").read_text())
        self.environment["DISPLAY"] = ":" + number

    def _start_window_manager(self):
        self.start(["openbox", "--sm-disable"])
        wait_for("window manager",
                 lambda: "window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK", check=False))
        self.run("xsetroot", "-solid", "#3d5a73")

    def log(self, name):
        return self.folder / f"{Path(name).name}.log"

    def start(self, command, environment=None, **options):
        """Starts a program on this desktop; its output goes to a log file of that name."""
        with open(self.log(command[0]), "ab") as log:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=log, stderr=subprocess.STDOUT,
                                       env={**self.environment, **(environment or {})}, preexec_fn=die_with_parent,
                                       **options)
        self.processes.append(process)
        return process

    def run(self, *command):
        subprocess.run([str(word) for word in command], env=self.environment, check=True, stdout=subprocess.DEVNULL)

    def output(self, *command, check=True):
        return subprocess.run([str(word) for word in command], env=self.environment, check=check, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    # Windows

    def windows(self, title):
        """The visible windows with exactly this title."""
        return self.output("xdotool", "search", "--onlyvisible", "--name", f"^{re.escape(title)}$",
                           check=False).split()

    def window(self, title, limit=LIMIT):
        """Waits until a window with this title is shown and has the keyboard focus, and returns it."""
        wait_for(f'window "{title}"', lambda: self.windows(title), limit)
        window = self.windows(title)[-1]
        wait_for(f'keyboard at window "{title}"', lambda: self.active() == window, limit)
        return window

    def gone(self, title):
        """Waits until no window with this title is shown."""
        wait_for(f'end of window "{title}"', lambda: not self.windows(title))

    def active(self):
        return self.output("xdotool", "getactivewindow", check=False).strip()

    def geometry(self, window):
        """Position on the screen and size: x, y, width, height."""
        text = self.output("xwininfo", "-id", window)
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        return tuple(int(re.search(name + r": *(-?\d+)", text).group(1)) for name in names)

    # Pointer and keys

    def move(self, window, x, y):
        self.run("xdotool", "mousemove", "--window", window, int(x), int(y))

    def click(self, window, x, y, button=1, times=1):
        self.move(window, x, y)
        self.run("xdotool", "click", "--repeat", times, "--delay", 60, button)

    def park(self):
        """Moves the pointer to where it highlights nothing."""
        self.run("xdotool", "mousemove", self.size[0] - 1, self.size[1] - 1)

    def keys(self, *keys):
        self.run("xdotool", "key", "--delay", 30, *keys)

    def press_until(self, key, what, condition):
        """Presses a key until condition() is true: a key press may be lost while the window manager handles a new window."""
        again = 0
        end = time.monotonic() + LIMIT
        while not condition():
            if time.monotonic() > end:
                raise TimeOut(f"pressed {key} for {LIMIT} s in vain: {what}")
            if time.monotonic() >= again:
                self.keys(key)
                again = time.monotonic() + 5
            time.sleep(0.03)

    def type(self, text):
        self.run("xdotool", "type", "--delay", 15, "--", text)

    # Pictures

    def picture(self, path, window="root"):
        """Saves a screenshot of the window, or of the whole screen, as a PNG file."""
        Path(path).parent.mkdir(parents=True, exist_ok=True)
        self.run("gm", "import", "-silent", "-window", window, path)

    def pixels(self, window, x, y, width, height):
        """The colours of a part of a window, three bytes per pixel."""
        path = self.folder / "pixels.png"
        self.picture(path, window)
        return subprocess.run(["gm", "convert", path, "-crop", f"{width}x{height}+{x}+{y}", "+page", "-depth", "8",
                               "rgb:-"], check=True, stdout=subprocess.PIPE).stdout
