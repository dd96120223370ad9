# SPDX-License-Identifier: GPL-3.0-or-later
"""Tables with few lines or none, which can be recognised by the positions of their texts."""
from reportlab.lib.colors import HexColor, black

from paper import FULL, LEFT, RIGHT, document, width_of
from texts import GARDEN, TOWN

NUMBERS = ("ALIGN", (1, 0), (-1, -1), "RIGHT")
BOLD_HEAD = ("FONT", (0, 0), (-1, 0), "Sans-Bold", 9.5)
COUNTRIES = [["Country", "Area", "Share", "Change", "Farms"], ["Austria", "86.2", "13.8", "0", "3,375"],
             ["Belgium", "30.7", "9.1", "-2", "1,214"], ["Croatia", "56.6", "22.0", "+4", "8,920"],
             ["Denmark", "42.9", "7.7", "0", "2,051"], ["Estonia", "45.3", "18.4", "+11", "640"]]


@document
def table_with_lines_under_rows(sheet):
    """Six rows, five columns; the last row has a line below it too."""
    y = sheet.prose(LEFT, 80, FULL, GARDEN[0])
    sheet.table(LEFT, y + 6, COUNTRIES, [131, 85, 85, 85, 85], BOLD_HEAD, NUMBERS,
                ("LINEBELOW", (0, 0), (-1, -1), 0.4, HexColor("#777777")))


@document
def table_with_head_lines(sheet):
    """As journals set them: a line above the head, one below it, one at the end, and one under a group of heads.

    Five columns; each group of heads spans two of them.
    """
    y = sheet.prose(LEFT, 80, FULL, "<b>Table 2.</b> Yield of four kinds of wheat in two years, in tonnes a hectare.",
                    size=9.5)
    sheet.table(LEFT, y, [["", "First year", "", "Second year", ""], ["Kind", "plain", "limed", "plain", "limed"],
                          ["Alder white", "4.1", "4.9", "3.8", "4.6"], ["Brookland", "5.0", "5.2", "4.7", "5.3"],
                          ["Old red", "3.3", "3.4", "3.5", "3.9"], ["Winter king", "5.6", "6.1", "5.1", "6.0"]],
                [131, 85, 85, 85, 85], ("SPAN", (1, 0), (2, 0)), ("SPAN", (3, 0), (4, 0)),
                ("ALIGN", (1, 0), (-1, -1), "CENTER"), ("LINEABOVE", (0, 0), (-1, 0), 1, black),
                ("LINEBELOW", (1, 0), (2, 0), 0.4, black), ("LINEBELOW", (3, 0), (4, 0), 0.4, black),
                ("LINEBELOW", (0, 1), (-1, 1), 0.6, black), ("LINEBELOW", (0, -1), (-1, -1), 1, black), size=9.5)
    sheet.prose(LEFT, y + 120, FULL, GARDEN[1])


@document
def table_with_banded_rows(sheet):
    """Six rows, five columns; the fills are backgrounds of rows up to the edges of the table."""
    sheet.table(LEFT, 90, COUNTRIES, [131, 85, 85, 85, 85], BOLD_HEAD, NUMBERS,
                ("BACKGROUND", (0, 0), (-1, 0), HexColor("#2f4f6f")), ("TEXTCOLOR", (0, 0), (-1, 0), HexColor("#ffffff")),
                ("ROWBACKGROUNDS", (0, 1), (-1, -1), [HexColor("#ffffff"), HexColor("#e9eef3")]))


@document
def table_without_lines(sheet):
    """Six rows, five columns between two paragraphs."""
    y = sheet.prose(LEFT, 80, FULL, GARDEN[0])
    y = sheet.table(LEFT, y + 6, COUNTRIES, [131, 85, 85, 85, 85], BOLD_HEAD, NUMBERS)
    sheet.prose(LEFT, y + 10, FULL, GARDEN[1])


@document
def table_with_long_heads(sheet):
    """Heads of up to three lines, one of them over two columns; the rows below hold one line each."""
    heads = [(250, "right", ["Visitors", "in the", "first year"]), (330, "right", ["Visitors", "in the last", "year"]),
             (430, "right", ["Per day,", "winter"]), (505, "right", ["Per day,", "summer"])]
    sheet.text(467, 100, "Averages", "Sans-Bold", 9, "centre")
    sheet.line(390, 104, 507, 104, 0.5)
    for x, side, lines in heads:
        for n, line in enumerate(lines):
            sheet.text(x, 140 - 11 * (len(lines) - 1 - n), line, "Sans-Bold", 9, side)
    sheet.text(LEFT, 140, "Museum", "Sans-Bold", 9)
    sheet.line(LEFT, 146, 507, 146, 0.5)
    for n, row in enumerate([["Ferry house", "1,204", "8,811", "4", "44"], ["Clock tower", "650", "2,390", "0", "13"],
                             ["Mill", "90", "3,075", "2", "15"], ["Gardens", "12,400", "15,102", "11", "72"]]):
        y = 162 + 15 * n
        sheet.text(LEFT, y, row[0])
        for (x, side, _), value in zip(heads, row[1:]):
            sheet.text(x, y, value, align=side)


@document
def table_with_side_heads(sheet):
    """Groups with a bold line of their own and indented members; sums under each group."""
    rows = [("Expenses", None, None), ("  Cable and towers", "5,290", "410"), ("  Boat", "1,180", "2,040"),
            ("  Wages", "21,155", "20,480"), ("  Together", "27,625", "22,930"), ("Income", None, None),
            ("  Fares", "24,310", "23,870"), ("  Grants", "4,000", "4,000"), ("  Together", "28,310", "27,870")]
    sheet.text(360, 100, "This year", "Sans-Bold", 9.5, "right")
    sheet.text(450, 100, "Last year", "Sans-Bold", 9.5, "right")
    for n, (name, this, last) in enumerate(rows):
        y = 118 + 15 * n
        font = "Serif-Bold" if this is None or "Together" in name else "Serif"
        sheet.text(LEFT + (14 if name.startswith("  ") else 0), y, name.strip(), font)
        if this:
            sheet.text(360, y, this, font, align="right")
            sheet.text(450, y, last, font, align="right")


