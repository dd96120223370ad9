# SPDX-License-Identifier: GPL-3.0-or-later
"""Paragraphs, letters and what type can do inside a line."""
from reportlab.lib.colors import HexColor, white

from paper import FULL, LEFT, RIGHT, document, width_of
from texts import CLOCK, GARDEN, TOWN


@document
def drop_cap(sheet):
    """The large T belongs to the first word and does not set the height of its lines."""
    sheet.text(LEFT, 111, "T", "Serif-Bold", 42)
    for n, line in enumerate(["he ferry has crossed the river at Oldham Reach since 1874. It", "carries carts, cars and "
                              "cattle, and on market days it runs from"]):
        sheet.text(LEFT + 30, 94 + 15 * n, line, size=12)
    sheet.lines(LEFT, 124, ["five in the morning until the last farmer has gone home, or until the", "ferryman "
                            "finds that nobody is waiting on either bank."], size=12, leading=15)


@document
def raised_and_lowered(sheet):
    """Small figures and letters above and below the line; none of them is a line of its own."""
    sheet.paragraphs(LEFT, 80, FULL, [
        "Water is H<sub>2</sub>O and chalk is CaCO<sub>3</sub>; ten square metres are 10 m<super>2</super>, and the 3<super>"
        "rd</super> of May was a Sunday.", "The energy is E = mc<super>2</super>, and x<sub>i</sub> is the i<super>th</super> "
        "value of the series x<sub>1</sub>, x<sub>2</sub>, ..., x<sub>n</sub>."])


@document
def underlined_and_struck(sheet):
    """Lines at words are a style of these words, no rules of the page."""
    sheet.paragraphs(LEFT, 80, FULL, [
        "Please <u>close the gate</u> behind you and <strike>do not feed</strike> the ducks.",
        "<u>Opening hours</u> are from nine to <strike>five</strike> six; dogs are <u>not</u> allowed."])


@document
def coloured_links(sheet):
    """Two links, one coloured and one not, and a coloured word that is no link."""
    sheet.paragraphs(LEFT, 80, FULL, [
        'Tickets are sold at <a href="https://ferry.example/tickets" color="#0645ad">the ferry house</a> and on the boat.',
        'Write to <a href="mailto:keeper@ferry.example">the keeper</a>, whose letters are answered on '
        '<font color="#aa2200">Thursdays</font> only.'])


@document
def bold_and_italic(sheet):
    """Changes of type inside a line."""
    sheet.paragraphs(LEFT, 80, FULL, [
        "<b>Crossing.</b> A paragraph whose first word is bold, with <i>some words</i> in italics and <b><i>both</i></b>.",
        '<font name="Sans" size="9">Small letters of another family</font> begin this one, and '
        '<font size="14">large ones</font> interrupt it.'])


@document
def hyphenated_line_ends(sheet):
    """Broken words are joined; the hyphens of compounds at a line's end stay."""
    sheet.lines(LEFT, 90, ["The council's well-known report on the cross-", "ing was finished in a hurry, for the repre-",
                           "sentative of the company had to leave. The well-", "known report is a hundred pages long and has one "
                           "map,", "which was drawn in 1874-", "1876 by the surveyors of the county."])


@document
def soft_hyphens(sheet):
    """U+00AD inside a line and at its end, as word processors write it."""
    sheet.lines(LEFT, 90, ["The represen\u00adtative of the company crossed the river and the ad\u00ad",
                           "ministration paid the fare of four\u00adteen pounds for him and his", "horse."])


@document
def justified_with_wide_blanks(sheet):
    """Loose justified lines must not be cut into columns."""
    y = sheet.prose(LEFT, 80, 230, "Notwithstanding extraordinary circumstances representatives administered "
                    "accommodations straightforwardly. Incomprehensibilities notwithstanding, misunderstandings "
                    "disproportionately characterised correspondences between neighbouring municipalities.", size=12,
                    align="justify")
    sheet.prose(LEFT, y, FULL, GARDEN[2], align="justify")


@document
def double_spaced(sheet):
    """A brief with wide line distances: four paragraphs, not one for each line."""
    sheet.paragraphs(LEFT, 80, FULL, [TOWN[0], TOWN[3], GARDEN[0], CLOCK[0]], size=12, leading=27.6, first=36, after=0)


@document
def poem(sheet):
    """Two stanzas whose lines stay lines."""
    sheet.text(150, 90, "The Chain", "Serif-Bold", 13)
    y = sheet.lines(150, 120, ["The river took the upper field,", "    the lower field, the lane;", "it asked what else the town "
                               "would yield,", "    and took the bridge again."], size=11, leading=15)
    sheet.lines(150, y + 15, ["It could not take the ferry chain", "    that hangs from bank to bank.", "It pulled at it, and "
                              "pulled in vain,", "    grew tired at last, and sank."], size=11, leading=15)


