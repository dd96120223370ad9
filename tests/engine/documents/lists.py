# SPDX-License-Identifier: GPL-3.0-or-later
"""Lists with all kinds of marks."""
from paper import FULL, LEFT, document
from texts import CLOCK, GARDEN, TOWN


def item(sheet, y, mark, text, indent=0, hang=18, **options):
    """A list item: the mark, and the text beside it; gives the y after it."""
    sheet.text(LEFT + indent, y + 10, mark)
    return sheet.prose(LEFT + indent + hang, y, FULL - indent - hang, text, after=3, **options)


@document
def bullet_list(sheet):
    """Four items between two paragraphs; the third item has two lines."""
    y = sheet.prose(LEFT, 80, FULL, "What to bring for a day in the garden:")
    for text in ["gloves", "a spade with a narrow blade", GARDEN[2], "string, at least ten metres of it"]:
        y = item(sheet, y, "•", text, indent=12)
    sheet.prose(LEFT, y + 6, FULL, GARDEN[3])


@document
def numbered_list(sheet):
    """Four items that count; the second has two lines."""
    y = sheet.prose(LEFT, 80, FULL, "The clock is wound as follows.")
    for n, text in enumerate(["Open the case and hang the crank on its pin.", CLOCK[1],
                              "Close the case.", "Write the day and the hour into the book."]):
        y = item(sheet, y, f"{n + 1}.", text)
    sheet.prose(LEFT, y + 6, FULL, CLOCK[0])


@document
def lettered_and_roman_lists(sheet):
    """Three lists, each behind its sentence."""
    y = sheet.prose(LEFT, 80, FULL, "The council may")
    for mark, text in zip(["(a)", "(b)", "(c)"], ["set the fares,", "close the crossing at high water, and",
                                                  "lend the boat to the fire brigade."]):
        y = item(sheet, y, mark, text, hang=22)
    y = sheet.prose(LEFT, y + 8, FULL, "The ferryman shall")
    for mark, text in zip(["i)", "ii)", "iii)", "iv)"], ["look after the boat,", "keep the book,", "report damage at once, "
                          "and in any case on the same day,", "hand over the key in the evening."]):
        y = item(sheet, y, mark, text, hang=22)
    y = sheet.prose(LEFT, y + 8, FULL, "Nobody shall")
    for mark, text in zip(["A.", "B.", "C."], ["smoke on board;", "lean over the chain;", "ride a horse onto the ramp."]):
        y = item(sheet, y, mark, text, hang=22)


@document
def nested_list(sheet):
    """Three levels: bullets, dashes, numbers that begin again."""
    y = sheet.heading(80, "Beds")
    for text, children in [("North bed", [("Cabbage", ["white", "red"]), ("Kale", [])]),
                           ("South bed", [("Carrots", ["early", "late", "stored"]), ("Onions", [])])]:
        y = item(sheet, y, "•", text)
        for child, kinds in children:
            y = item(sheet, y, "–", child, indent=18)
            for n, kind in enumerate(kinds):
                y = item(sheet, y, f"{n + 1}.", kind, indent=36)


@document
def list_with_long_items(sheet):
    """Items of two paragraphs; the second one has no mark and the same indent."""
    y = 80
    for n, (first, second) in enumerate([(TOWN[0], TOWN[1]), (GARDEN[0], GARDEN[1]), (CLOCK[0], CLOCK[1])]):
        y = item(sheet, y, f"{n + 1}.", first)
        y = sheet.prose(LEFT + 18, y + 2, FULL - 18, second, after=8)


@document
def numbered_clauses(sheet):
    """Clauses of a contract: no headings, but numbered paragraphs on two levels."""
    y = sheet.heading(80, "Rules of the ferry company", 15)
    for mark, text in [("1.", "The company keeps one boat, two towers and the house on the northern bank."),
                       ("1.1", TOWN[1]), ("1.2", TOWN[2]), ("2.", "Members meet once a year, in the first week of May."),
                       ("2.1", "Each share gives one vote. Nobody has more than twenty votes."),
                       ("2.2", "A member who cannot come may send another member in writing, who then has the votes of "
                               "both but still not more than twenty."), ("3.", TOWN[4])]:
        y = item(sheet, y, mark, text, hang=28, align="justify") + 3


@document
def check_list(sheet):
    """Small squares before the lines: list items, or boxes to be ticked."""
    y = sheet.heading(80, "Before the first crossing")
    for n, text in enumerate(["Bilge is dry", "Chain greased", "Life belts counted (twelve)", "Lamp filled"]):
        sheet.rect(LEFT, y + 2, 8, 8, stroke="#000000")
        if n < 2:
            sheet.line(LEFT + 1.5, y + 6, LEFT + 3.5, y + 8.5, 1)
            sheet.line(LEFT + 3.5, y + 8.5, LEFT + 7, y + 3, 1)
        y = sheet.prose(LEFT + 16, y, FULL, text)


@document
def bullets_of_a_symbol_font(sheet):
    """The marks are letters of a font of signs; they are bullets, an arrow and a tick, not the letters l and n."""
    y = 80
    for sign, text in [("●", "A round bullet"), ("●", "Another round bullet"), ("■", "A square"), ("➔", "An arrow"),
                       ("✔", "A tick")]:
        sheet.text(LEFT + 10, y + 10, sign, "ZapfDingbats", 9)
        y = sheet.prose(LEFT + 28, y, FULL - 28, text)


@document
def list_levels_by_numbers(sheet):
    """All marks are at the margin: letters and bullets below numbers, which count on after other text."""
    y = 80
    for mark, text in [("1.", "The boat"), ("(a)", "hull"), ("(b)", "ramp"), ("2.", "The towers"), ("•", "the northern one"),
                       ("•", "the southern one")]:
        y = item(sheet, y, mark, text, hang=28)
    y = sheet.prose(LEFT, y + 8, FULL, TOWN[0])
    item(sheet, y, "3.", "The house", hang=28)
