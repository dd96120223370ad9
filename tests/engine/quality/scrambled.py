#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Lists pages of the opened documents whose text output misses words, repeats words, or mixes up sentences.

Usage: scrambled.py ENGINE [NAME...]

Each page is compared with what `pdftotext` finds on it. Corpora are named as for scripts/quality (see corpora.py); the
names choose documents. The last line sums up; the exit status is 77 without any document.

recall     share of the words of the page that the output has
precision  share of the words of the output that are on the page: less where words are printed twice
sentences  share of the sequences of three words, those of tables and of words that occur often left out, that are
           sequences in the output too: less where lines of two columns alternate
"""
import concurrent.futures
import os
import sys
import tempfile

sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)), os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")]
import corpora
import metrics
import outputs
import readers
import text_match

FEWEST_WORDS = 20  # on a page that is judged
LEAST = {"recall": 0.97, "precision": 0.97, "sentences": 0.8}


def joined(text):
    """The text with hyphenated words joined."""
    lines = text.split("\n")
    whole = lines[0]
    for line in lines[1:]:
        hyphen = whole.rstrip()[-1:] in "-\u2010\u00ad" and whole.rstrip()[-2:-1].isalpha() and line.strip()[:1].islower()
        whole = whole.rstrip()[:-1] + line.strip() if hyphen and whole.strip() else whole + "\n" + line
    return whole


def sentences(wanted, found):
    """The share of sequences of three words that `found` has too; None if there are too few. Numbers are
    ignored: they are mostly in tables, whose order may differ."""
    def sequences(words):
        return text_match.unique_triples([word for word in words if not word.isdigit()])
    here = sequences(wanted)
    if len(here) < FEWEST_WORDS:
        return None
    there = set(zip(*[[word for word in found if not word.isdigit()][i:] for i in range(3)]))
    return sum(1 for each in here if each in there) / len(here)


def judge(engine, document, folder, number):
    """[(page, figures)] of one document."""
    path = os.path.join(folder, "%03d.txt" % number)
    if not outputs.convert(engine, document, ".txt", path):
        return [(0, {"recall": 0.0, "precision": 0.0, "sentences": 0.0})]
    with open(path, encoding="utf-8") as file:
        ours = file.read().split("\f")
    pages = []
    for page, text in enumerate(readers.pdf_text(str(document.path), *document.options).split("\f"), 1):
        wanted = text_match.words(joined(text))
        if len(wanted) < FEWEST_WORDS:
            continue
        found = text_match.words(ours[page - 1] if page <= len(ours) else "")
        recall, precision = metrics.recall_precision(found, wanted)
        pages.append((page, {"recall": recall, "precision": precision, "sentences": sentences(wanted, found)}))
    return pages


def main(arguments):
    if not arguments:
        sys.exit(__doc__)
    engine, names = os.path.abspath(arguments[0]), arguments[1:]
    documents = [each for each in corpora.documents((corpora.OPENED,))
                 if not each.tagged and (not names or any(name in each.name for name in names))]
    if not documents:
        return 77
    listed, sums = 0, {name: [] for name in LEAST}
    with tempfile.TemporaryDirectory(prefix="quorra-quality-") as folder:
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
            results = pool.map(lambda task: judge(engine, task[1], folder, task[0]), enumerate(documents))
            for document, pages in zip(documents, results):
                for page, figures in pages:
                    for name, value in figures.items():
                        sums[name].append(value)
                    low = [name for name, value in figures.items() if value is not None and value < LEAST[name]]
                    if low:
                        listed += 1
                        print("%-44s page %3d  %s" % (document.name[:44], page, "  ".join(
                            "%s %.2f" % (name, figures[name]) for name in low)), flush=True)
    print("%d of %d pages listed; means: %s" % (listed, len(sums["recall"]), ", ".join(
        "%s %.4f" % (name, text_match.mean(values)) for name, values in sums.items())))
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
