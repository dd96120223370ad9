# SPDX-License-Identifier: GPL-3.0-or-later
"""Lists the documents in the folders named by the environment, and which of them are closed.

QUORRA_PDF_CORPUS   PDF files, all opened; the cells of tables in truth/
QUORRA_PDF_CORPUS2  MANIFEST.tsv lists its files: folder, file and remarks in each line
QUORRA_ROUNDTRIP    docx/, xlsx/ and pptx/, each with a MANIFEST.tsv: office files, and PDF files exported from them with
                    and without tags; truth/ has copies of OpenDocument files in the format of the folder

Only opened documents may be looked at when the engine is developed. The closed ones, every second line of a
MANIFEST.tsv, show whether it works for unseen documents: only their means are printed.
"""
import collections
import os
import pathlib
import re
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import core_support

OPENED, CLOSED = HALVES = ("opened", "closed")
HOSTILE = "hostile"  # broken on purpose; used by other tests
PASSWORD = re.compile(r"user password:?\s+(\S+)")

# name      of the document, with its folder
# half      OPENED or CLOSED
# options   of the engine and of the library's tools, for a password
# truth     the cells of its tables (PDF files), or the original (round trip), or None
# kind      of a round trip: docx, xlsx or pptx; otherwise None
# tagged    whether a PDF file of a round trip has tags
Document = collections.namedtuple("Document", "name path half options truth kind tagged")


def half_of(line):
    """The half of a data line of a manifest, counted from 1."""
    return OPENED if line % 2 else CLOSED


def manifest(folder):
    """The data lines as dictionaries, each with its half."""
    lines = (folder / "MANIFEST.tsv").read_text(encoding="utf-8").splitlines()
    names = lines[0].split("\t")
    return [(dict(zip(names, line.split("\t"))), half_of(number)) for number, line in enumerate(lines[1:], 1)]


def _folder(variable):
    given = os.environ.get(variable)
    return pathlib.Path(given) if given and os.path.isdir(given) else None


def _cells(path):
    truth = path.parent / "truth" / (path.stem + "-str.xml")
    return truth if truth.exists() else None


def _first_corpus(folder):
    for path in sorted(folder.glob("*.pdf")):
        if path.name not in core_support.NOT_READABLE:
            yield Document("pdfs/" + path.stem, path, OPENED, tuple(core_support.password(path)), _cells(path), None, False)


def _second_corpus(folder):
    for line, half in manifest(folder):
        if line["folder"] == HOSTILE:
            continue
        path = folder / line["folder"] / line["file"]
        password = PASSWORD.search("\t".join(line.values()))
        options = ("-upw", password.group(1).strip("\"',.;")) if password else ()
        yield Document(line["folder"] + "/" + path.stem, path, half, options, _cells(path), None, False)


def _round_trip(folder):
    for kind in ("docx", "xlsx", "pptx"):
        for line, half in manifest(folder / kind):
            original = folder / kind / line["file"]
            truth = original if original.suffix == "." + kind else original.parent / "truth" / (original.stem + "." + kind)
            for tagged in (False, True):
                path = original.with_suffix(".tagged.pdf" if tagged else ".pdf")
                yield Document("%s/%s" % (kind, original.stem), path, half, (), truth, kind, tagged)


SOURCES = (("QUORRA_PDF_CORPUS", _first_corpus), ("QUORRA_PDF_CORPUS2", _second_corpus), ("QUORRA_ROUNDTRIP", _round_trip))


def documents(halves=HALVES):
    """The documents of these halves in all existing folders."""
    found = []
    for variable, read in SOURCES:
        folder = _folder(variable)
        if folder is None:
            print("not run: documents of %s, which names no folder" % variable, flush=True)
        else:
            found += [each for each in read(folder) if each.half in halves]
    return found
