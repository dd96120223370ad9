# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints figures for the quality of the engine's output, compared with those of other tools for the same files.

Usage: quality.py ENGINE [--check]

The environment variable QUORRA_PDF_CORPUS names the folder of the files; without it nothing is measured.
--check   ends with exit status 1 when a figure misses its target.
"""
import os
import subprocess
import sys
import tempfile
import time

sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)), os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")]
import metrics
import readers
import table_score

TEXT_FILES = ["tracemonkey", "multicolumn", "federal-register-2020-17221", "us-012", "us-017", "us-018", "us-030",
              "eu-003", "eu-014", "google-doc-document", "schools", "scotus-transcript-p1", "tabula-arabic",
              "argentina_diputados_voting_record", "spanning_cells", "S2MNCEbirdisland"]
PROSE = ["tracemonkey", "multicolumn", "federal-register-2020-17221"]
TRUTH = ["eu-003", "eu-014", "us-012", "us-017", "us-018", "us-030"]
EXACT = ["tracemonkey", "multicolumn", "us-018", "eu-014", "google-doc-document"]
SLIDES = ["tracemonkey", "us-018", "google-doc-document"]
WORD_MODES = {0: "combined", 1: "boxes", 2: "exact", 3: "no boxes", 4: "continuous"}


class Report:
    """Prints figures as they are measured and collects those that miss their target."""

    def __init__(self):
        self.missed = []

    def row(self, name, ours, target, peer=""):
        """target: the minimum for `ours`, or (None, maximum)."""
        reached = True
        wanted = ""
        if isinstance(target, tuple):
            reached, wanted = ours <= target[1], "<= %g" % target[1]
        elif target is not None:
            reached, wanted = ours >= target, ">= %g" % target
        if not reached:
            self.missed.append(name)
        print("| %-44s | %8.3f | %-9s | %-28s |%s" % (name, ours, wanted, peer, "" if reached else " missed"),
              flush=True)


class Quality:
    def __init__(self, engine, corpus, folder):
        self.engine, self.corpus, self.folder = engine, corpus, folder
        self.report = Report()
        self.made = {}

    def pdf(self, name):
        return os.path.join(self.corpus, name + ".pdf")

    def convert(self, name, extension, *options):
        key = (name, extension, options)
        if key not in self.made:
            target = os.path.join(self.folder, "%s%s%s" % (name, "".join(options).replace("-", "_"), extension))
            subprocess.run([self.engine, *options, "-call", self.pdf(name), target], check=True, timeout=300)
            self.made[key] = target
        return self.made[key]

    def word(self, name, mode):
        return readers.WordFile(self.convert(name, ".docx", "-wordmode", str(mode)))

    def text_kinds(self):
        yield "text", 0.995, lambda n: open(self.convert(n, ".txt"), encoding="utf-8").read()
        yield "HTML", 0.995, lambda n: self.html_words(n)
        yield "XML", 0.98, lambda n: readers.xml_words(self.convert(n, ".xml"))
        yield "slides", 0.98, lambda n: "\n".join(readers.slide_texts(self.convert(n, ".pptx")))
        for mode, title in WORD_MODES.items():
            target = {0: 0.995, 4: None}.get(mode, 0.98)
            yield "Word, " + title, target, lambda n, m=mode: self.word(n, m).text()

    def wanted(self, name):
        """The words that the pages of the PDF file show."""
        return readers.seen_words(self.pdf(name), readers.tokens)[0]

    def html_words(self, name):
        """The words of the HTML output; those of page headers as often as the PDF file shows them."""
        wanted = self.wanted(name)
        return " ".join(readers.html_words(self.convert(name, ".html"), wanted, readers.tokens).elements())

    def measure_tokens(self):
        wanted = {name: self.wanted(name) for name in TEXT_FILES}
        for title, target, text in self.text_kinds():
            scores = {n: metrics.recall_precision(readers.tokens(text(n)), wanted[n]) for n in TEXT_FILES}
            worst = min(scores, key=lambda n: min(scores[n]))
            for i, side in enumerate(("recall", "precision")):
                mean = sum(s[i] for s in scores.values()) / len(scores)
                self.report.row("words, %s, %s" % (title, side), mean, target,
                                "least %.3f (%s)" % (scores[worst][i], worst[:14]))

    def measure_paragraphs(self):
        for name in PROSE:
            word = self.word(name, 0)
            peer = metrics.pdftotext_paragraphs(self.pdf(name))
            self.report.row("ends inside a sentence, %s" % name[:16], metrics.mid_sentence_share(word.sentences),
                            (None, 0.20), "pdftotext %.2f" % metrics.mid_sentence_share(peer))
            self.report.row("stray hyphens, %s" % name[:16], metrics.stray_hyphens(word.paragraphs), (None, 0),
                            "pdftotext %d" % metrics.stray_hyphens(peer))

    def measure_tables(self):
        ours, peers, stored, numeric = [], [], 0, 0
        for name in TRUTH:
            truth = os.path.join(self.corpus, "truth", name + "-str.xml")
            ours.append(table_score.score(truth, self.convert(name, ".html"))[2])
            peers.append(metrics.table_f1(truth, metrics.layout_tables(self.pdf(name))))
            self.report.row("table cells F1, %s" % name, ours[-1], None, "pdftotext -layout %.3f" % peers[-1])
            for cells in readers.sheet_tables(self.convert(name, ".xlsx")):
                good, all_cells = metrics.numbers_as_numbers(cells)
                stored, numeric = stored + good, numeric + all_cells
        self.report.row("table cells F1, mean of six", sum(ours) / len(ours), 0.85,
                        "pdftotext -layout %.3f" % (sum(peers) / len(peers)))
        self.report.row("numbers stored as numbers", stored / max(1, numeric), 0.99, "%d cells" % numeric)

    def measure_boxes(self):
        for mode, title in WORD_MODES.items():
            boxes = sum(self.word(name, mode).text_boxes + self.word(name, mode).framed for name in PROSE)
            if mode in (0, 3, 4):
                self.report.row("text boxes, Word, %s" % title, boxes, (None, 0), PEER_BOXES)
            else:
                self.report.row("text boxes, Word, %s" % title, boxes, 1)

    def measure_pages(self):
        for name in SLIDES:
            back = readers.back_to_pdf(self.convert(name, ".pptx"), self.folder)
            self.report.row("slides back to pages, %s" % name[:16],
                            abs(readers.pdf_pages(back) - readers.pdf_pages(self.pdf(name))), (None, 0), "difference")
        overlaps = []
        for name in EXACT:
            back = readers.back_to_pdf(self.convert(name, ".docx", "-wordmode", "2"), self.folder)
            ours, original = metrics.gray_pages(back, self.folder), metrics.gray_pages(self.pdf(name), self.folder)
            self.report.row("exact mode back to pages, %s" % name[:16], abs(len(ours) - len(original)), (None, 0),
                            "difference")
            pages = [metrics.ink_overlap(a, b) for a, b in zip(ours, original)]
            overlaps.append(sum(pages) / len(pages))
            self.report.row("ink overlap of exact mode, %s" % name[:16], overlaps[-1], None)
        self.report.row("ink overlap of exact mode, mean", sum(overlaps) / len(overlaps), 0.6)


PEER_BOXES = "LibreOffice's import: 1 a line"


def main(arguments):
    if not arguments:
        sys.exit(__doc__)
    engine, corpus = arguments[0], os.environ.get("QUORRA_PDF_CORPUS", "")
    if not os.path.isdir(corpus):
        print("QUORRA_PDF_CORPUS names no folder: nothing to measure")
        return 77
    started = time.time()
    with tempfile.TemporaryDirectory() as folder:
        quality = Quality(os.path.abspath(engine), corpus, folder)
        print("| %-44s | %8s | %-9s | %-28s |" % ("figure", "ours", "target", "beside it"))
        print("|%s|%s:|%s|%s|" % ("-" * 46, "-" * 9, "-" * 11, "-" * 30))
        quality.measure_paragraphs()
        quality.measure_tables()
        quality.measure_boxes()
        quality.measure_pages()
        quality.measure_tokens()
    missed = quality.report.missed
    print("%d targets missed; %.0f seconds" % (len(missed), time.time() - started))
    for name in missed:
        print("missed: " + name)
    return 1 if missed and "--check" in arguments else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
