# SPDX-License-Identifier: GPL-3.0-or-later
"""Measures the engine on the documents named by the environment and compares the figures with the table of floors.

Usage: ratchet.py ENGINE [--half opened|closed] [--write-floors [--lower]]

--half          measures one half of the documents only; of the closed half only means are printed
--write-floors  raises the floors in floors.tsv to what was measured, instead of comparing
--lower         with it: lowers floors as well; the commit message gives the reason
corpora.py describes the variables. The exit status is 1 if a figure has fallen and 77 without documents.
"""
import argparse
import concurrent.futures
import multiprocessing
import os
import pathlib
import sys
import tempfile
import time
import xml.etree.ElementTree as ElementTree
import zipfile

sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)), os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")]
import core_support
import corpora
import floors
import metrics
import outputs
import readers
import round_trip
import table_score
import text_match
from sheet_facts import SheetFacts
from slide_facts import SlideFacts
from word_facts import WordFacts

TABLE = pathlib.Path(__file__).with_name("floors.tsv")
COMMENT = """Floors of the engine's figures on documents that are no part of this project (docs/test-documents.md).
A mean may fall by 0.005, a document by 0.05; written by scripts/quality --write-floors."""

EVERY_DOCUMENT = (".txt", ".html", ".xml", ".docx")
SHORT_DOCUMENTS = (".xlsx", ".pptx")
MOST_PAGES = 20  # of these
# For the sake of time, each of these is measured on every so many-th of the short documents, beginning with another one.
SOME_DOCUMENTS = (".doc", ".rtf", ".xls", ".ppt")
STEP = 3
FEWEST_WORDS = 20  # a scan, or a drawing with a few words
FEWEST_PARAGRAPHS = 20  # of prose, to say how many end inside a sentence

PEER = "pdftotext -layout"  # in the place of a kind: what that tool reaches; no floor

READ = {"docx": WordFacts, "xlsx": SheetFacts, "pptx": SlideFacts}


class Work:
    """One document with its outputs, {extension: path}, and their results."""

    def __init__(self, document, extensions, number, folder):
        self.document = document
        self.paths = {each: os.path.join(folder, "%03d%s%s" % (number, each[1:], each)) for each in extensions}
        self.readable = {}  # {extension: file to read}, without the conversions that failed
        self.pages = None  # of a round trip to Word: of the PDF file and of the result

    def failures(self):
        return len(self.paths) - len(self.readable)


def extensions_of(document, number, pages):
    if document.kind:
        return ("." + document.kind,)
    if pages > MOST_PAGES:
        return EVERY_DOCUMENT
    return EVERY_DOCUMENT + SHORT_DOCUMENTS + tuple(
        each for place, each in enumerate(SOME_DOCUMENTS) if (number + place) % STEP == 0)


def plan(documents, folder):
    work, numbers = [], {half: 0 for half in corpora.HALVES}
    for number, document in enumerate(documents):
        # Counted in each half, so that measuring one half alone changes nothing.
        numbers[document.half] += 1
        pages = readers.pdf_pages(str(document.path), *document.options)
        work.append(Work(document, extensions_of(document, numbers[document.half], pages), number, folder))
    return work


def make(engine, work, folder, workers):
    """Runs all conversions, each once."""
    tasks = [(each, extension) for each in work for extension in each.paths]

    def one(task):
        each, extension = task
        return outputs.convert(engine, each.document, extension, each.paths[extension])

    with concurrent.futures.ThreadPoolExecutor(workers) as pool:
        done = list(pool.map(one, tasks))
    for (each, extension), good in zip(tasks, done):
        if good and extension not in outputs.READ_AS:
            each.readable[extension] = each.paths[extension]
    for form in sorted(set(outputs.READ_AS.values())):
        paths = {each.paths[extension]: (each, extension) for (each, extension), good in zip(tasks, done)
                 if good and outputs.READ_AS.get(extension) == form}
        for path, other in outputs.through_office(list(paths), form[1:], folder, workers).items():
            each, extension = paths[path]
            each.readable[extension] = other
    trips = {each.readable[".docx"]: each for each in work if each.document.kind == "docx" and ".docx" in each.readable}
    again = outputs.through_office(list(trips), "pdf", folder, workers)
    for path, each in trips.items():
        each.pages = (readers.pdf_pages(str(each.document.path)), readers.pdf_pages(again[path]) if path in again else 0)


