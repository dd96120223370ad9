#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lists pages whose outputs miss words, repeat words, or mix up sentences.

Usage: scrambled.py ENGINE [--word] [NAME...]     the opened documents; hints, it does not fail
       scrambled.py ENGINE --drawn [NAME...]      the drawn documents; ends with 1 where any of them is listed

Each page of the text output is compared with what `pdftotext` finds on it; the HTML and XML outputs too, and with
--word that for Word, which needs LibreOffice, each as a whole. Corpora are named as for scripts/quality (see corpora.py);
the names choose documents. The last line sums up; the exit status is 77 without any document.

recall     share of the words of the page that the output has
precision  share of the words of the output that are on the page: less where words are printed twice
sentences  share of the sequences of three words, those of tables and of words that occur often left out, that are
           sequences in the output too: less where lines of two columns alternate
"""
import argparse
import collections
import concurrent.futures
import os
import pathlib
import re
import sys
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.dont_write_bytecode = True
sys.path[:0] = [HERE, os.path.join(HERE, ".."), os.path.join(HERE, "..", "documents")]
import corpora
import metrics
import outputs
import readers
import text_match

FEWEST_WORDS = 20  # on a page that is judged
FEWEST_ON_LINE = 4  # words; lines with fewer are cells, labels or headings, whose order is a matter of taste
MOST_UNLIKE = 2  # words that are always allowed to be missing, and to be too many
LEAST = {"recall": 0.97, "precision": 0.97, "sentences": 0.8}
WHOLE = [".html", ".xml"]  # read as a whole
OFFICE = ".docx"

RIGHT_TO_LEFT = re.compile("[\u0590-\u08ff]")

# Drawn documents in which pdftotext finds text that is none, and why.
NOT_ALIKE = {
    "bullets-that-are-letters": "the letters in whose places the signs of a font stand",
    "font-without-map": "letters are made up for glyphs with numbers instead of names",
}


def words_of(text):
    """The words; those of right-to-left scripts with their letters sorted, as pdftotext reverses ligatures."""
    return ["".join(sorted(word)) if RIGHT_TO_LEFT.search(word) else word for word in text_match.words(text)]


def joined(text):
    """The text with hyphenated words joined."""
    lines = text.split("\n")
    whole = [lines[0]]
    for line in lines[1:]:
        end = whole[-1].rstrip()
        if end[-1:] in ("-", "\u2010", "\u00ad") and end[-2:-1].isalpha() and line.strip()[:1].islower():
            whole[-1] = end[:-1] + line.strip()
        else:
            whole.append(line)
    return "\n".join(whole)


def as_the_peer(found, text, wanted):
    """The words found, those with hyphens in one piece where pdftotext, which drops hyphens at line ends, has them so."""
    found, missing = collections.Counter(found), collections.Counter(wanted) - collections.Counter(found)
    for parts in (text_match.words(each) for each in re.findall(r"\w+(?:-\w+)+", text)):
        for whole, pieces in [("".join(parts), parts)] + [(a + b, (a, b)) for a, b in zip(parts, parts[1:])]:
            if missing[whole] > 0 and all(found[piece] > 0 for piece in pieces):
                missing[whole] -= 1
                found[whole] += 1
                found.subtract(pieces)
    return list(found.elements())


def sentences(lines, found):
    """The share of sequences of three words of prose that `found` has too; None if there are too few."""
    here, prose = {}, []
    for line in lines + [""]:
        words = [word for word in words_of(line) if not word.isdigit()]
        if len(words) >= FEWEST_ON_LINE:
            prose += words
            continue
        here.update(text_match.unique_triples(prose))
        prose = []
    if len(here) < FEWEST_WORDS:
        return None
    there = set(zip(*[[word for word in found if not word.isdigit()][i:] for i in range(3)]))
    return sum(1 for each in here if each in there) / len(here)


def figures_of(theirs, ours, words=None):
    """The figures of an output's text; its words can be given apart, where the text lacks some or has no order."""
    wanted = words_of(joined(theirs))
    if len(wanted) < FEWEST_WORDS:
        return None
    found = words_of(ours)
    recall, precision = metrics.recall_precision(as_the_peer(words or found, ours, wanted), wanted)
    allowed = MOST_UNLIKE / len(wanted)
    return {"recall": min(1.0, recall + allowed), "precision": min(1.0, precision + allowed),
            "sentences": sentences(joined(theirs).split("\n"), found)}


def judge(engine, document, folder, number, kinds):
    """[(what, figures)] of one document."""
    theirs = readers.pdf_text(str(document.path), *document.options)
    found = []
    for kind in kinds:
        path = os.path.join(folder, "%03d%s" % (number, kind))
        if not outputs.convert(engine, document, kind, path):
            found.append((kind + " failed", dict.fromkeys(LEAST, 0.0)))
        elif kind == ".txt":
            ours = pathlib.Path(path).read_text(encoding="utf-8").split("\f")
            for page, text in enumerate(theirs.split("\f"), 1):
                found.append(("page %3d" % page, figures_of(text, ours[page - 1] if page <= len(ours) else "")))
        elif kind == ".html":
            words = readers.html_words(path, words_of(joined(theirs)), words_of)
            found.append((kind, figures_of(theirs, readers.html_text(path).body, list(words.elements()))))
        elif kind == ".xml":
            found.append((kind, figures_of(theirs, readers.xml_words(path))))
        else:
            words = outputs.words_of(path, text_match.words(joined(theirs)), theirs.count("\f"))
            found.append((kind, dict(figures_of(theirs, "", words) or {}, sentences=None)))
    return [(what, figures) for what, figures in found if figures]


def drawn_documents(folder):
    import draw
    draw.draw_all(pathlib.Path(folder))
    return [corpora.Document(path.stem, path, corpora.OPENED, (), None, None, False)
            for path in sorted(pathlib.Path(folder).glob("*.pdf")) if path.stem not in NOT_ALIKE]


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("engine")
    parser.add_argument("names", nargs="*")
    parser.add_argument("--word", action="store_true")
    parser.add_argument("--drawn", action="store_true")
    given = parser.parse_intermixed_args()
    kinds = [".txt", *WHOLE] + ([OFFICE] if given.word else [])
    listed, sums = 0, {name: [] for name in LEAST}
    with tempfile.TemporaryDirectory(prefix="quorra-quality-") as folder:
        documents = drawn_documents(folder) if given.drawn else corpora.documents((corpora.OPENED,))
        documents = [each for each in documents
                     if not each.tagged and (not given.names or any(name in each.name for name in given.names))]
        if not documents:
            return 77
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            results = pool.map(lambda task: judge(os.path.abspath(given.engine), task[1], folder, task[0], kinds),
                               enumerate(documents))
            for document, pages in zip(documents, results):
                for what, figures in pages:
                    for name, value in figures.items():
                        sums[name].append(value)
                    low = [name for name, value in figures.items() if value is not None and value < LEAST[name]]
                    if low:
                        listed += 1
                        print("%-44s %-8s  %s" % (document.name[:44], what, "  ".join(
                            "%s %.2f" % (name, figures[name]) for name in low)), flush=True)
    print("%d of %d listed; means: %s" % (listed, len(sums["recall"]), ", ".join(
        "%s %.4f" % (name, text_match.mean(values)) for name, values in sums.items())))
    return 1 if listed and given.drawn else 0


if __name__ == "__main__":
    sys.exit(main())
