#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Draws small documents, each of which shows one thing that pages of print do.

    tests/engine/documents/draw.py FOLDER [NAME...]      default: all of them

The same versions of the libraries give the same bytes.
"""
import sys
from pathlib import Path

sys.dont_write_bytecode = True

import paper  # noqa: E402

# Each module adds its documents to the table when it is imported.
import characters  # noqa: E402,F401
import columns  # noqa: E402,F401
import figures  # noqa: E402,F401
import forms  # noqa: E402,F401
import lists  # noqa: E402,F401
import open_tables  # noqa: E402,F401
import partly_ruled_tables  # noqa: E402,F401
import prose  # noqa: E402,F401
import right_to_left  # noqa: E402,F401
import ruled_tables  # noqa: E402,F401
import structure  # noqa: E402,F401
import rotated  # noqa: E402,F401
import tagged  # noqa: E402,F401
import typing_and_layers  # noqa: E402,F401


def draw_all(folder, names=()):
    """Draws the named documents, or all, into the folder."""
    paper.register_fonts()
    folder.mkdir(parents=True, exist_ok=True)
    for name in names or sorted(paper.DOCUMENTS | paper.WRITTEN):
        if name in paper.WRITTEN:
            (folder / f"{name}.pdf").write_bytes(paper.WRITTEN[name]())
            continue
        sheet = paper.Sheet(folder / f"{name}.pdf", name.replace("-", " "))
        paper.DOCUMENTS[name](sheet)
        sheet.save()


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    unknown = set(sys.argv[2:]) - set(paper.DOCUMENTS | paper.WRITTEN)
    if unknown:
        sys.exit(f"draw.py: no such document: {', '.join(sorted(unknown))}")
    draw_all(Path(sys.argv[1]), sys.argv[2:])