def attempt(read, *arguments):
    """The result of the function, or None if it cannot read an output."""
    try:
        return read(*arguments)
    except (zipfile.BadZipFile, ElementTree.ParseError, KeyError, ValueError):
        return None


def measure_document(work):
    """{(figure, kind): value} of one PDF file."""
    document, figures = work.document, {}
    text = readers.pdf_text(str(document.path), *document.options)
    wanted, _ = readers.seen_words(str(document.path), text_match.words, *document.options)
    pages = readers.pdf_pages(str(document.path), *document.options)
    for extension in work.paths if len(wanted) >= FEWEST_WORDS else ():
        found = attempt(outputs.words_of, work.readable[extension], wanted, pages) if extension in work.readable else None
        figures["words, recall", extension], figures["words, precision", extension] = (
            metrics.recall_precision(found or [], wanted))
    if document.truth:
        score = table_score.score(document.truth, work.readable[".html"]) if ".html" in work.readable else (0, 0, 0)
        for name, value in zip(("precision", "recall", "F1"), score):
            figures["table cells, " + name, ".html"] = value
        figures["table cells, F1", PEER] = metrics.table_f1(document.truth, metrics.layout_tables(str(document.path)))
    prose = [each for each in metrics.paragraphs_of(text) if len(each.split()) >= 4]
    if len(prose) >= FEWEST_PARAGRAPHS and ".docx" in work.paths:
        share = 0.0
        if ".docx" in work.readable:
            facts = attempt(WordFacts, work.readable[".docx"])
            share = 1 - metrics.mid_sentence_share(
                [each.text for each in facts.paragraphs if not each.level and not each.cell]) if facts else 0.0
        figures["paragraphs that end a sentence", ".docx"] = share
    return figures


def measure_round_trip(work):
    """{(figure, kind): value} of an office file; a conversion that failed counts 0 in every figure that applies."""
    document = work.document
    extension = "." + document.kind
    original = READ[document.kind](str(document.truth))
    result = attempt(READ[document.kind], work.readable[extension]) if extension in work.readable else None
    compared = result or original
    if document.kind == "docx":
        figures = round_trip.compare_words(original, compared, work.pages or (1, 1))
    elif document.kind == "xlsx":
        shown = readers.pdf_text(str(document.path))
        figures = round_trip.compare_sheets(original, compared, shown.count("###"))
    else:
        figures = round_trip.compare_slides(original, compared)
    kind = extension + (" tagged" if document.tagged else " plain")
    return {("round trip: " + name, kind): value if result else 0.0 for name, value in figures.items() if value is not None}


def measure_one(work):
    return measure_round_trip(work) if work.document.kind else measure_document(work)


def with_means(work, figures):
    """The rows for the table: of each opened document, and the means of both halves."""
    rows, values = {}, {}
    for each, found in zip(work, figures):
        half = each.document.half
        for extension in each.paths:
            kind = extension + (" tagged" if each.document.tagged else " plain") if each.document.kind else extension
            key = (floors.DOCUMENTS, kind, half)
            rows[key] = rows.get(key, 0) + 1
        for (figure, kind), value in found.items():
            values.setdefault((figure, kind, half), []).append(value)
            if half == corpora.OPENED:
                rows[figure, kind, each.document.name] = value
    for (figure, kind, half), found in values.items():
        rows[figure, kind, floors.mean_of(half)] = sum(found) / len(found)
    return rows, {key: len(found) for key, found in values.items()}


