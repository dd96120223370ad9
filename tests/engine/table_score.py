# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the tables of an HTML file with manually marked cells.

Usage: table_score.py TRUTH.xml OUTPUT.html [TRUTH.xml OUTPUT.html ...]
Prints precision, recall and F1 for each pair and their means. What counts are neighbours: each pair of filled cells
that follow one another in a row or a column (empty cells between them are passed over), with their texts; blanks,
case and the kind of dash do not matter.
"""
import collections
import html.parser
import re
import sys
import unicodedata
import xml.etree.ElementTree


def normal(text):
    text = unicodedata.normalize("NFKC", text).lower()
    return re.sub(r"[\s\u00ad]+", "", re.sub(r"[\u2010-\u2015\u2212]", "-", text))


def relations(cells):
    """cells: (row, column, last row, last column, text); gives the multiset of neighbour pairs of one table."""
    grid = {}
    for cell in cells:
        if normal(cell[4]):
            for row in range(cell[0], cell[2] + 1):
                for column in range(cell[1], cell[3] + 1):
                    grid.setdefault((row, column), cell)
    if not grid:
        return collections.Counter()
    rows = max(r for r, _ in grid) + 1
    columns = max(c for _, c in grid) + 1
    pairs = set()
    for direction, outer, inner in (("h", rows, columns), ("v", columns, rows)):
        for i in range(outer):
            last = None
            for j in range(inner):
                cell = grid.get((i, j) if direction == "h" else (j, i))
                if cell and last and cell is not last:
                    pairs.add((id(last), id(cell), normal(last[4]), normal(cell[4]), direction))
                last = cell or last
    return collections.Counter(pair[2:] for pair in pairs)


def truth_tables(path):
    for table in xml.etree.ElementTree.parse(path).getroot().iter("table"):
        cells = []
        for region in table.iter("region"):
            down = int(region.get("row-increment", 0))
            right = int(region.get("col-increment", 0))
            for cell in region.iter("cell"):
                row, column = int(cell.get("start-row")), int(cell.get("start-col"))
                cells.append((row + down, column + right, int(cell.get("end-row", row)) + down,
                              int(cell.get("end-col", column)) + right, cell.findtext("content") or ""))
        yield cells


class TableReader(html.parser.HTMLParser):
    """Collects the cells of each table with their positions, taking spans into account."""

    def __init__(self):
        super().__init__()
        self.tables = []
        self.open = []

    def handle_starttag(self, tag, attrs):
        attrs = dict(attrs)
        if tag == "table":
            self.open.append({"row": -1, "taken": set(), "cells": [], "cell": None})
            self.tables.append(self.open[-1])
        elif self.open and tag == "tr":
            self.open[-1]["row"] += 1
        elif self.open and tag in ("td", "th"):
            table = self.open[-1]
            column = 0
            while (table["row"], column) in table["taken"]:
                column += 1
            down, right = int(attrs.get("rowspan", 1)), int(attrs.get("colspan", 1))
            for r in range(table["row"], table["row"] + down):
                table["taken"].update((r, c) for c in range(column, column + right))
            table["cell"] = [table["row"], column, table["row"] + down - 1, column + right - 1, ""]
            table["cells"].append(table["cell"])

    def handle_endtag(self, tag):
        if self.open and tag == "table":
            self.open.pop()
        elif self.open and tag in ("td", "th"):
            self.open[-1]["cell"] = None

    def handle_data(self, data):
        if self.open and self.open[-1]["cell"] is not None:
            self.open[-1]["cell"][4] += data


def html_tables(path):
    reader = TableReader()
    with open(path, encoding="utf-8") as file:
        reader.feed(file.read())
    return [[tuple(cell) for cell in table["cells"]] for table in reader.tables]


def score(truth_path, html_path):
    """Precision, recall and F1 of one document; all tables count together."""
    wanted, found = collections.Counter(), collections.Counter()
    for cells in truth_tables(truth_path):
        wanted += relations(cells)
    for cells in html_tables(html_path):
        found += relations(cells)
    hits = sum((wanted & found).values())
    precision = hits / max(1, sum(found.values()))
    recall = hits / max(1, sum(wanted.values()))
    return precision, recall, 2 * precision * recall / max(1e-9, precision + recall)


def main(arguments):
    if not arguments or len(arguments) % 2:
        sys.exit(__doc__)
    results = []
    for truth_path, html_path in zip(arguments[::2], arguments[1::2]):
        results.append(score(truth_path, html_path))
        print("%-40s P %.3f  R %.3f  F1 %.3f" % ((truth_path.split("/")[-1],) + results[-1]))
    print("%-40s P %.3f  R %.3f  F1 %.3f" % (("mean",) + tuple(sum(r[i] for r in results) / len(results) for i in range(3))))


if __name__ == "__main__":
    main(sys.argv[1:])
