# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures of output quality."""
import collections
import os
import re
import subprocess
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import readers
import table_score


def recall_precision(found, wanted):
    """The share of the wanted words that are found, and of the found words that are wanted (multisets)."""
    found, wanted = collections.Counter(found), collections.Counter(wanted)
    common = sum((found & wanted).values())
    return common / max(1, sum(wanted.values())), common / max(1, sum(found.values()))


SENTENCE_END = re.compile(r"[.!?:;…。][\"'”’»)\]\d*†‡]*$")


def mid_sentence_share(paragraphs):
    """The share of paragraphs of four words or more that end inside a sentence."""
    long = [p.strip() for p in paragraphs if len(p.split()) >= 4]
    return sum(1 for p in long if not SENTENCE_END.search(p)) / max(1, len(long))


def stray_hyphens(paragraphs):
    """Words that are still hyphenated at a former line end: "para- graph"."""
    return sum(len(re.findall(r"[a-z]- [a-z]", p)) for p in paragraphs)


def pdftotext_paragraphs(path):
    return paragraphs_of(readers.pdf_text(path))


def paragraphs_of(text):
    """The paragraphs of plain text, between blank lines and page ends."""
    return [" ".join(p.split()) for p in re.split(r"\n\s*\n|\f", text) if p.strip()]


def table_f1(truth, tables):
    """The adjacency F1 of tables given as lists of (row, column, last row, last column, text)."""
    wanted, found = collections.Counter(), collections.Counter()
    for cells in table_score.truth_tables(truth):
        wanted += table_score.relations(cells)
    for cells in tables:
        found += table_score.relations(cells)
    hits = sum((wanted & found).values())
    precision, recall = hits / max(1, sum(found.values())), hits / max(1, sum(wanted.values()))
    return 2 * precision * recall / max(1e-9, precision + recall)


def layout_tables(path):
    """The baseline: the lines of `pdftotext -layout`, split at two or more spaces."""
    tables = []
    for page in readers.pdf_text(path, "-layout").split("\f"):
        cells, row = [], 0
        for line in page.splitlines():
            parts = [p for p in re.split(r"\s{2,}", line.strip()) if p]
            if len(parts) > 1:
                cells += [(row, column, row, column, text) for column, text in enumerate(parts)]
                row += 1
        if cells:
            tables.append(cells)
    return tables


NUMERIC = re.compile(r"^[-+(\u2212]?[$€£]?\d{1,3}(,\d{3})*(\.\d+)?\)?%?$|^[-+(]?\d+(\.\d+)?\)?%?$")


def numbers_as_numbers(cells):
    """The number of cells with numeric text, and how many of them are stored as numbers."""
    numeric = [c for c in cells if NUMERIC.match(c[4].strip()) and not re.match(r"^[-+(]?0\d", c[4].strip())]
    return sum(1 for c in numeric if not isinstance(c[5], str)), len(numeric)


def gray_pages(pdf, folder, dpi=72):
    """The pages as (width, height, bytes), 8 bits of gray a pixel."""
    prefix = os.path.join(folder, "page")
    subprocess.run(["pdftoppm", "-gray", "-r", str(dpi), pdf, prefix], check=True, timeout=300)
    pages = []
    for name in sorted(n for n in os.listdir(folder) if n.startswith("page") and n.endswith(".pgm")):
        with open(os.path.join(folder, name), "rb") as file:
            magic, size, _, pixels = file.read().split(b"\n", 3)
        assert magic == b"P5"
        width, height = map(int, size.split())
        pages.append((width, height, pixels))
        os.remove(os.path.join(folder, name))
    return pages


def ink_overlap(ours, original):
    """The Dice coefficient of the ink of both pages, 0 to 1; 1 for two empty pages."""
    width, height = min(ours[0], original[0]), min(ours[1], original[1])
    shared = total = 0
    for row in range(height):
        a = ours[2][row * ours[0]:row * ours[0] + width]
        b = original[2][row * original[0]:row * original[0] + width]
        if min(a, default=255) == 255 and min(b, default=255) == 255:
            continue
        for x, y in zip(a, b):
            if x != 255 or y != 255:
                shared += 255 - (x if x > y else y)
                total += 510 - x - y
    return 2 * shared / total if total else 1.0