def measure(engine, halves):
    """(rows, {(figure, kind, half): number of documents}), or None without documents."""
    documents = corpora.documents(halves)
    if not documents:
        return None
    workers = max(1, len(os.sched_getaffinity(0)))
    with tempfile.TemporaryDirectory(prefix="quorra-quality-") as folder:
        work = plan(documents, folder)
        make(engine, work, folder, workers)
        with multiprocessing.Pool(workers) as pool:
            figures = pool.map(measure_one, work, chunksize=1)
    for half in halves:
        failed = sum(each.failures() for each in work if each.document.half == half)
        if failed:
            print("%d conversions of %s documents failed" % (failed, half))
            if half == corpora.OPENED:
                for each in work:
                    if each.document.half == half and each.failures():
                        print("  %s: %s" % (each.document.name, " ".join(sorted(set(each.paths) - set(each.readable)))))
    return with_means(work, figures)


def print_means(rows, counts, halves):
    print("| %-38s | %-17s |%s" % ("mean", "kind", "".join(" %-13s |" % half for half in halves)))
    for figure, kind in sorted({(figure, kind) for figure, kind, _ in counts}):
        cells = [(rows.get((figure, kind, floors.mean_of(half))), counts.get((figure, kind, half))) for half in halves]
        print("| %-38s | %-17s |%s" % (figure, kind, "".join(
            " %13s |" % ("" if value is None else "%.3f of %3d" % (value, count)) for value, count in cells)))


def print_documents(rows):
    print("| %-30s | %-38s | %-17s | %5s |" % ("document", "figure", "kind", "value"))
    for (figure, kind, subject), value in sorted(rows.items(), key=lambda row: (row[0][2], row[0][0], row[0][1])):
        if figure != floors.DOCUMENTS and not floors.is_mean((figure, kind, subject)):
            print("| %-30s | %-38s | %-17s | %5.3f |" % (subject[:30], figure, kind, value))


def compare(table, rows, halves):
    """Prints the figures that have fallen; returns the exit status."""
    if not table:
        print("no floors in", TABLE)
        return 1
    for (figure, kind, half), count in sorted(table.items()):
        if figure == floors.DOCUMENTS and half in halves and not floors.comparable(table, rows, kind, half):
            print("not run: means of %s, %s: they are of %d documents, here are %d"
                  % (kind, half, count, rows.get((figure, kind, half), 0)))
    fallen = floors.falls(table, rows, halves)
    for (figure, kind, subject), floor, value in fallen:
        print("FELL: %s, %s, %s: %s, floor %.3f" % (figure, kind, subject, "not measured" if value is None
                                                    else "%.4f" % value, floor))
    print("%d floors, %d figures measured, %d fell" % (len(table), len(rows), len(fallen)))
    return 1 if fallen else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("engine")
    parser.add_argument("--half", choices=corpora.HALVES)
    parser.add_argument("--write-floors", action="store_true")
    parser.add_argument("--lower", action="store_true")
    given = parser.parse_args()
    started = time.monotonic()
    halves = (given.half,) if given.half else corpora.HALVES
    measured = measure(os.path.abspath(given.engine), halves)
    if measured is None:
        return core_support.SKIPPED
    rows, counts = measured
    if given.half == corpora.OPENED:
        print_documents(rows)
    print_means(rows, counts, halves)
    print("%.0f seconds" % (time.monotonic() - started))
    rows = {key: value for key, value in rows.items() if key[1] != PEER}
    table = floors.parse(TABLE.read_text(encoding="utf-8")) if TABLE.exists() else {}
    if given.write_floors:
        TABLE.write_text(floors.text_of(floors.raised(table, rows, given.lower), COMMENT), encoding="utf-8")
        return 0
    return compare(table, rows, halves)


if __name__ == "__main__":
    sys.exit(main())
