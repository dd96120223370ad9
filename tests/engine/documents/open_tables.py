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
def open_table_over_three_pages(sheet):
    """One table without lines between its rows: the head is on every page, below its title on the later ones, with a
    note at the foot of the first. The texts of the pages differ in width. Another table of as many columns stands on
    the last page, below its own title.
    """
    head = ["Ferry", "Built", "Cars", "Fares"]
    names = ["Alder", "Brookland pearl", "Carver", "Dunn of the lower reach", "Eames", "Field"]
    rows = [[names[n % (3 + 2 * (n % 2))], str(1900 + n * 7 % 99), str(n * 5 % 40), f"{n * 811 % 9000:,}"] for n in range(90)]
    ruled = ("LINEBELOW", (0, 0), (-1, 0), 0.6, black)
    widths = [200, 80, 80, 90]
    for page, (first, end) in enumerate(((0, 42), (42, 80), (80, 90))):
        title = "<b>Table 3.</b> Boats of the lower river" if page == 0 else "<b>Table 3</b> (continued)"
        y = sheet.prose(LEFT, 70, FULL, title, size=9.5, after=2)
        y = sheet.table(LEFT, y, [head] + rows[first:end], widths, ("FONT", (0, 0), (-1, 0), "Sans-Bold", 9), NUMBERS,
                        ("TOPPADDING", (0, 0), (-1, -1), 1), ("BOTTOMPADDING", (0, 0), (-1, -1), 1.5), ruled, size=9.5)
        if end < 90:
            sheet.text(LEFT, 800, "Fares are those of the last full year.", size=8)
            sheet.next_page()
    y = sheet.prose(LEFT, y + 20, FULL, "<b>Table 4.</b> Ferries of the upper river", size=9.5)
    sheet.table(LEFT, y, [head] + rows[5:12], widths, ("FONT", (0, 0), (-1, 0), "Sans-Bold", 9), NUMBERS, ruled, size=9.5)


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


@document
def table_of_wrapped_words(sheet):
    """Five rows and three columns of words in several lines each, set apart below a head with a line."""
    rows = [["Plant", "What it needs", "When to sow"],
            ["Beans", "¶Warm soil and poles to climb on, with water in the evening", "¶After the last frost of May"],
            ["Kale", "¶Lime, and a place that had no cabbage in the three years before",
             "¶From April to June, or under glass a month before that"],
            ["Leeks", "¶Deep soil and patience", "¶March, under glass; planted out when they are as thick as a pencil"],
            ["Peas", "¶A net against the birds for the first weeks after they come up", "¶As soon as the ground can be worked"]]
    y = sheet.table(LEFT, 90, rows, [70, 200, 200], BOLD_HEAD, ("VALIGN", (0, 0), (-1, -1), "TOP"),
                    ("BOTTOMPADDING", (0, 0), (-1, -1), 7), ("LINEABOVE", (0, 0), (-1, 0), 0.8, black),
                    ("LINEBELOW", (0, 0), (-1, 0), 0.5, black), ("LINEBELOW", (0, -1), (-1, -1), 0.8, black))
    sheet.prose(LEFT, y + 12, FULL, GARDEN[1])


@document
def table_with_values_beside_last_lines(sheet):
    """Seven rows: the values stand beside the last line of texts that wrap, and a head of three lines ends at the same
    baseline as the others. Rows are as close as the lines inside them.
    """
    for x, lines in ((360, ["Boats", "in", "service"]), (440, ["Cars"]), (RIGHT, ["Fares", "a year"])):
        for n, line in enumerate(lines):
            sheet.text(x, 122 - 11 * (len(lines) - 1 - n), line, "Sans-Bold", 9, "right")
    sheet.line(LEFT, 127, RIGHT, 127)
    y = 140
    for lines, values in [(["Lower river"], ["4", "61,020", "90,400"]),
                          (["Upper river with the lakes and all of the", "reservoirs above them"], ["2", "9,118", "12,077"]),
                          (["Canals"], ["1", "310", "288"]), (["Coast"], ["7", "88,214", "240,118"]),
                          (["Islands that are reached from the western", "harbour in summer only"], ["3", "4,400", "21,960"]),
                          (["Harbours"], ["2", "75", "1,404"])]:
        for line in lines:
            sheet.text(LEFT, y, line, size=9.5)
            y += 11.5
        for x, value in zip((360, 440, RIGHT), values):
            sheet.text(x, y - 11.5, value, size=9.5, align="right")


@document
def table_of_groups_set_apart(sheet):
    """Groups of rows far apart, each below a line of its own; one group has a single row. One table."""
    y = 100
    for group, rows in [("Harbour office", [("Mooring", "100.0", "95", "30.3"), ("Cranes", "46.9", "104", "480")]),
                        ("Ferry", [("Cable", "8.7", "32", "34")]),
                        ("Gardens", [("Seed", "82.5", "650", "79"), ("Water", "114.6", "61", "91"), ("Tools", "7.1", "4", "12")])]:
        y += 24
        sheet.text(LEFT, y, group, "Serif-Bold", 9)
        for name, *values in rows:
            y += 13
            sheet.text(LEFT, y, name, size=9)
            for x, value in zip((300, 380, 460), values):
                sheet.text(x, y, value, size=9, align="right")


