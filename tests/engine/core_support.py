# SPDX-License-Identifier: GPL-3.0-or-later
"""Shared by the engine's script tests: running it, finding documents, reading portable pixmaps.

Every script takes the engine's path as its first argument and the folder of sample documents as its second. With a
third argument "corpus" it works on the PDF files of the folder in the environment variable QUORRA_PDF_CORPUS instead,
and is skipped without it.
"""
import collections
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

SKIPPED = 77
WAIT = 300  # seconds for one run; machines may be busy

PASSWORDS = {
    "password.pdf": "quorra",
    "libreoffice-writer-password.pdf": "openpassword",
    "password-example.pdf": "test",
}
# Malicious, or too damaged to show a page; they have separate tests.
NOT_READABLE = {"bomb_giant.pdf", "poppler-85140-0.pdf", "poppler-742-0-fuzzed.pdf"}

Result = collections.namedtuple("Result", "status line seconds megabytes")
# The sanitizers multiply memory and time.
SANITIZED = "ASAN_OPTIONS" in os.environ


class Suite:
    """Collects failures, so that one run reports all of them."""

    def __init__(self):
        self.engine = os.path.abspath(sys.argv[1])
        self.samples = pathlib.Path(sys.argv[2]).resolve()
        self.corpus = len(sys.argv) > 3 and sys.argv[3] == "corpus"
        self.failures = 0
        self.checks = 0
        self._folder = tempfile.TemporaryDirectory(prefix="quorra-test-")
        self.folder = pathlib.Path(self._folder.name)
        # Separate from other tests, whose files must not be removed or counted.
        self.temp = self.folder / "tmp"
        self.temp.mkdir()

    def check(self, good, *text):
        self.checks += 1
        if not good:
            self.failures += 1
            print("FAILED:", *text, flush=True)
        return good

    def documents(self):
        """The readable documents to work on."""
        folder = self.samples
        if self.corpus:
            given = os.environ.get("QUORRA_PDF_CORPUS")
            if not given:
                print("QUORRA_PDF_CORPUS names no folder: skipped")
                sys.exit(SKIPPED)
            folder = pathlib.Path(given)
        found = sorted(each for each in folder.glob("*.pdf") if each.name not in NOT_READABLE)
        if not found:
            print("no documents in", folder)
            sys.exit(1)
        return found

    def fresh(self, name):
        """A new empty folder."""
        path = self.folder / name
        path.mkdir()
        return path

    def run(self, *arguments, environment=None):
        """Runs the engine with the arguments, which can be text or bytes."""
        env = dict(os.environ, TMPDIR=str(self.temp))
        env.update(environment or {})
        begin = time.monotonic()
        with tempfile.TemporaryFile() as stderr:
            process = subprocess.Popen([self.engine, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                       stderr=stderr, env=env)
            stdout = process.stdout.read()
            _, status, usage = os.wait4(process.pid, 0)
            process.stdout.close()
            process.returncode = os.waitstatus_to_exitcode(status)
            stderr.seek(0)
            line = stderr.read().decode(errors="replace")
        self.check(stdout == b"", "something on standard output:", stdout[:200])
        return Result(process.returncode, line, time.monotonic() - begin, usage.ru_maxrss / 1024)

    def convert(self, document, output, *options):
        """Converts and expects success."""
        result = self.run(*password(document), *options, "-call", str(document), str(output))
        self.check(result.status == 0 and result.line == "", document.name, output, options, result)
        return result

    def end(self):
        print(f"{self.checks} checks, {self.failures} failures")
        left = list(self.temp.iterdir())
        if left:
            print("FAILED: left in the temporary folder:", left)
        self._folder.cleanup()
        sys.exit(1 if self.failures or left else 0)


def password(document):
    known = PASSWORDS.get(document.name)
    return ["-upw", known] if known else []


def tool(*command, ok=(0,)):
    """Returns the output of another program without its messages. The program must be installed."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=WAIT, check=False)
    if done.returncode not in ok:
        raise RuntimeError(f"{command} ended with {done.returncode}")
    return done.stdout


def page_count(document):
    text = tool("pdfinfo", *password(document), str(document)).decode(errors="replace")
    return int(re.search(r"^Pages:\s+(\d+)", text, re.M).group(1))


def peer_pages(folder, document, *options):
    """The pages as rendered by pdftoppm, in order."""
    tool("pdftoppm", "-cropbox", *password(document), *options, str(document), str(folder / "peer"), ok=(0, 99))
    return sorted(folder.glob("peer*"))


def pixmap(data):
    """(magic, width, height, pixel bytes) of a binary portable pixmap, graymap or bitmap."""
    magic = data[:2]
    numbers = 2 if magic == b"P4" else 3
    match = re.match(rb"P[456]\s+(?:#[^\n]*\n\s*)*" + rb"(\d+)\s+" * (numbers - 1) + rb"(\d+)\s", data)
    width, height = int(match.group(1)), int(match.group(2))
    return magic, width, height, data[match.end():]


def mean_difference(left, right):
    """Mean absolute difference of two byte strings of the same length."""
    total = sum(abs(a - b) for a, b in zip(left, right) if a != b)
    return total / max(1, len(left))


def words(text):
    return collections.Counter(re.findall(r"\w+", text))
