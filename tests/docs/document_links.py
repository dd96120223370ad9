# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks that every relative link in the Markdown files leads to a file, and every fragment to a heading.

    document_links.py ROOT
"""
import pathlib
import re
import sys
import tempfile
import unittest

LINK = re.compile(r"\]\(([^)\s]+)(?:\s+\"[^\"]*\")?\)|^\[[^\]]+\]:\s+(\S+)", re.MULTILINE)
CODE = re.compile(r"^```.*?^```|^(?: {4}|\t)[^\n]*$|`[^`\n]+`", re.MULTILINE | re.DOTALL)
BLOCK = re.compile(r"^```.*?^```", re.MULTILINE | re.DOTALL)
SKIPPED = {"build", "CMakeFiles", ".git"}


def anchors(text):
    """The fragments of the headings: lower case, spaces as hyphens, without punctuation."""
    found = set()
    for heading in re.findall(r"^#{1,6}\s+(.*?)\s*#*$", BLOCK.sub("", text), re.MULTILINE):
        plain = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading)
        name = re.sub(r"[^\w\- ]", "", plain.lower()).replace(" ", "-")
        number = 0
        while (name if number == 0 else "%s-%d" % (name, number)) in found:
            number += 1
        found.add(name if number == 0 else "%s-%d" % (name, number))
    return found


def broken_links(path):
    """The relative links of a file that lead nowhere."""
    text = path.read_text(encoding="utf-8")
    for groups in LINK.findall(CODE.sub("", text)):
        link = groups[0] or groups[1]
        if re.match(r"[a-z][a-z0-9+.-]*:", link):
            continue
        name, _, fragment = link.partition("#")
        target = (path.parent / name).resolve() if name else path
        if not target.exists():
            yield link
        elif fragment and target.suffix == ".md" and fragment not in anchors(target.read_text(encoding="utf-8")):
            yield link


def markdown_files(root):
    return [path for path in sorted(root.rglob("*.md")) if not SKIPPED.intersection(path.relative_to(root).parts)]


class Links(unittest.TestCase):
    root = None

    def test_links_of_the_project(self):
        files = markdown_files(self.root)
        self.assertIn(self.root / "README.md", files)
        broken = ["%s: %s" % (path.relative_to(self.root), link) for path in files for link in broken_links(path)]
        self.assertEqual(broken, [])

    def test_headings(self):
        self.assertEqual(anchors("# One, two\n## One, two\n```\n# three\n```\n### [Four](x) `five`\n"),
                         {"one-two", "one-two-1", "four-five"})

    def test_broken_links_are_found(self):
        with tempfile.TemporaryDirectory() as folder:
            page = pathlib.Path(folder, "page.md")
            page.write_text("# Here\n[a](#here) [b](#there) [c](none.md) [d](page.md#here) `[e](none)` <a@b> "
                            "[f](https://none.example)\n\n    [g](none)\n\n[h]: other.md\n", encoding="utf-8")
            self.assertEqual(list(broken_links(page)), ["#there", "none.md", "other.md"])


if __name__ == "__main__":
    Links.root = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main()
