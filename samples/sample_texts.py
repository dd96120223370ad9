# SPDX-License-Identifier: GPL-3.0-or-later
"""The words of the sample documents, and the shaping of right-to-left text."""

import unicodedata

SHY = "\u00ad"

COLUMN_TITLE = "How a page of print is read"

COLUMN_TEXT = [
    ("The eye jumps", [
        "A reader does not slide along a line of type. The eye rests for about a quarter of a second, takes in seven "
        "or eight letters on either side, and jumps on. A line that is too long makes the jump back to the left edge "
        "uncer|tain, and the same line is read twice or one is left out. For this rea|son news|papers and jour|nals "
        "set their text in columns of nine to twelve words.",
        "The gap between two columns has to be wider than the widest gap between two words, or the eye crosses it by "
        "mis|take. Twelve points is the least that works with body type of ten points; most de|sign|ers leave more.",
    ]),
    ("Where a paragraph ends", [
        "A paragraph is told from the next one by one sign only: an in|dent, or a blank line, or a short last line. "
        "Using two signs at once wastes space and says nothing more. In nar|row columns the in|dent is the better "
        "choice, since a blank line tears the column into islands.",
        "Lines are usually jus|ti|fied, which means that the blanks of each line are stretched until its right edge "
        "meets the mar|gin. With|out hy|phen|a|tion the blanks of a nar|row column grow until white rivers run down "
        "the page. A word that is broken at the end of a line must be put to|gether again by any|body who takes the "
        "text out of the page, and the hyphen must then van|ish.",
    ]),
    ("What stands beside the text", [
        "Running heads, page numbers and notes are printed on the page but do not be|long to the flow of the text. "
        "Some|one who reads aloud leaves them out without a thought. A pro|gram has to find them by their place, by "
        "their size, and by the fact that they come back on every page.",
        "Tables are the oppo|site case. They be|long to the text, but they are read in two direc|tions, along the rows "
        "and down the columns, and they lose their mean|ing as soon as one cell slips out of its place.",
    ]),
]


def soft(text):
    """The text with soft hyphens where the source has vertical bars."""
    return text.replace("|", SHY)


REPORT_TITLE = "Yearly report of the Lower Mill Print Works"

REPORT_SECTIONS = [
    ("The year at a glance", [
        "The works printed 412 titles this year, eleven more than the year before. Paper became dearer until June and "
        "cheaper afterwards; the average price over the year rose by four per cent. Nobody was hurt at work.",
        "Two of the five presses were replaced. The new ones need a third less power and half the time to set up, so "
        "that runs below five hundred copies pay for themselves for the first time.",
    ], ["Titles printed: 412", "Sheets used: 3.1 million", "Days without an accident: 365"]),
    ("Paper and ink", [
        "Three mills delivered most of the paper. The contract with the oldest of them ends next spring and will be "
        "offered again, because its prices are now the highest of the three.",
        "The share of recycled paper went from 41 to 56 per cent. Customers who ask for it accept the slightly greyer "
        "sheet; two school publishers now ask for nothing else.",
    ], ["Mill on the Alder: 48 per cent", "Northern Board: 31 per cent", "Small deliveries: 21 per cent"]),
    ("People", [
        "Thirty-four people work here, two of them apprentices. Both passed the examination in March with honours. The "
        "night shift was given up in autumn, since the new presses finish the same work by eight in the evening.",
        "A course in colour measurement was held in four afternoons. Its handbook is kept in the press room.",
    ], ["Printers: 12", "Binders: 9", "Office, store and drivers: 13"]),
    ("The coming year", [
        "The bindery is next. Its oldest machine was built in 1979 and has no guard that today's rules would accept. "
        "Offers from two makers have been asked for and are expected in February.",
        "We plan with 420 titles. If the price of paper stays where it is, the works can keep its own prices for "
        "the whole year.",
    ], ["Offers for the bindery: February", "Choice: March", "First books bound: September"]),
]

HEBREW = ["שלום לכל הקוראים", "המסמך הזה נכתב מימין לשמאל", "יש בו 12 שורות ו 3 טבלאות"]
ARABIC = ["هذا نص عربي قصير", "يقرأ من اليمين إلى اليسار", "طبع في عام 2026 في المطبعة"]


def _presentation_forms():
    forms = {}
    for code in range(0xFE80, 0xFEFD):
        parts = unicodedata.decomposition(chr(code)).split()
        if len(parts) == 2:
            forms.setdefault(chr(int(parts[1], 16)), {})[parts[0].strip("<>")] = chr(code)
        elif len(parts) == 3:  # lam followed by alef is one glyph
            letters = "".join(chr(int(part, 16)) for part in parts[1:])
            forms.setdefault(letters, {})[parts[0].strip("<>")] = chr(code)
    return forms


FORMS = _presentation_forms()


def _shape_word(word):
    for ligature in (key for key in FORMS if len(key) == 2):
        word = word.replace(ligature, chr(0xE000 + ord(ligature[1])))
    letters = ["\u0644" + chr(ord(c) - 0xE000) if 0xE000 <= ord(c) < 0xF000 else c for c in word]

    def joins_next(i):
        return i >= 0 and "initial" in FORMS.get(letters[i], {})

    shaped = []
    for i, letter in enumerate(letters):
        before = joins_next(i - 1)
        after = joins_next(i) and i + 1 < len(letters) and "final" in FORMS.get(letters[i + 1], {})
        name = {(0, 0): "isolated", (0, 1): "initial", (1, 0): "final", (1, 1): "medial"}[before, after]
        shaped.append(FORMS.get(letter, {}).get(name, letter))
    return "".join(shaped)


def visual(line):
    """A right-to-left line as a PDF stores it: shaped, in the order in which it is drawn from the left."""
    return " ".join(word if word.isdigit() else _shape_word(word)[::-1] for word in reversed(line.split()))

SCAN_TITLE = "Notice to all visitors"

SCAN_TEXT = [
    "The press hall may be visited on weekdays between nine and noon. Please report to the porter, who keeps the list "
    "of guided tours and lends ear protection to everybody who enters the hall while the machines are running.",
    "Photographs are allowed everywhere except in the proof room. Children under twelve must be accompanied by an adult "
    "at all times. The table shows the machines that can be seen this week.",
]

SCAN_CAPTION = "The hills behind the works"