def rows_of_text(sheet, y, rows, places, size=9.5, step=13):
    """Writes rows of texts without lines. A place is a left edge, or a right edge if it is negative. Returns the end."""
    for row in rows:
        for text, x in zip(row, places):
            sheet.text(abs(x), y, text, size=size, align="right" if x < 0 else "left")
        y += step
    return y


@document
def tables_below_one_another(sheet):
    """Three tables, close to one another, the last below a title. Each has columns of its own."""
    y = rows_of_text(sheet, 100, [("Boat", "Cars", "Fares"), ("Alder", "31", "4,120"), ("Brookland", "8", "977"),
                                  ("Carver", "16", "12,040"), ("Dunn", "4", "318")], (LEFT, -250, -480))
    y = rows_of_text(sheet, y + 8, [("Garden", "Beans", "Kale", "Leeks"), ("Upper", "41.5", "3.0", "17.2"),
                                    ("Lower", "9.1", "22.4", "8.8"), ("School", "0.7", "1.9", "2.2")],
                     (LEFT, -200, -340, -400))
    sheet.text(LEFT, y + 4, "Harbour dues", "Sans-Bold", 9.5)
    rows_of_text(sheet, y + 19, [("Month", "Small boats", "Large boats", "Sum"), ("March", "110", "94", "204"),
                                 ("April", "127", "80", "207"), ("May", "131", "77", "208")], (LEFT, -290, -375, -RIGHT))


@document
def titles_among_rows(sheet):
    """One table of four columns. Titles in the middle of the page divide its rows; they span all columns."""
    rows = [("Ferry", "Cars", "Fares", "Days"), ("Alder", "31", "4,120", "200"), ("Carver", "16", "12,040", "365"),
            ("Dunn", "4", "318", "90")]
    y = rows_of_text(sheet, 100, rows[:1], (LEFT, -250, -360, -RIGHT))
    for title, part in (("Lower river", rows[1:]), ("Upper river and lakes", rows[2:]), ("Coast", rows[1:3])):
        sheet.text((LEFT + RIGHT) / 2, y, title, size=9.5, align="centre")
        y = rows_of_text(sheet, y + 13, part, (LEFT, -250, -360, -RIGHT))


@document
def heads_beside_their_numbers(sheet):
    """Four columns: heads at the left edges of wide columns, numbers at their right edges."""
    y = rows_of_text(sheet, 100, [("Kind", "Plain", "Limed", "Sum")], (LEFT, 180, 290, 410))
    rows_of_text(sheet, y, [("Alder white", "41", "49", "90"), ("Brookland", "50", "52", "102"), ("Old red", "33", "34", "67"),
                            ("Winter king", "56", "61", "117")], (LEFT, -270, -395, -RIGHT))


@document
def accounts_of_two_sides(sheet):
    """Four columns: the texts of the third begin close behind the numbers of the second, in the middle of theirs."""
    y = 100
    for text, amount, other, sum_ in [("Assets", "2020", "Debts", "2020"), ("Boats", "688,468", "Bonds", "6,358"),
                                      ("Harbour", "75", "Loans from members", "1,946"), ("Seed in store", "5,233", "Wages", "252"),
                                      ("Tools", "12,010", "Tax", "3"), ("Cash", "988", "Own funds", "978,915")]:
        sheet.text(LEFT, y, text, size=10)
        sheet.text(270, y, amount, size=10, align="centre")
        sheet.text(270 + width_of("688,468", "Serif", 10) / 2 + 4, y, other, size=10)
        sheet.text(RIGHT, y, sum_, size=10, align="right")
        y += 13


@document
def head_of_close_texts(sheet):
    """Three columns; the texts of the head stand closer than those of the rows."""
    x = LEFT
    places = []
    for head in ("Upper river", "Number", "Days"):
        places.append(x)
        sheet.text(x, 100, head, size=9)
        x += width_of(head, "Serif", 9) + 5.5
    rows_of_text(sheet, 113, [("Total", "40.4", "94"), ("Lakes", "98.2", "45"), ("Coast", "7.5", "61")], places, 9)


@document
def marks_beside_leaders(sheet):
    """Leaders behind the keys; "…" and "..." stand for missing values and stay."""
    rows_of_text(sheet, 100, [("Year", "Boats", "Cars", "Fares"), ("1990 . . . . . . . . . .", "31", "…", "4,120"),
                              ("1991 . . . . . . . . . .", "…", "16", "977"), ("1992 . . . . . . . . . .", "4", "8", "..."),
                              ("1993 . . . . . . . . . .", "12", "9", "318")], (LEFT, -250, -340, -430))
