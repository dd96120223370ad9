# SPDX-License-Identifier: GPL-3.0-or-later
"""Hebrew and Arabic, drawn in visual order as programs write them into PDF files."""
import sys
from pathlib import Path

from reportlab.lib.colors import black

from paper import FULL, LEFT, RIGHT, document

sys.path.insert(0, str(Path(__file__).resolve().parents[3] / "samples"))
from sample_texts import visual  # noqa: E402

HEBREW = ["המעבורת חוצה את הנהר כבר מאה שנה ויותר", "בימי שוק היא יוצאת בחמש בבוקר וחוזרת בערב", "בחורף היא עומדת תשעה ימים"]
ARABIC = ["العبارة تقطع النهر منذ مئة عام", "في يوم السوق تبدأ في الخامسة صباحا", "السلام على الاهل والاولاد"]


def right_lines(sheet, y, lines, size=12, x=RIGHT):
    for line in lines:
        sheet.text(x, y, visual(line), "DejaVu", size, "right")
        y += size * 1.6
    return y


@document
def hebrew_paragraphs(sheet):
    """A heading and two paragraphs of three lines each."""
    y = right_lines(sheet, 90, ["המעבורת"], 18)
    y = right_lines(sheet, y, HEBREW)
    right_lines(sheet, y + 12, HEBREW[::-1])


@document
def arabic_paragraphs(sheet):
    """A heading and paragraphs of three and two lines. Shaped letters come back as plain ones, lam-alef as two letters
    in the right order.
    """
    y = right_lines(sheet, 90, ["العبارة"], 18)
    y = right_lines(sheet, y, ARABIC)
    right_lines(sheet, y + 12, ARABIC[1:])


@document
def hebrew_with_numbers_and_latin(sheet):
    """Numbers and Latin words inside right-to-left lines keep their own order; brackets stay around their words."""
    for n, parts in enumerate([["בשנת", "1874", "נקנתה", "הסירה"], ["הסירה", "Alder", "נמכרה", "בשנת", "1921"]]):
        shown = [part if part.isascii() else visual(part) for part in reversed(parts)]
        sheet.text(RIGHT, 90 + 20 * n, " ".join(shown), "DejaVu", 12, "right")
    sheet.text(RIGHT, 130, ")" + visual("סוף") + "( " + visual("העבודה"), "DejaVu", 12, "right")


@document
def hebrew_with_mirrored_brackets(sheet):
    """Brackets stored as they look on the page, around Hebrew words and around a year."""
    right_lines(sheet, 90, HEBREW[:1])
    sheet.text(RIGHT, 112, "(" + visual("סוף") + ") " + visual("העבודה"), "DejaVu", 12, "right")
    sheet.text(RIGHT, 134, "(1874) " + visual("בשנת") + " (" + visual("הסירה הסירה") + ")", "DejaVu", 12, "right")


@document
def right_to_left_table(sheet):
    """The first column is the one at the right."""
    rows = [["יום", "מכוניות", "שכר"], ["ראשון", "41", "214"], ["שני", "38", "198"], ["שלישי", "52", "230"]]
    drawn = [[cell if cell.isdigit() else visual(cell) for cell in reversed(row)] for row in rows]
    sheet.table(LEFT + 120, 90, drawn, [100, 100, 120], ("GRID", (0, 0), (-1, -1), 0.6, black),
                ("ALIGN", (0, 0), (-1, -1), "RIGHT"), font="DejaVu")
    right_lines(sheet, 210, HEBREW[:2])


@document
def right_to_left_list(sheet):
    """Three numbered items whose numbers are at the right, then a paragraph from left to right."""
    y = 90
    for n, line in enumerate(HEBREW, 1):
        sheet.text(RIGHT, y, f".{n}", "DejaVu", 12, "right")
        sheet.text(RIGHT - 22, y, visual(line), "DejaVu", 12, "right")
        y += 20
    sheet.prose(LEFT, y + 10, FULL, "An English paragraph follows the list, and it is read from the left.")


@document
def right_to_left_columns(sheet):
    """Two columns of nine lines each: the right one is read first."""
    right_lines(sheet, 90, HEBREW * 3, 9)
    right_lines(sheet, 90, HEBREW[::-1] * 3, 9, LEFT + FULL / 2 - 12)
