# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares what the engine finds when it ignores the tags of a file with what sound tags state: headings with their
levels, paragraphs, list items with their levels, and the neighbours of table cells. The tags of many files serve as
ground truth.

Usage: tags.py MODEL_DUMP [--half opened|closed]

corpora.py says which variables name the folders. Of the closed half only means are printed. Ends with 77 without
any tagged document.
"""
import argparse
import collections
import concurrent.futures
import os
import re
import subprocess
import sys

sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)), os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")]
import core_support
import corpora
import round_trip
import text_match

PATIENCE = 120  # seconds for one document
NAMES = r"heading (\d)|(?:bullet|numbered) item \S+ level (\d+)|paragraph|footnote|caption[^\[]*"
BLOCK = re.compile(r"^ *(" + NAMES + r") \[(?:[^\]\"]|\"[^\"]*\")*\] (.*)$")
TABLE = re.compile(r"^ *table of ")
CELL = re.compile(r"^ *cell (\d+),(\d+)(?: \[([^\]]*)\])?(.*)$")
SPANS = re.compile(r"(\d+) (rows|columns)")
LOOK = re.compile(r"\{[^{}]*\}")  # where the look of the text changes
PAGE = re.compile(r"^page (\d+) ", re.MULTILINE)
TAGS_USED = "tags used"
FIGURES = ("headings", "heading levels", "paragraphs", "list items", "table cells")


def plain(text):
    return text_match.normalised(LOOK.sub("", text).replace("↵", " "))


def pages(dump):
    """{number: text} of the pages of a dump."""
    parts = PAGE.split(dump)
    return dict(zip(parts[1::2], parts[2::2]))


class Found:
    """Headings (text, level), paragraphs, list items (text, level) and tables of those pages of a dump."""

    def __init__(self, dump):
        self.headings, self.paragraphs, self.items, self.tables = [], [], [], []
        cell = None
        for line in dump.splitlines():
            block, place = BLOCK.match(line), CELL.match(line)
            if TABLE.match(line):
                self.tables.append([])
                cell = None
            elif place and self.tables:
                row, column = int(place[1]), int(place[2])
                spans = {what: int(count) for count, what in SPANS.findall(place[3] or "")}
                cell = [row, column, row + spans.get("rows", 1) - 1, column + spans.get("columns", 1) - 1, plain(place[4])]
                self.tables[-1].append(cell)
            elif block and cell and line.startswith(" " * 8):  # a paragraph in a cell
                cell[4] = plain(cell[4] + " " + block[4])
            elif block:
                cell = None
                text = plain(block[4])
                self.paragraphs.append(text)
                if block[2]:
                    self.headings.append((text, block[2]))
                elif block[3]:
                    self.items.append((text, block[3]))


def dump(program, document, *options):
    done = subprocess.run([program, str(document.path), *document.options, *options], stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=PATIENCE, check=False)
    return done.stdout.decode(errors="replace")


def compare(program, document):
    """{figure: F1} of a document whose tags are used; None of others."""
    tagged, untagged = dump(program, document), dump(program, document, "--ignore-tags")
    tagged, untagged = pages(tagged), pages(untagged)
    used = [page for page, text in tagged.items() if TAGS_USED in text.splitlines()[0]]
    if not used:
        return None
    truth, found = (Found("\n".join(each.get(page, "") for page in used)) for each in (tagged, untagged))
    texts = [[text for text, _ in each.headings] for each in (truth, found)]
    neighbours = [round_trip.relations([[tuple(cell) for cell in table if cell[4]] for table in each.tables])
                  for each in (truth, found)]
    return {
        "headings": text_match.bag_f1(*texts) if texts[0] else None,
        "heading levels": text_match.bag_f1(truth.headings, found.headings) if truth.headings else None,
        "paragraphs": text_match.bag_f1(truth.paragraphs, found.paragraphs) if truth.paragraphs else None,
        "list items": text_match.bag_f1(truth.items, found.items) if truth.items else None,
        "table cells": text_match.bag_f1(*neighbours) if truth.tables else None,
    }


def show(value):
    return "     -" if value is None else "%6.3f" % value


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("--half", choices=corpora.HALVES)
    given = parser.parse_args()
    halves = (given.half,) if given.half else corpora.HALVES
    documents = [each for each in corpora.documents(halves) if each.tagged is not False or not each.kind]
    with concurrent.futures.ThreadPoolExecutor(max(1, len(os.sched_getaffinity(0)))) as pool:
        results = list(pool.map(lambda each: compare(os.path.abspath(given.program), each), documents))
    values = collections.defaultdict(list)
    print("| %-30s |%s" % ("document", "".join(" %14s |" % figure for figure in FIGURES)))
    for document, figures in zip(documents, results):
        if figures is None:
            continue
        if document.half == corpora.OPENED:
            print("| %-30s |%s" % (document.name[:30], "".join(" %14s |" % show(figures[each]) for each in FIGURES)))
        for each in FIGURES:
            values[document.half, each].append(figures[each])
    for half in halves:
        means = [(text_match.mean(values[half, each]), sum(value is not None for value in values[half, each]))
                 for each in FIGURES]
        print("| %-30s |%s" % ("mean, " + half, "".join(
            " %14s |" % ("" if mean is None else "%.3f of %3d" % (mean, count)) for mean, count in means)))
    return 0 if values else core_support.SKIPPED


if __name__ == "__main__":
    sys.exit(main())
