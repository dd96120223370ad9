# SPDX-License-Identifier: GPL-3.0-or-later
"""The manual pages and the shell's completion, compared with the help text of the engine."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

ENGINE = os.environ["QUORRA_ENGINE"]
MANUAL = Path(os.environ["QUORRA_MANUAL"])
COMPLETION = Path(os.environ["QUORRA_SOURCE"]) / "packaging/linux/completions/Qtminw"


def output(*command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, **options).stdout


HELP = output(ENGINE, "--help")
OPTIONS = re.findall(r"^  (-\w+)", HELP, re.MULTILINE)
EXTENSIONS = [word for line in HELP.splitlines() if line.startswith("  .") for word in line.split()]


def rendered(page):
    """The text of a manual page, in one line, and what the formatter complains about."""
    done = subprocess.run(["man", "--warnings", "--local-file", MANUAL / page], check=True, text=True,
                          stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                          env={**os.environ, "LC_ALL": "C.UTF-8", "MANWIDTH": "1000", "MANPAGER": "cat"})
    return " ".join(done.stdout.split()), done.stderr


class Manual(unittest.TestCase):
    def test_pages_are_well_formed(self):
        for page, name in (("Qtminw.1", "Qtminw - "), ("quorra-converter.1", "quorra-converter - ")):
            text, complaints = rendered(page)
            self.assertEqual(complaints, "")
            self.assertIn(f"NAME {name}", text)
            self.assertIn(f"Quorra Converter {os.environ['QUORRA_VERSION']}", text)
            self.assertNotIn("@", text)

    def test_the_page_has_what_the_help_text_has(self):
        text, _ = rendered("Qtminw.1")
        self.assertGreater(len(OPTIONS), 10)
        for words in HELP.split("\n\n")[2:]:
            for word in words.split():
                self.assertIn(word.removesuffix(":"), text)
        self.assertIn(" ".join(EXTENSIONS), text)


class Completion(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        for name in ("one.pdf", "two words.PDF", "other.txt"):
            (self.folder / name).touch()
        (self.folder / "below").mkdir()

    def complete(self, *words):
        script = ('. "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _qtminw; '
                  '[ "${#COMPREPLY[@]}" -eq 0 ] || printf "%s\\n" "${COMPREPLY[@]}"')
        shown = output("bash", "-c", script, "bash", COMPLETION, ENGINE, *words, cwd=self.folder)
        return sorted(shown.splitlines())

    def test_options(self):
        self.assertEqual(self.complete("-"), sorted([*OPTIONS, "-call", "--help", "--version"]))
        self.assertEqual(self.complete("-f", "1", "-word"), ["-wordmode"])
        self.assertEqual(self.complete("-f", ""), [])  # a number
        self.assertIn("-call", self.complete("-mono", "-"))  # takes no value

    def test_input(self):
        self.assertEqual(self.complete("-call", ""), ["below", "one.pdf", "two words.PDF"])
        self.assertEqual(self.complete("-mono", "-call", "t"), ["two words.PDF"])

    def test_output(self):
        self.assertEqual(self.complete("-call", "one.pdf", "b"), ["below"])
        self.assertEqual(self.complete("-call", "one.pdf", "one."), sorted("one" + each for each in EXTENSIONS))
        self.assertEqual(self.complete("-call", "one.pdf", "a.b.doc"), ["a.b.doc", "a.b.docx"])


if __name__ == "__main__":
    unittest.main()
