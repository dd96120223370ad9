# SPDX-License-Identifier: GPL-3.0-or-later
"""Tables of which lines and fills show some edges only, and texts the others."""
from reportlab.lib.colors import HexColor, black, white

from paper import FULL, LEFT, document
from texts import GARDEN, TOWN

TOP = ("VALIGN", (0, 0), (-1, -1), "TOP")
MIDDLE = ("VALIGN", (0, 0), (-1, -1), "MIDDLE")
BOLD_HEAD = ("FONT", (0, 0), (-1, 0), "Sans-Bold", 9)
NUMBERS = ("ALIGN", (1, 0), (-1, -1), "RIGHT")
AROUND_HEAD_AND_END = (("LINEABOVE", (0, 0), (-1, 0), 0.8, black), ("LINEBELOW", (0, 0), (-1, 0), 0.5, black),
                       ("LINEBELOW", (0, -1), (-1, -1), 0.8, black))
PLANTS = [["Plant", "What it needs", "When to sow"],
          ["Beans", "¶Warm soil and poles to climb on, with water in the evening",
           "¶After the last frost of May"],
          ["¶Kale, Cabbage, Sprouts", "¶Lime, and a place that had no cabbage in the three years before",
           "¶From April to June, or under glass a month before that"],
          ["Leeks", "¶Deep soil and patience", "¶March, under glass; planted out when they are as thick as a pencil"],
          ["¶Peas, Lentils, Vetches", "¶A net against the birds for the first weeks after they come up",
           "¶As soon as the ground can be worked"],
          ["Onions", "¶Sun, and a bed that was dug in autumn and left alone since then", "¶March"]]


@document
def lines_between_columns_of_the_head_only(sheet):
    """A grid of four columns whose lines between columns end below the head. Two rows, each in its own cells."""
    y = sheet.prose(LEFT, 80, FULL, TOWN[0])
    sheet.table(LEFT, y, [["Ferry", "Built", "Cars", "Fares"], ["Alder", "1904", "12", "3,310"],
                          ["Brookland", "1931", "30", "9,702"]],
                [150, 90, 90, 90], BOLD_HEAD, NUMBERS, ("GRID", (0, 0), (-1, 0), 0.6, black),
                ("BOX", (0, 1), (-1, 1), 0.6, black), ("BOX", (0, 2), (-1, 2), 0.6, black))


@document
def table_in_one_of_two_columns(sheet):
    """A table of wrapped words between three lines in the left column of a page, with as many text lines beside it."""
    rows = [["Plant", "When to sow"]] + [[row[0], row[2]] for row in PLANTS[1:]]
    y = sheet.paragraphs(LEFT, 80, 225, TOWN[:2], align="justify")
    y = sheet.table(LEFT, y + 6, rows, [112, 113], BOLD_HEAD, TOP, *AROUND_HEAD_AND_END, size=9)
    sheet.paragraphs(LEFT, y + 12, 225, TOWN[2:4], align="justify")
    sheet.paragraphs(LEFT + 246, 80, 225, TOWN + GARDEN[:3], align="justify")


@document
def rows_of_wrapped_words_centred(sheet):
    """Five rows without any line, set apart; the lines of a cell stand between those of the cells beside it."""
    sheet.table(LEFT, 90, PLANTS, [90, 190, 190], BOLD_HEAD, MIDDLE, ("BOTTOMPADDING", (0, 0), (-1, -1), 6),
                ("TOPPADDING", (0, 0), (-1, -1), 4))


@document
def striped_rows_of_wrapped_words(sheet):
    """Five rows, every second one on a fill of its own for each cell, below a head on a dark fill; keys wrap as well."""
    commands = [("BACKGROUND", (column, 0), (column, 0), HexColor("#2f4f6f")) for column in range(3)]
    commands += [("BACKGROUND", (column, row), (column, row), HexColor("#e4ebf2"))
                 for row in (2, 4) for column in range(3)]
    y = sheet.prose(LEFT, 80, FULL, GARDEN[0])
    y = sheet.table(LEFT, y, PLANTS, [90, 190, 190], BOLD_HEAD, TOP, ("TEXTCOLOR", (0, 0), (-1, 0), white), *commands)
    sheet.prose(LEFT, y + 10, FULL, GARDEN[1])


@document
def dotted_grid(sheet):
    """Three rows and three columns between lines of square dots."""
    xs, ys = [LEFT, LEFT + 120, LEFT + 220, LEFT + 320], [100, 120, 140, 160]
    for y in ys:
        for n in range(214):
            sheet.rect(LEFT + 1.5 * n, y, 0.75, 0.75, "#444444")
    for x in xs:
        for n in range(41):
            sheet.rect(x, 100 + 1.5 * n, 0.75, 0.75, "#444444")
    for y, texts in zip(ys, (["Ferry", "Cars", "Fares a year"], ["Alder reach", "12", "Three thousand"], ["Welby", "30", ""])):
        for x, text in zip(xs, texts):
            sheet.text(x + 5, y + 14, text, "Sans", 9)


@document
def two_tables_with_lines_of_one_length(sheet):
    """Two tables below one another with a title between them; their lines are as long, their columns differ."""
    y = 90
    for title, rows, widths in (("Boats", [["Ferry", "Built", "Cars"], ["Alder", "1904", "12"], ["Brookland", "1931", "30"],
                                           ["Carver", "1956", "18"], ["Dunn", "1970", "24"]], [270, 100, 100]),
                                ("Fares of the year, by harbour and season",
                                 [["Harbour", "Spring", "Summer", "Autumn", "Winter"], ["North", "310", "991", "402", "77"],
                                  ["South", "288", "640", "315", "61"], ["Island", "94", "703", "120", "8"]],
                                 [150, 80, 80, 80, 80])):
        sheet.text(LEFT, y, title, "Sans-Bold", 10)
        y = sheet.table(LEFT, y + 6, rows, widths, BOLD_HEAD, NUMBERS, *AROUND_HEAD_AND_END, size=9) + 24


@document
def lines_over_the_numbers_only(sheet):
    """Lines across the columns of numbers; the keys of the rows stand left of them, with no line."""
    rows = [["", "2003", "2004", "2005", "2006"]] + [
        [name] + [f"{(n + 3) * (7919 + 613 * year) % 90000:,}" for year in range(4)]
        for n, name in enumerate(["Sales and use", "Property", "Fees of the harbour and its cranes", "Interest", "Gifts",
                                  "Other revenues of the town"])]
    sheet.table(LEFT, 100, rows, [170, 75, 75, 75, 75], BOLD_HEAD, NUMBERS,
                ("LINEABOVE", (1, 0), (-1, 0), 0.8, black), ("LINEBELOW", (1, 0), (-1, -1), 0.4, HexColor("#777777")))
