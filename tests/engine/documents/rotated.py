# SPDX-License-Identifier: GPL-3.0-or-later
"""Rotated text and rotated pages."""
from reportlab.lib.colors import black

from paper import FULL, HEIGHT, LEFT, RIGHT, WIDTH, document
from open_tables import BOLD_HEAD, COUNTRIES, NUMBERS
from texts import CLOCK, GARDEN, TOWN


def whole_page(sheet):
    y = sheet.heading(80, "A page of text", 16)
    y = sheet.paragraphs(LEFT, y, FULL, TOWN[:3])
    sheet.table(LEFT, y + 6, COUNTRIES, [131, 85, 85, 85, 85], BOLD_HEAD, NUMBERS, ("GRID", (0, 0), (-1, -1), 0.5, black))


@document
def rotated_text_in_margins(sheet):
    """The mark of the archive runs up the left margin and another one down the right margin."""
    sheet.rotated(36, 600, 270, lambda: sheet.text(0, 0, "Archive 17/2026, received on 3 May", "Sans", 9))
    sheet.rotated(560, 200, 90, lambda: sheet.text(0, 0, "Printed by the Lower Mill", "Sans", 9))
    sheet.paragraphs(LEFT, 80, FULL, TOWN + GARDEN)


@document
def rotated_text_upside_down(sheet):
    """The answer under a riddle, rotated by 180 degrees."""
    sheet.prose(LEFT, 90, FULL, "What crosses the river every day and is never wet? Think before you turn the page.")
    sheet.rotated(RIGHT, 200, 180, lambda: sheet.text(0, 0, "Answer: the chain, for it is greased.", "Serif-Italic", 9))


@document
def page_with_rotate_90(sheet):
    """Drawn so that it is upright when the viewer obeys the page's rotation."""
    sheet.canvas.setPageRotation(90)  # the library exchanges width and height itself
    sheet.canvas.translate(HEIGHT, 0)
    sheet.canvas.rotate(90)
    whole_page(sheet)


@document
def page_with_rotate_180(sheet):
    """The same page upside down in the file."""
    sheet.canvas.setPageRotation(180)
    sheet.canvas.translate(WIDTH, HEIGHT)
    sheet.canvas.rotate(180)
    whole_page(sheet)


@document
def page_with_rotate_270(sheet):
    """The same page rotated the other way in the file."""
    sheet.canvas.setPageRotation(270)
    sheet.canvas.translate(0, WIDTH)
    sheet.canvas.rotate(-90)
    whole_page(sheet)


@document
def page_drawn_sideways(sheet):
    """No rotation is set: the whole text runs up the page."""
    sheet.rotated(0, HEIGHT, 270, lambda: whole_page(sheet))


@document
def landscape_table_on_portrait_page(sheet):
    """A wide table rotated by 90 degrees between upright header and footer."""
    sheet.text(LEFT, 44, "Appendix", "Serif-Italic", 9)
    sheet.text(RIGHT, 806, "31", size=9, align="right")
    heads = ["Year"] + ["Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"]
    rows = [[str(2018 + r)] + [str(100 + (r * 37 + m * 53) % 800) for m in range(12)] for r in range(8)]
    sheet.rotated(110, 770, 270, lambda: sheet.text(0, 0, "Crossings by month", "Sans-Bold", 12))
    sheet.rotated(120, 770, 270, lambda: sheet.table(0, 10, [heads] + rows, [60] + [50] * 12, NUMBERS, BOLD_HEAD,
                                                   ("GRID", (0, 0), (-1, -1), 0.5, black)))


@document
def pages_of_several_sizes(sheet):
    """A5 upright, A4 landscape, a narrow slip."""
    sheet.size(420, 595)
    sheet.paragraphs(40, 60, 340, TOWN[:2])
    sheet.next_page(HEIGHT, WIDTH)
    sheet.paragraphs(LEFT, 60, HEIGHT - 2 * LEFT, GARDEN[:2])
    sheet.next_page(200, 400)
    sheet.prose(15, 30, 170, CLOCK[2], size=9)
