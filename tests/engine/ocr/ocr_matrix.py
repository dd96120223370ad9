#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads pictures of pages with the engine's recogniser and with the program tesseract, and compares the words.

    ocr_matrix.py READ_PICTURE MODULE_FOLDER [--short] [--class NAME]... [--pages LIST] [--cache FOLDER]

READ_PICTURE  the developer tool of that name
--short       few small pages, only the engine's recogniser; fails if a class is below its floor
--class       only this class (see ocr_pages.CLASSES)
--pages       also pages of PDF files with text: a file with lines "PATH<tab>PAGE"
--cache       keeps the results of the program here, for the next run

Prints per class: words found of those on the page (recall), words of the page among those found (precision), processor
time in seconds, and memory in megabytes. Exit status 77: not run, because data or programs are missing.
"""
import argparse
import collections
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

try:
    import ocr_pages
except ImportError as missing:
    print(f"not run: {missing}")
    sys.exit(77)

# Least recall and precision of the classes in a short run.
FLOORS = {
    "clean 300": 0.985,
    "clean 150": 0.98,
    "skewed 7": 0.97,
    "noisy": 0.95,
    "low 75": 0.9,
    "rotated 90": 0.97,
    "rotated 180": 0.97,
    "inverted": 0.97,
}
SHORT_PAGE = (440, 470)  # points

SIGNS = str.maketrans({"’": "'", "‘": "'", "“": '"', "”": '"', "—": "-", "–": "-", "ﬁ": "fi", "ﬂ": "fl"})


def words_of(text):
    """The words of a text with letters or digits, without signs around them."""
    words = (re.sub(r"^\W+|\W+$", "", word) for word in text.translate(SIGNS).split())
    return collections.Counter(word for word in words if word)


def scores(found, truth):
    """Recall and precision of two bags of words."""
    both = sum((found & truth).values())
    return both / max(1, sum(truth.values())), both / max(1, sum(found.values()))


def run(command):
    """Returns standard output, processor time in seconds, memory in megabytes, and the exit status."""
    with tempfile.TemporaryFile() as out:
        environment = {**os.environ, "OMP_THREAD_LIMIT": "1"}
        child = subprocess.Popen(command, stdout=out, stderr=subprocess.DEVNULL, env=environment)
        _, status, usage = os.wait4(child.pid, 0)
        child.returncode = os.waitstatus_to_exitcode(status)
        out.seek(0)
        return (out.read().decode("utf-8", "replace"), usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024,
                child.returncode)


def program(path, dpi, cache):
    """What the program reads, with processor time and memory."""
    command = ["tesseract", str(path), "-", "--dpi", str(dpi), "-l", "eng"]
    key = None
    if cache:
        digest = hashlib.sha256(path.read_bytes() + str(dpi).encode()).hexdigest()
        key = cache / f"{digest}.json"
        if key.exists():
            return json.loads(key.read_text())
    result = run(command)[:3]
    if key:
        key.write_text(json.dumps(result))
    return result


def listed_pages(path):
    """Pages with their words: what pdftotext reads of them."""
    for line in path.read_text().splitlines():
        name, number = line.split("\t")
        text = subprocess.run(["pdftotext", "-f", number, "-l", number, name, "-"], check=True, text=True,
                              stdout=subprocess.PIPE).stdout
        yield pathlib.Path(name), int(number), words_of(text)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("read_picture")
    parser.add_argument("module_folder")
    parser.add_argument("--short", action="store_true")
    parser.add_argument("--class", dest="classes", action="append")
    parser.add_argument("--pages", type=pathlib.Path)
    parser.add_argument("--cache", type=pathlib.Path)
    parser.add_argument("--no-drawn", action="store_true")
    parser.add_argument("--each", action="store_true", help="prints each page")
    arguments = parser.parse_args()
    for tool in ("pdftoppm", "pdftotext") + (() if arguments.short else ("tesseract",)):
        if shutil.which(tool) is None:
            print(f"not run: {tool} is missing")
            return 77
    failures = 0
    print(f"{'':12}  {'recall':6} {'prec.':6} {'s':>6} {'MB':>5}   program: {'recall':6} {'prec.':6} {'s':>6}")
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        pages = []
        if not arguments.no_drawn:
            size = SHORT_PAGE if arguments.short else ocr_pages.A4
            drawings = [ocr_pages.prose] if arguments.short else [ocr_pages.prose, ocr_pages.sans, ocr_pages.columns]
            for draw in drawings:
                path, words = ocr_pages.drawn_page(folder, draw.__name__, draw, size)
                pages.append((path, 1, words_of(" ".join(words))))
        if arguments.pages:
            pages += listed_pages(arguments.pages)
        chosen = arguments.classes or (FLOORS if arguments.short else ocr_pages.CLASSES)
        for kind in chosen:
            dpi, change = ocr_pages.CLASSES[kind]
            sums = [0.0] * 7
            most = 0
            for path, number, truth in pages:
                picture = folder / "page.pgm"
                change(ocr_pages.rendered(path, number, dpi)).save(picture)
                text, seconds, megabytes, status = run(
                    [arguments.read_picture, arguments.module_folder, str(picture), str(dpi)])
                if status == 77:
                    print("not run: no recognition data")
                    return 77
                if status != 0:
                    print(f"FAILED: {kind}, {path.name}: exit status {status}")
                    failures += 1
                most = max(most, megabytes)
                own = scores(words_of(text), truth)
                row = [*own, seconds, 0, 0, 0, 0]
                if not arguments.short:
                    other, other_seconds, _ = program(picture, dpi, arguments.cache)
                    row[3:6] = *scores(words_of(other), truth), other_seconds
                if arguments.each:
                    print(f"  {path.name[:24]:24} {number:3} " + " ".join(f"{value:.4f}" for value in row))
                sums = [a + b for a, b in zip(sums, row)]
            mean = [value / len(pages) for value in sums]
            print(f"{kind:12}  {mean[0]:.4f} {mean[1]:.4f} {mean[2]:6.2f} {most:5.0f}            {mean[3]:.4f} "
                  f"{mean[4]:.4f} {mean[5]:6.2f}", flush=True)
            if arguments.short and min(mean[:2]) < FLOORS[kind]:
                print(f"FAILED: {kind}: below {FLOORS[kind]}")
                failures += 1
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
