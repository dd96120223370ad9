# SPDX-License-Identifier: GPL-3.0-or-later
"""Converts documents to the seven office formats and reads the results with independent libraries and tools.

Arguments as core_support.py says.
"""
import os
import re
import subprocess
import sys
import zipfile

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [os.path.join(HERE, ".."), os.path.join(HERE, "..", "quality")]
import core_support
import metrics
import office_rules
import readers

WORD, SLIDES, SHEETS = (".docx", ".doc", ".rtf"), (".pptx", ".ppt"), (".xlsx", ".xls")
ZIPPED = (".docx", ".pptx", ".xlsx")
# In workbooks, the repeated heads of a table over several pages are written once.
LEAST_RECALL = {".docx": 0.98, ".doc": 0.98, ".pptx": 0.97, ".xlsx": 0.96}
LEAST_EXCHANGED = 0.95  # of a file whose map to Unicode exchanges bytes: the peer loses its zeros
FEWEST_WORDS = 20
FEWEST_FOR_ANTIWORD = 50  # it refuses files with less text
# Kana and ideographs. Chinese and Japanese have no spaces between words, so that a token depends on line ends: each
# character counts as a word.
WITHOUT_SPACES = "\u3040-\u30ff\u3400-\u9fff\uf900-\ufaff"


def words(text):
    unit = re.compile(f"[{WITHOUT_SPACES}]|[^{WITHOUT_SPACES}]+")
    return [each for token in readers.tokens(text) for each in unit.findall(token)]


class Documents:
    def __init__(self, suite):
        self.suite = suite
        self.out = suite.fresh("out")

    def convert(self, path, extension, *options, name=None):
        """Converts; returns the output's path, or None after a failure, which is recorded."""
        target = self.out / ((name or path.stem) + extension)
        password = core_support.PASSWORDS.get(path.name)
        if password:
            options = ("-upw", password, *options)
        if self.suite.corpus:
            options = ("-noocr", *options)  # the reference does not read scanned pages
        result = self.suite.run(*options, "-call", str(path), str(target))
        good = self.suite.check(result.status == 0 and target.exists() and target.stat().st_size > 0,
                                path.name, extension, options, "status", result.status, result.line)
        if good and extension in ZIPPED:
            broken = office_rules.violations(str(target))
            self.suite.check(not broken, path.name, extension, options, "breaks", len(broken), "rules:", broken[:3])
        self.suite.check(os.listdir(self.suite.temp) == [], "left behind:", os.listdir(self.suite.temp))
        return str(target) if good else None

    def wanted(self, path):
        seen, _ = readers.seen_words(str(path), words, *core_support.password(path))
        return [word for word in seen if word != "o"]  # alone it is the mark of a list, which counts and draws its marks

    def check_words(self, path, extension, text, least):
        wanted = self.wanted(path)
        if len(wanted) < FEWEST_WORDS:
            return  # a scan, or a drawing with a few words
        recall, _ = metrics.recall_precision(words(text), wanted)
        if recall < least and readers.has_exchanged_map(str(path), *core_support.password(path)):
            least = LEAST_EXCHANGED
        self.suite.check(recall >= least, path.name, extension, "finds %.3f of the words" % recall)

    def pages(self, path):
        shown = readers.run("pdfinfo", *core_support.password(path), str(path))
        return int(re.search(rb"Pages:\s+(\d+)", shown).group(1))

    def check_word(self, path):
        for mode in range(5):
            made = self.convert(path, ".docx", "-wordmode", str(mode), name="%s-%d" % (path.stem, mode))
            if not made:
                continue
            word = readers.WordFile(made)
            if mode != 4:
                self.check_words(path, ".docx mode %d" % mode, word.text(), LEAST_RECALL[".docx"])
            if mode in (0, 3, 4):
                self.suite.check(word.text_boxes == 0, path.name, "mode", mode, word.text_boxes, "text boxes")
            if mode == 2:
                back = readers.back_to_pdf(made, str(self.out))
                self.suite.check(readers.pdf_pages(back) == self.pages(path), path.name, "exact mode changes the pages")

    def check_other_kinds(self, path):
        doc = self.convert(path, ".doc")
        body = self.out / (path.stem + "-0.docx")
        wanted = readers.tokens("\n".join(readers.WordFile(str(body)).paragraphs)) if body.exists() else []
        if doc and len(wanted) > FEWEST_FOR_ANTIWORD and "right-to-left" not in path.name:
            # antiword omits page headers: compare its output with the body of the .docx file.
            found = readers.tokens(readers.run("antiword", "-m", "UTF-8.txt", "-w", "0", doc).decode("utf-8", "replace"))
            recall, _ = metrics.recall_precision(found, wanted)
            self.suite.check(recall >= LEAST_RECALL[".doc"], path.name, ".doc holds %.3f of the words" % recall)
        rtf = self.convert(path, ".rtf")
        if rtf:
            self.suite.check(open(rtf, "rb").read(5) == b"{\\rtf", path.name, "is no RTF file")
        slides = self.convert(path, ".pptx")
        if slides:
            texts = readers.slide_texts(slides)
            self.suite.check(len(texts) == self.pages(path), path.name, "has", len(texts), "slides")
            self.check_words(path, ".pptx", "\n".join(texts), LEAST_RECALL[".pptx"])
        for extension in (".ppt", ".xls"):
            made = self.convert(path, extension)
            if made:
                self.suite.check(open(made, "rb").read(8) == bytes.fromhex("d0cf11e0a1b11ae1"), made)
        sheets = self.convert(path, ".xlsx")
        if sheets:
            self.check_words(path, ".xlsx", readers.sheet_text(sheets), LEAST_RECALL[".xlsx"])

    def check_corpus_file(self, path):
        made = self.convert(path, ".docx")
        if made:
            self.check_words(path, ".docx", readers.WordFile(made).text(), LEAST_RECALL[".docx"])
        slides = self.convert(path, ".pptx")
        if slides:
            self.suite.check(len(readers.slide_texts(slides)) == self.pages(path), path.name, "slides")
        sheets = self.convert(path, ".xlsx")
        if sheets:
            self.check_words(path, ".xlsx", readers.sheet_text(sheets), LEAST_RECALL[".xlsx"])


