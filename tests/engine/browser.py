# SPDX-License-Identifier: GPL-3.0-or-later
"""Drives Chromium without a window through its debugging pipe: JSON messages that end with a zero byte."""
import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

PROGRAMS = ("chromium", "chromium-browser", "google-chrome")
PATIENCE = 120  # seconds for one answer; machines may be busy


def program():
    """The path of the browser, or None if it is not installed."""
    return next(filter(None, map(shutil.which, PROGRAMS)), None)


class Failure(Exception):
    """The browser ended, did not answer, or reported an error."""


class Browser:
    """One page of a browser process with a profile of its own. Use it as a context manager."""

    def __init__(self):
        self._profile = tempfile.TemporaryDirectory(prefix="quorra-browser-", ignore_cleanup_errors=True)
        to_browser, self._to = os.pipe()
        self._from, from_browser = os.pipe()
        command = [program(), "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run",
                   "--disable-background-networking", "--disable-extensions", "--hide-scrollbars",
                   "--remote-debugging-pipe", f"--user-data-dir={self._profile.name}", "about:blank"]
        # The browser reads messages from descriptor 3 and writes to descriptor 4.
        shell = f'exec "$@" 3<&{to_browser} 4>&{from_browser}'
        self._process = subprocess.Popen(["bash", "-c", shell, "bash", *command], stdin=subprocess.DEVNULL,
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                         pass_fds=(to_browser, from_browser))
        os.close(to_browser)
        os.close(from_browser)
        self._buffer = b""
        self._events = []
        self._count = 0
        self._session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        self.call("Page.enable")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        os.close(self._to)  # the browser ends when its pipe does
        try:
            self._process.wait(10)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self._process.wait()
        os.close(self._from)
        self._profile.cleanup()

    def _message(self):
        deadline = time.monotonic() + PATIENCE
        while b"\0" not in self._buffer:
            ready, _, _ = select.select([self._from], [], [], max(0, deadline - time.monotonic()))
            data = os.read(self._from, 1 << 20) if ready else b""
            if not data:
                raise Failure("the browser does not answer")
            self._buffer += data
        message, _, self._buffer = self._buffer.partition(b"\0")
        return json.loads(message)

    def call(self, method, **parameters):
        """Calls a method of the protocol and returns its result."""
        self._count += 1
        request = {"id": self._count, "method": method, "params": parameters}
        if self._session:
            request["sessionId"] = self._session
        data = json.dumps(request).encode() + b"\0"
        while data:
            data = data[os.write(self._to, data):]
        while True:
            message = self._message()
            if message.get("id") != self._count:
                self._events.append(message.get("method"))
            elif "error" in message:
                raise Failure(f"{method}: {message['error']}")
            else:
                return message["result"]

    def open(self, path, width, height):
        """Loads a file in a window of this size in pixels and waits until it is complete."""
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)
        self._events.clear()
        self.call("Page.navigate", url=path.resolve().as_uri())
        while "Page.loadEventFired" not in self._events:
            self._events.append(self._message().get("method"))

    def evaluate(self, expression):
        """The value of a JavaScript expression; promises are awaited."""
        answer = self.call("Runtime.evaluate", expression=expression, awaitPromise=True, returnByValue=True)
        if "exceptionDetails" in answer:
            raise Failure(str(answer["exceptionDetails"])[:500])
        return answer["result"].get("value")

    def screenshot(self, path):
        """Writes the visible part of the page as a PNG file."""
        path.write_bytes(base64.b64decode(self.call("Page.captureScreenshot")["data"]))