@document
def letter(sheet):
    """Letterhead, address block, date at the right, subject, text, signature."""
    sheet.text(RIGHT, 60, "Oldham Reach Ferry Company", "Sans-Bold", 12, "right")
    sheet.text(RIGHT, 74, "Ferry House · Northern Bank · OR1 1AA", "Sans", 8, "right")
    sheet.lines(LEFT, 130, ["Mrs Mary Dunn", "Ferry Lane 7", "Oldham Reach", "OR4 7AB"])
    sheet.text(RIGHT, 210, "14 May 2026", align="right")
    sheet.text(LEFT, 250, "Your churns", "Serif-Bold")
    y = sheet.prose(LEFT, 266, FULL, "Dear Mrs Dunn,")
    y = sheet.paragraphs(LEFT, y, FULL, ["on Thursday you left two churns on board. They are kept in the cellar of the ferry "
                                         "house, where it is cool, and can be fetched at any hour of the day.", TOWN[3]])
    y = sheet.prose(LEFT, y, FULL, "Yours sincerely,")
    sheet.lines(LEFT, y + 50, ["Thomas Hale", "Keeper"])


@document
def curriculum_vitae(sheet):
    """Years at the left, what was done beside them; place names far at the right of the same line."""
    sheet.text(LEFT, 90, "Ann Jarvis", "Sans-Bold", 20)
    y = 120
    for title, rows in [("Work", [("2019–2026", "Keeper of the clock", "Oldham Reach"), ("2012–2018", "Apprentice, then "
                                  "journeyman", "Welby"), ("2010–2011", "Ferry hand", "Oldham Reach")]),
                        ("School", [("2004–2010", "Grammar school", "Welby"), ("1998–2004", "Village school", "Brook")])]:
        sheet.text(LEFT, y, title, "Sans-Bold", 12)
        y += 18
        for years, what, where in rows:
            sheet.text(LEFT, y, years)
            sheet.text(LEFT + 90, y, what)
            sheet.text(RIGHT, y, where, "Serif-Italic", align="right")
            y += 15
        y += 10


@document
def text_on_coloured_fill(sheet):
    """A paragraph and a heading with backgrounds."""
    sheet.rect(LEFT, 80, FULL, 70, fill="#fff2cc")
    sheet.prose(LEFT + 10, 90, FULL - 20, TOWN[0])
    sheet.rect(LEFT, 170, FULL, 24, fill="#205080")
    sheet.text(LEFT + 10, 186, "White letters on a dark bar", "Sans-Bold", 11, colour=white)
    sheet.prose(LEFT, 204, FULL, TOWN[1])


@document
def white_on_dark_page(sheet):
    """The background belongs to the page."""
    sheet.rect(0, 0, 595, 842, fill="#101828")
    sheet.text(LEFT, 100, "Night crossing", "Sans-Bold", 22, colour=white)
    sheet.paragraphs(LEFT, 120, FULL, TOWN[:3], colour=HexColor("#e8e8f0"))


@document
def wide_gaps_in_lines(sheet):
    """Each line is one paragraph with a gap like a tab's; sums of width and indents are odd on purpose."""
    for n, (left, right) in enumerate([("Session opened by", "J. Hale"), ("Minutes taken by", "A. Jarvis"),
                                       ("Votes in favour of the motion", "12"), ("against", "9")]):
        sheet.text(LEFT, 90 + 18 * n, left)
        sheet.text(LEFT + width_of("Votes in favour of the motion", "Serif", 10.5) + 60, 90 + 18 * n, right)
    sheet.prose(LEFT, 175, FULL, CLOCK[2])


@document
def formulas(sheet):
    """A fraction, a root and a sum are on lines of their own; each is one unit."""
    y = sheet.prose(LEFT, 80, FULL, "The mean of the crossings is")
    sheet.text(250, y + 22, "m  =", "Serif-Italic", 12)
    sheet.text(300, y + 14, "x + y + z", "Serif-Italic", 12, "centre")
    sheet.line(274, y + 18, 326, y + 18, 0.6)
    sheet.text(300, y + 30, "3", "Serif", 12, "centre")
    sheet.text(RIGHT, y + 22, "(1)", align="right")
    y = sheet.prose(LEFT, y + 42, FULL, "and their sum, with <i>n</i> days in the month,")
    sheet.text(270, y + 24, "∑", "DejaVu", 18)
    sheet.text(277, y + 36, "i = 1", "Serif-Italic", 7, "centre")
    sheet.text(277, y + 6, "n", "Serif-Italic", 7, "centre")
    sheet.text(290, y + 22, "c", "Serif-Italic", 12)
    sheet.text(296, y + 25, "i", "Serif-Italic", 8)
    sheet.text(RIGHT, y + 22, "(2)", align="right")
    sheet.prose(LEFT, y + 48, FULL, TOWN[0])
