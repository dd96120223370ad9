# SPDX-License-Identifier: GPL-3.0-or-later
"""Text output against pdftotext: the same words (recall and precision), UTF-8, a form feed between pages, page ranges."""
import unicodedata

import core_support
from core_support import page_count, password, tool, words

LEAST = 0.995
# Words that may differ in any file: in a short one, two are more than half a percent ("Table 3-5", broken behind its
# hyphen, is "Table 35" to the peer).
FEW = 2


def normal(text):
    """Ligatures and presentation forms count as the letters that they stand for; soft hyphens not at all."""
    return unicodedata.normalize("NFKC", text).replace("\u00ad", "")


def scores(ours, theirs):
    """Recall, precision, and how many words stand in one text only, counted in the worse of the two."""
    common = sum((ours & theirs).values())
    missing, extra = sum(theirs.values()) - common, sum(ours.values()) - common
    return 1 - missing / max(1, common + missing), 1 - extra / max(1, common + extra), max(missing, extra)


def compare(suite, document, *options):
    path = suite.folder / "out.txt"
    suite.convert(document, path, *options)
    data = path.read_bytes()
    suite.check(not data.startswith(b"\xef\xbb\xbf"), document.name, "begins with a byte order mark")
    ours = data.decode()  # raises for what is no UTF-8
    theirs = tool("pdftotext", *password(document), *options, str(document), "-").decode(errors="replace")
    recall, precision, unlike = scores(words(normal(ours)), words(normal(theirs)))
    suite.check(unlike <= FEW or min(recall, precision) >= LEAST,
                f"{document.name} recall {recall:.4f} precision {precision:.4f}")
    pages = page_count(document)
    first = int(options[1]) if options else 1
    feeds = ours.count("\f")
    suite.check(feeds in (pages - first, pages - first + 1), document.name, "form feeds:", feeds, "pages:", pages)


def main():
    suite = core_support.Suite()
    for document in suite.documents():
        compare(suite, document)
    if not suite.corpus:
        compare(suite, suite.samples / "report.pdf", "-f", "2")
    suite.end()


main()
