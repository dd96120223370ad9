# SPDX-License-Identifier: GPL-3.0-or-later
"""Text output, without character recognition, against pdftotext: the same words (recall and precision), UTF-8, a form
feed after each page, page ranges."""
import collections
import os
import re
import sys
import unicodedata

import core_support
from core_support import page_count, password, words

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "quality"))
import readers

LEAST = 0.995
LEAST_OVERPRINTED = 0.98  # where the peer repeats letters that are drawn twice: some of them are parts of its words
LEAST_EXCHANGED = 0.95  # where the peer loses zeros because the file's map to Unicode exchanges bytes


def normal(text):
    """Replaces ligatures and presentation forms by plain letters, and removes soft hyphens."""
    return unicodedata.normalize("NFKC", text).replace("\u00ad", "")


def as_the_peer_reads(text):
    """The peer drops every hyphen at a line's end, also in a number: "Table 3-5" is "Table 35" to it where it is broken."""
    return re.sub(r"(\d)-\n(\d)", r"\1\2", text)


def recall_and_precision(ours, theirs):
    common = sum((ours & theirs).values())
    return (common / sum(theirs.values()) if theirs else 1), (common / sum(ours.values()) if ours else 1)


def compare(suite, document, *options):
    path = suite.folder / "out.txt"
    suite.convert(document, path, "-noocr", *options)
    data = path.read_bytes()
    suite.check(not data.startswith(b"\xef\xbb\xbf"), document.name, "begins with a byte order mark")
    ours = data.decode()  # raises for what is no UTF-8
    options_of_peer = (*password(document), *options)

    def split(text):
        return list(words(normal(text)).elements())

    theirs, repeated = readers.seen_words(str(document), split, *options_of_peer)
    recall, precision = recall_and_precision(words(as_the_peer_reads(normal(ours))), collections.Counter(theirs))
    least = LEAST_OVERPRINTED if repeated else LEAST
    if min(recall, precision) < least and readers.has_exchanged_map(str(document), *options_of_peer):
        least = LEAST_EXCHANGED
    suite.check(min(recall, precision) >= least, f"{document.name} recall {recall:.4f} precision {precision:.4f}")
    pages = page_count(document)
    first = int(options[1]) if options else 1
    feeds = ours.count("\f")
    suite.check(feeds == pages - first + 1 and ours.endswith("\f"), document.name, "form feeds:", feeds, "pages:", pages)


def main():
    suite = core_support.Suite()
    for document in suite.documents():
        compare(suite, document)
    if not suite.corpus:
        compare(suite, suite.samples / "report.pdf", "-f", "2")
    suite.end()


main()
