#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Compares the number of pages of Word outputs, as LibreOffice shows them, with that of the PDF files.

Usage: page_counts.py ENGINE [--half opened|closed] [--kind .docx ...] [--mode N] [--keep FOLDER] [NAME...]

Corpora are named as for scripts/quality (see corpora.py), of the round trip only the documents for Word without tags;
the names choose documents. Of the opened half, each document whose count is off by more than a tenth, rounded down, is
listed; of the closed one only sums are printed. Files that LibreOffice cannot open again are counted apart, and the
exit status is 1 if there are any. It is 77 without any document.
"""
import argparse
import collections
import concurrent.futures
import os
import pathlib
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)), os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")]
import corpora
import outputs
import readers

KINDS = (".docx", ".doc", ".rtf")
TARGET = 0.95  # share of the documents whose number of pages stays
WORKERS = 2


def stays(before, after):
    """Whether the number of pages is off by at most a tenth, rounded down."""
    return abs(after - before) <= before // 10


def chosen(half, names):
    samples = pathlib.Path(__file__).resolve().parents[3] / "samples"
    found = corpora.documents((half,))
    if half == corpora.OPENED:
        found += [corpora.Document("samples/" + path.stem, path, half, (), None, None, False)
                  for path in sorted(samples.glob("*.pdf"))]
    return [each for each in found if each.kind in (None, "docx") and not each.tagged
            and (not names or any(name in each.name for name in names))]


def measure(engine, documents, kind, mode, folder):
    """[(document, pages before, pages after or None)], and the documents that the engine refuses."""
    paths = [os.path.join(folder, "%03d%s" % (number, kind)) for number in range(len(documents))]

    def make(task):
        document, path = task
        options = (*document.options, "-wordmode", str(mode))
        return outputs.convert(engine, document._replace(options=options), kind, path)

    with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
        made = list(pool.map(make, zip(documents, paths)))
    shown = outputs.through_office([path for path, good in zip(paths, made) if good], "pdf", folder, WORKERS)
    counts = [(document, readers.pdf_pages(str(document.path), *document.options),
               readers.pdf_pages(shown[path]) if path in shown else None)
              for document, path, good in zip(documents, paths, made) if good]
    return counts, [document for document, good in zip(documents, made) if not good]


def report(kind, counts, refused, names_too):
    opened = [(document, before, after) for document, before, after in counts if after is not None]
    lost = [document for document, _, after in counts if after is None]
    good = sum(1 for _, before, after in opened if stays(before, after))
    print("%-5s %d of %d documents keep their number of pages (%.3f, target %.2f); pages %d -> %d" % (
        kind, good, len(counts), good / max(1, len(counts)), TARGET,
        sum(before for _, before, _ in opened), sum(after for _, _, after in opened)))
    spread = collections.Counter(max(-3, min(3, after - before)) for _, before, after in opened)
    print("      by how many pages: " + ", ".join(
        "%s%+d: %d" % ({3: ">= ", -3: "<= "}.get(by, ""), by, number) for by, number in sorted(spread.items())))
    print("      not opened again: %d; not converted: %d" % (len(lost), len(refused)))
    if names_too:
        for document, before, after in opened:
            if not stays(before, after):
                print("      %-44s %4d -> %4d" % (document.name[:44], before, after))
        for document in lost:
            print("      %-44s not opened again" % document.name[:44])
        for document in refused:
            print("      %-44s not converted" % document.name[:44])
    sys.stdout.flush()
    return lost


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("engine")
    parser.add_argument("names", nargs="*")
    parser.add_argument("--half", choices=corpora.HALVES, default=corpora.OPENED)
    parser.add_argument("--kind", choices=KINDS, nargs="*", default=KINDS)
    parser.add_argument("--mode", type=int, choices=range(5), default=0)
    parser.add_argument("--keep", help="folder for the outputs of the opened half and their pages")
    given = parser.parse_intermixed_args()
    if given.keep and given.half == corpora.CLOSED:
        parser.error("outputs of the closed half are not kept")
    documents = chosen(given.half, given.names)
    if not documents:
        return 77
    lost = []
    with tempfile.TemporaryDirectory(prefix="quorra-quality-") as temporary:
        folder = given.keep or temporary
        for kind in given.kind:
            inside = os.path.join(folder, kind[1:])
            os.makedirs(inside, exist_ok=True)
            counts, refused = measure(os.path.abspath(given.engine), documents, kind, given.mode, inside)
            lost += report(kind, counts, refused, given.half == corpora.OPENED)
    return 1 if lost else 0


if __name__ == "__main__":
    sys.exit(main())