def part(path, name):
    with zipfile.ZipFile(path) as archive:
        return archive.read(name).decode("utf-8")


def check_options(documents, samples):
    suite = documents.suite
    report = samples / "report.pdf"
    made = documents.convert(report, ".docx", "-f", "2", "-l", "3", name="range")
    if made:
        expected = readers.tokens(readers.pdf_text(str(report), "-f", "2", "-l", "3"))
        recall, precision = metrics.recall_precision(readers.tokens(readers.WordFile(made).text()), expected)
        suite.check(recall > 0.98 and precision > 0.98, "page range", recall, precision)
    made = documents.convert(report, ".docx", "-width", "480", "-height", "960", name="size")
    if made:
        suite.check(all(abs(w - 360) < 1 and abs(h - 720) < 1 for w, h in readers.WordFile(made).page_sizes),
                    "size in pixels", readers.WordFile(made).page_sizes)
    made = documents.convert(samples / "pictures.pdf", ".docx", "-mono", name="mono")
    if made:
        colours = set(re.findall(r'w:color w:val="([0-9A-Fa-f]{6})"', part(made, "word/document.xml")))
        suite.check(colours <= {"000000"}, "colours in black and white", colours)
    made = documents.convert(samples / "report.pdf", ".docx", "-gray", name="gray")
    if made:
        colours = set(re.findall(r'w:color w:val="([0-9A-Fa-f]{6})"', part(made, "word/document.xml")))
        suite.check(all(c[:2] == c[2:4] == c[4:] for c in colours), "colours in gray", colours)
    made = documents.convert(samples / "rotated.pdf", ".docx", name="rotated-sizes")
    if made:
        # The rotated page is landscape in the file and portrait when displayed.
        suite.check(all(h > w for w, h in readers.WordFile(made).page_sizes), "rotated page",
                    readers.WordFile(made).page_sizes)
    made = documents.convert(report, ".docx", name="links")
    if made:
        suite.check("hyperlink" in part(made, "word/_rels/document.xml.rels"), "the link is lost")
        suite.check("<w:numPr>" in part(made, "word/document.xml"), "the bullets are lost")
        suite.check('w:val="Heading1"' in part(made, "word/document.xml"), "the headings are lost")


def check_sheet(documents, samples):
    suite = documents.suite
    made = documents.convert(samples / "ruled-table.pdf", ".xlsx", name="ruled")
    if made:
        cells = readers.sheet_tables(made)[0]
        suite.check(any(c[0] != c[2] or c[1] != c[3] for c in cells), "no merged cells")
        stored, numeric = metrics.numbers_as_numbers(cells)
        suite.check(numeric > 3 and stored == numeric, "numbers stored as numbers", stored, numeric)
        first = readers.first_scrolling_text(made)
        suite.check(first == "Alder", "the head of the table does not stay visible:", first)


def check_missing_office(suite, samples):
    for extension in WORD + SLIDES + SHEETS:
        target = suite.folder / ("missing" + extension)
        result = suite.run("-call", str(samples / "report.pdf"), str(target),
                           environment={"QUORRA_SOFFICE": "/nowhere/soffice.bin"})
        suite.check(result.status == 7 and not target.exists(), extension, "without LibreOffice", result.status)
        suite.check(result.line.count("\n") == 1 and "install the package libreoffice-" in result.line, result.line)


def main():
    suite = core_support.Suite()
    documents = Documents(suite)
    found = suite.documents()
    for path in found:
        if suite.corpus:
            documents.check_corpus_file(path)
        else:
            documents.check_word(path)
            documents.check_other_kinds(path)
    if not suite.corpus:
        check_options(documents, suite.samples)
        check_sheet(documents, suite.samples)
        check_missing_office(suite, suite.samples)
    suite.end()


if __name__ == "__main__":
    main()
