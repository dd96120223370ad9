# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures how much of the ink of pages is missing in the slides that the engine makes of them.

Usage: ink.py ENGINE PDF... [--pages LAST] [--keep FOLDER] [--at-most SHARE]

Each page and its slide, exported to PDF by LibreOffice, are rendered and divided into squares. A square of the page has ink
if its gray differs from that of the paper. It is lost if neither the same square of the slide nor a neighbouring one has
ink. For each file the script prints the share of lost squares and the page that loses most. Text may be a little wider in
the fonts of this machine, so that a few per cent are lost at the ends of lines.

--pages     converts the pages up to this one
--keep      keeps the slides and pictures of both, side by side, in this folder
--at-most   ends with exit status 1 if a file loses more
"""
import argparse
import os
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import metrics
import readers

SQUARE = 12  # points, and at 72 dots per inch pixels
STEP = 40    # of 255 levels of gray: a clearly visible difference from paper


def squares_with_ink(page):
    """The (column, row) of all squares with different shades, or with another shade than the paper."""
    width, height, pixels = page
    paper = max(set(pixels), key=pixels.count) if pixels else 255
    found = set()
    for row in range(0, height // SQUARE):
        lines = [pixels[(row * SQUARE + y) * width:(row * SQUARE + y + 1) * width] for y in range(SQUARE)]
        if all(line.count(paper) == width for line in lines):
            continue
        for column in range(0, width // SQUARE):
            square = b"".join(line[column * SQUARE:(column + 1) * SQUARE] for line in lines)
            if max(abs(min(square) - paper), abs(max(square) - paper)) > STEP:
                found.add((column, row))
    return found


def lost_share(original, ours):
    """The share of the squares with ink that are lost; 0 for an empty page."""
    wanted, there = squares_with_ink(original), squares_with_ink(ours)
    lost = [(c, r) for c, r in wanted
            if not any((c + x, r + y) in there for x in (-1, 0, 1) for y in (-1, 0, 1))]
    return len(lost) / len(wanted) if wanted else 0


def check(engine, pdf, last, folder):
    """The lost shares of the pages of one file."""
    slides = os.path.join(folder, pathlib.Path(pdf).stem + ".pptx")
    subprocess.run([engine, *(["-l", str(last)] if last else []), "-call", pdf, slides], check=True, timeout=300)
    back = readers.back_to_pdf(slides, folder)
    ours = metrics.gray_pages(back, folder)
    pages = zip(metrics.gray_pages(pdf, folder), ours)
    # Slides are of one size: pages of another are scaled, and their squares do not correspond.
    return [lost_share(*pair) if abs(pair[0][0] - pair[1][0]) + abs(pair[0][1] - pair[1][1]) < SQUARE else 0
            for pair in pages]


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("engine")
    parser.add_argument("files", nargs="+")
    parser.add_argument("--pages", type=int)
    parser.add_argument("--keep", type=pathlib.Path)
    parser.add_argument("--at-most", type=float, default=1.0)
    given = parser.parse_args()
    missed = 0
    with tempfile.TemporaryDirectory() as own:
        folder = str(given.keep or own)
        os.makedirs(folder, exist_ok=True)
        for pdf in given.files:
            shares = check(os.path.abspath(given.engine), pdf, given.pages, folder)
            worst = max(range(len(shares)), key=shares.__getitem__)
            print("%-44s %6.3f  page %d: %.3f" % (pathlib.Path(pdf).stem, sum(shares) / len(shares), worst + 1,
                                                  shares[worst]), flush=True)
            missed += sum(shares) / len(shares) > given.at_most
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