@document
def invoice(sheet):
    """Items with detail lines under the description; sums below the last column. The date is beside the address
    and is no part of it.
    """
    sheet.text(LEFT, 90, "Invoice 2044", "Sans-Bold", 18)
    sheet.lines(LEFT, 120, ["Oldham Reach Gardens", "Mill Road 3", "Oldham Reach"])
    sheet.text(RIGHT, 120, "Date: 14 May 2026", align="right")
    sheet.text(RIGHT, 134, "Customer: 5517", align="right")
    columns = [(LEFT, "left"), (95, "left"), (370, "right"), (450, "right"), (RIGHT, "right")]
    for (x, side), text in zip(columns, ["No.", "Description", "Quantity", "Price", "Amount"]):
        sheet.text(x, 190, text, "Sans-Bold", 9.5, side)
    sheet.line(LEFT, 195, RIGHT, 195, 0.8)
    y = 210
    for row, details in [(["1", "Apple tree, half standard", "3", "42.00", "126.00"], ["Variety: Brookland pearl", "Root ball in sacking"]),
                         (["2", "Stake with strap", "3", "6.50", "19.50"], []),
                         (["3", "Planting", "2.5", "38.00", "95.00"], ["Two gardeners on the 12th of May"])]:
        for (x, side), text in zip(columns, row):
            sheet.text(x, y, text, size=10, align=side)
        for detail in details:
            y += 12
            sheet.text(95, y, detail, "Serif-Italic", 9)
        y += 17
    sheet.line(LEFT, y - 8, RIGHT, y - 8, 0.5)
    for name, value, font in [("Net", "240.50", "Serif"), ("Tax 7 %", "16.84", "Serif"), ("To pay", "257.34", "Serif-Bold")]:
        y += 8
        sheet.text(450, y, name, font, 10, "right")
        sheet.text(RIGHT, y, value, font, 10, "right")
        y += 7


def dotted(sheet, left, right, y, text, value, size=10):
    """A line with a leader of dots from the text to the value."""
    sheet.text(left, y, text, size=size)
    sheet.text(right, y, value, size=size, align="right")
    begin, end = left + width_of(text, "Serif", size) + 3, right - width_of(value, "Serif", size) - 3
    dots = int((end - begin) / width_of(" .", "Serif", size))
    sheet.text(end, y, " ." * dots, size=size, align="right")


@document
def table_with_leaders(sheet):
    """The dots in the first column lead to two columns of numbers; they are no text of the cells."""
    sheet.text(430, 100, "2024", "Serif-Bold", 10, "right")
    sheet.text(RIGHT, 100, "2025", "Serif-Bold", 10, "right")
    for n, (name, first, second) in enumerate([("Cattle", "9,120", "8,870"), ("Sheep and goats", "15,400", "16,012"),
                                               ("Horses", "340", "322"), ("Poultry, all kinds", "88,100", "91,455"),
                                               ("Bees, hives", "1,210", "1,604")]):
        dotted(sheet, LEFT, 430, 118 + 14 * n, name, first)
        sheet.text(RIGHT, 118 + 14 * n, second, size=10, align="right")


@document
def price_list_with_leaders(sheet):
    """Entries of one line with a tab and a leader, under headings."""
    y = sheet.heading(80, "At the Ferry House", 18)
    for title, items in [("Soups", [("Onion soup with cheese", "4.80"), ("Pea soup", "4.20")]),
                         ("Fish", [("Trout from the river", "14.50"), ("Smoked eel on bread", "11.90"),
                                   ("Pike dumplings", "12.60")])]:
        y = sheet.heading(y + 6, title, 12)
        for name, price in items:
            dotted(sheet, LEFT, 380, y + 10, name, price)
            y += 15


@document
def table_with_currency_signs(sheet):
    """Each sign is at the left of its amount's column, far from the figures; dashes mean nothing."""
    sheet.text(380, 100, "2025", "Serif-Bold", 10, "right")
    sheet.text(490, 100, "2024", "Serif-Bold", 10, "right")
    for n, (name, first, second) in enumerate([("Fares", "2,772,829", "2,610,004"), ("Grants", "45,000", "—"),
                                               ("Interest", "(1,310)", "988"), ("Total income", "2,816,519", "2,610,992")]):
        y = 118 + 15 * n
        sheet.text(LEFT, y, name, size=10)
        for right, value in ((380, first), (490, second)):
            if n in (0, 3):
                sheet.text(right - 70, y, "$", size=10)
            sheet.text(right, y, value, size=10, align="right")
            if n == 3:
                sheet.line(right - 70, y - 11, right, y - 11, 0.5)
                sheet.line(right - 70, y + 3, right, y + 3, 0.5)
                sheet.line(right - 70, y + 5, right, y + 5, 0.5)


@document
def glossary(sheet):
    """Terms at the left, explanations of several lines beside them: a table of two columns."""
    y = 90
    for term, text in [("Cable", TOWN[1]), ("Crew", TOWN[2]), ("Seed", GARDEN[1]), ("Slugs", GARDEN[3])]:
        sheet.text(LEFT, y + 10, term, "Serif-Bold")
        y = sheet.prose(LEFT + 110, y, FULL - 110, text)
