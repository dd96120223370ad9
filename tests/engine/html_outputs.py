# SPDX-License-Identifier: GPL-3.0-or-later
"""HTML and XML outputs: well-formed, valid, in one file, with the words that pdftotext finds; tables as a person marked them.

Tables are scored where the documents' folder has truth/NAME-str.xml.
"""
import html
import os
import re
import subprocess
import sys
import unicodedata

import core_support
import table_score
from core_support import password

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "quality"))
import readers

LEAST_OVERPRINTED = 0.97  # where the peer repeats letters that are drawn twice: some of them are parts of its words
# Of words, and of digits one by one: the letters and indices of formulas stand in other words than the peer's.
LEAST = {"html": 0.995, "xhtml": 0.995, "xml": 0.98}
MOST_MEGABYTES = 150
SCHEMA = core_support.pathlib.Path(__file__).resolve().parents[2] / "docs" / "xml-format.xsd"
LEAST_TABLES = 0.85
# Text without spaces has no words to compare, so compare characters.
IDEOGRAPH = "\u2e80-\ua4cf\uf900-\ufaff"


def words(text):
    text = unicodedata.normalize("NFKC", text).replace("\u00ad", "")
    return core_support.collections.Counter(
        re.findall(rf"[{IDEOGRAPH}]|\d|[^\W\d{IDEOGRAPH}]+", text))


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", " ", markup))


def compare_words(suite, document, kind, markup, path):

    def split(text):
        # A lone "o" is the mark of a list, which HTML draws as a bullet.
        return [word for word in words(text).elements() if word != "o"]

    seen, repeated = readers.seen_words(str(document), split, *password(document))
    theirs = core_support.collections.Counter(seen)
    ours = core_support.collections.Counter(split(plain(markup))) if kind == "xml" else readers.html_words(path, theirs, split)
    common = sum((ours & theirs).values())
    recall = common / max(1, sum(theirs.values())) if theirs else 1
    precision = common / max(1, sum(ours.values())) if ours else 1
    least = LEAST_OVERPRINTED if repeated else LEAST[kind]
    unlike = max(sum(theirs.values()), sum(ours.values())) - common
    suite.check(unlike <= 2 or (recall >= least and precision >= least), document.name, kind,
                f"recall {recall:.4f} precision {precision:.4f}")


def check_markup(suite, document, kind):
    folder = suite.fresh(f"{document.name}-{kind}")
    path = folder / ("out.html" if kind == "html" else "out.xml")
    # The reference does not read scanned pages.
    result = suite.convert(document, path, "-noocr", *(["-htmlformat"] if kind == "xhtml" else []))
    if not path.exists():
        return None
    suite.check(result.megabytes <= MOST_MEGABYTES or core_support.SANITIZED, document.name, kind,
                f"{result.megabytes:.0f} MB")
    suite.check([each.name for each in folder.iterdir()] == [path.name], document.name, kind, "more than one file")
    schema = ["--schema", str(SCHEMA)] if kind == "xml" else []
    lint = subprocess.run(["xmllint", "--noout", "--nonet", "--huge", *schema, str(path)], capture_output=True, check=False)
    suite.check(lint.returncode == 0, document.name, kind, "is not well-formed or valid:", lint.stderr[:300])
    markup = path.read_text(encoding="utf-8")
    suite.check(not re.search(r"<(?:img|link|script|iframe)\b[^>]*\b(?:src|href)=\"(?!data:)", markup), document.name,
                kind, "needs another file")
    if kind != "xml":
        # HTML has no empty-element tags: the following content would become part of the element.
        short = re.findall(r"<(?!(?:meta|img|br)\b)\w+[^>]*/>", markup)
        suite.check(not short, document.name, kind, "short empty elements:", short[:3])
    compare_words(suite, document, kind, markup, path)
    return path


def check_options(suite):
    document = suite.samples / "report.pdf"
    path = suite.folder / "gray.html"
    suite.convert(document, path, "-gray", "-f", "1", "-l", "1")
    for colour in re.findall(r"#([0-9a-f]{6})\b", path.read_text(encoding="utf-8")):
        suite.check(colour[:2] == colour[2:4] == colour[4:], "colour in gray output:", colour)
    wide, narrow = (suite.folder / name for name in ("wide.html", "narrow.html"))
    suite.convert(document, wide, "-width", "1600")
    suite.convert(document, narrow, "-width", "800")
    sizes = [float(re.search(r"font:([\d.]+)pt", each.read_text(encoding="utf-8")).group(1)) for each in (wide, narrow)]
    suite.check(abs(sizes[0] / sizes[1] - 2) < 0.1, "type does not follow the width:", sizes)


def main():
    suite = core_support.Suite()
    scores = []
    for document in suite.documents():
        for kind in LEAST:
            path = check_markup(suite, document, kind)
            truth = document.parent / "truth" / f"{document.stem}-str.xml"
            if path and kind == "html" and truth.exists():
                scores.append(table_score.score(str(truth), str(path))[2])
    if scores:
        mean = sum(scores) / len(scores)
        suite.check(mean >= LEAST_TABLES, "tables:", scores)
        print(f"tables: mean F1 {mean:.3f} over {len(scores)} documents")
    if not suite.corpus:
        check_options(suite)
    suite.end()


sys.stdout.reconfigure(line_buffering=True)
main()
