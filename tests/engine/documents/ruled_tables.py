# SPDX-License-Identifier: GPL-3.0-or-later
"""Tables with drawn lines, and drawn lines that make no table."""
from reportlab.lib.colors import HexColor, black

from paper import FULL, HEIGHT, LEFT, RIGHT, document
from texts import CLOCK, GARDEN, TOWN

GRID = ("GRID", (0, 0), (-1, -1), 0.6, black)
HEAD = ("FONT", (0, 0), (-1, 0), "Sans-Bold", 9.5)


@document
def ruled_table_with_spans(sheet):
    """Two head rows with three merged cells, and a merged cell in the body."""
    y = sheet.prose(LEFT, 80, FULL, TOWN[0])
    sheet.table(LEFT, y + 8, [
        ["Day", "Crossings", "", "", "Fares"],
        ["", "early", "noon", "late", ""],
        ["Monday", "8", "12", "6", "214.50"],
        ["Tuesday", "8", "11", "7", "198.00"],
        ["Wednesday", "closed for repairs", "", "", "0.00"],
        ["Thursday", "9", "14", "6", "230.25"],
    ], [90, 80, 80, 80, 90], GRID, HEAD, ("SPAN", (0, 0), (0, 1)), ("SPAN", (1, 0), (3, 0)), ("SPAN", (4, 0), (4, 1)),
        ("SPAN", (1, 4), (3, 4)), ("ALIGN", (1, 2), (-1, -1), "RIGHT"), ("ALIGN", (1, 4), (3, 4), "CENTER"))


@document
def ruled_table_with_long_cells(sheet):
    """Cells of several lines; each is one paragraph."""
    sheet.table(LEFT, 90, [
        ["Bed", "What is grown", "Remarks"],
        ["North", "¶Cabbage, kale and sprouts, all of them raised under glass and set out in the last week of April",
         "¶Nets against pigeons are needed until the plants are as high as a knee"],
        ["East", "¶Broad beans", "¶Sown in November; a second row in March"],
        ["South", "¶Carrots and onions in alternate rows", "¶Thin the carrots twice. Never water the onions after the "
                  "first of July, for they would not keep"],
    ], [60, 200, 211], GRID, HEAD, ("VALIGN", (0, 0), (-1, -1), "TOP"), ("BACKGROUND", (0, 0), (-1, 0),
                                                                           HexColor("#e4e4e4")))


@document
def table_in_frame(sheet):
    """The frame with round corners is no cell around the table, but it is a border on the page."""
    sheet.heading(80, "Timetable")
    sheet.rect(LEFT, 104, FULL, 130, stroke="#336699", line=1.2, radius=8)
    sheet.table(LEFT + 20, 116, [["From", "First", "Last"], ["Northern bank", "5:00", "21:30"],
                                 ["Southern bank", "5:10", "21:40"], ["Island", "9:00", "17:00"],
                                 ["Mill", "9:20", "17:20"]],
                [150, 100, 100], GRID, HEAD)
    sheet.prose(LEFT, 250, FULL, TOWN[2])


@document
def tables_side_by_side(sheet):
    """Two tables, each read by itself."""
    for x, rows in ((LEFT, [["Tool", "Price"], ["Spade", "31.00"], ["Rake", "18.50"], ["Hoe", "16.20"]]),
                    (LEFT + 250, [["Seed", "Packs", "Price"], ["Beans", "12", "3.10"], ["Kale", "7", "2.80"],
                                  ["Onion", "20", "1.95"]])):
        sheet.table(x, 90, rows, [80] + [65] * (len(rows[0]) - 1), GRID, HEAD, ("ALIGN", (1, 1), (-1, -1), "RIGHT"))
    sheet.prose(LEFT, 190, FULL, GARDEN[1])


@document
def frame_around_prose(sheet):
    """A paragraph with a border, not a table of one cell."""
    y = sheet.prose(LEFT, 80, FULL, TOWN[0])
    sheet.rect(LEFT, y + 8, FULL, 84, stroke="#000000", line=0.8)
    sheet.heading(y + 16, "Please note", 11, LEFT + 10, FULL - 20)
    sheet.prose(LEFT + 10, y + 36, FULL - 20, TOWN[3])
    sheet.prose(LEFT, y + 108, FULL, TOWN[1])


@document
def page_furniture(sheet):
    """Margin lines, a frame around the page and side tabs belong to no table."""
    sheet.rect(28, 28, 539, HEIGHT - 56, stroke="#888888")
    sheet.line(LEFT - 12, 28, LEFT - 12, HEIGHT - 28, 0.8, HexColor("#cc3333"))
    sheet.line(28, 64, 567, 64, 0.6)
    sheet.line(28, HEIGHT - 64, 567, HEIGHT - 64, 0.6)
    for n, letter in enumerate("ABCD"):
        sheet.rect(545, 120 + n * 60, 22, 50, fill="#d8d8d8" if n != 1 else "#444444")
        sheet.text(556, 150 + n * 60, letter, "Sans-Bold", 11, "centre", HexColor("#ffffff") if n == 1 else black)
    y = sheet.heading(84, "B. Beds and borders", 16)
    sheet.paragraphs(LEFT, y, FULL, GARDEN)


@document
def table_over_two_pages(sheet):
    """One table whose head is repeated at the top of the second page."""
    head = ["No.", "Name", "Since", "Shares"]
    names = ["Abel", "Brook", "Carver", "Dunn", "Eames", "Field", "Grant", "Hale", "Innes", "Jarvis"]
    rows = [[str(n + 1), f"{names[n % 10]}, {names[(n * 3 + 1) % 10]}", str(1950 + n * 7 % 60), str(5 + n * 11 % 90)]
            for n in range(44)]
    style = [GRID, HEAD, ("ALIGN", (2, 1), (-1, -1), "RIGHT")]
    y = sheet.heading(80, "Members of the ferry company", 16)
    sheet.table(LEFT, y, [head] + rows[:34], [50, 220, 90, 90], *style)
    sheet.next_page()
    y = sheet.table(LEFT, 62, [head] + rows[34:], [50, 220, 90, 90], *style)
    sheet.prose(LEFT, y + 12, FULL, "The list is complete. Shares that were returned are not counted.")


@document
def rotated_heads_in_table(sheet):
    """The heads of the narrow columns run upwards; they belong into the first row."""
    widths, top, tall = [140, 32, 32, 32, 32, 32], 90, 80
    heads = ["Spring", "Summer", "Autumn", "Winter", "Total"]
    rows = [["Cars", "812", "1,940", "760", "300", "3,812"], ["Carts", "14", "60", "41", "2", "117"],
            ["Walkers", "990", "5,210", "870", "120", "7,190"]]
    sheet.table(LEFT, top, [[""] * 6] + rows, widths, GRID, ("ALIGN", (1, 1), (-1, -1), "RIGHT"),
                ("LEFTPADDING", (1, 0), (-1, -1), 2), ("RIGHTPADDING", (1, 0), (-1, -1), 3), size=9,
                heights=[tall, 18, 18, 18])
    for n, head in enumerate(heads):
        sheet.rotated(LEFT + 140 + 32 * n + 19, top + tall - 6, 270, lambda text=head: sheet.text(0, 0, text, "Sans-Bold", 9.5))


@document
def form_like_table(sheet):
    """Cells of unlike widths in every row, each with a small label and a value."""
    rows = [[("Name", "Mary Dunn", 300), ("Born", "4 May 1961", 171)],
            [("Street", "Ferry Lane 7", 200), ("Town", "Oldham Reach", 171), ("Code", "OR4 7", 100)],
            [("Boat", "cart, two wheels", 157), ("Weight", "310 kg", 157), ("Length", "2.60 m", 157)],
            [("Remarks", "Crosses on Mondays and Thursdays with two churns of milk", 471)]]
    for r, row in enumerate(rows):
        x = LEFT
        for label, value, width in row:
            sheet.rect(x, 90 + 34 * r, width, 34, stroke="#000000")
            sheet.text(x + 4, 100 + 34 * r, label, "Sans", 7)
            sheet.text(x + 4, 117 + 34 * r, value, size=10.5)
            x += width
    sheet.prose(LEFT, 240, FULL, CLOCK[1])


@document
def table_with_double_and_thick_lines(sheet):
    """The thick frame and the double line above the sum are borders; thin lines separate the rows."""
    y = sheet.table(LEFT, 90, [["Account", "Debit", "Credit"], ["Fares", "", "8,114.00"], ["Cable", "5,290.00", ""],
                               ["Wages", "2,115.50", ""], ["Sum", "7,405.50", "8,114.00"]], [171, 150, 150],
                    ("BOX", (0, 0), (-1, -1), 2, black), ("LINEBELOW", (0, 0), (-1, 0), 1.2, black),
                    ("LINEBELOW", (0, 1), (-1, 2), 0.3, HexColor("#999999")),
                    ("LINEABOVE", (0, -1), (-1, -1), 0.5, black, 1, None, None, 2, 2),
                    ("LINEAFTER", (0, 0), (1, -1), 0.5, black), HEAD, ("ALIGN", (1, 0), (-1, -1), "RIGHT"))
    sheet.line(RIGHT - 300, y + 40, RIGHT, y + 40, 0.5)
    sheet.text(RIGHT - 300, y + 52, "Date and signature", "Sans", 8)


@document
def rotated_text_in_cells(sheet):
    """The text of three cells is rotated: down, up, and upside down; the others are upright."""
    for n, (degrees, x, y) in enumerate([(0, 20, 60), (90, 50, 20), (270, 60, 90), (180, 100, 50)]):
        left = LEFT + 117 * n
        sheet.rect(left, 90, 117, 110, stroke="#000000")
        sheet.rect(left, 200, 117, 20, stroke="#000000")
        sheet.rotated(left + x, 90 + y, degrees, lambda: sheet.text(0, 0, "Oldham Reach"))
        sheet.text(left + 6, 214, f"{degrees} degrees")


@document
def columns_under_one_drawn_column(sheet):
    """Only the cells of the head have borders: the second drawn column holds two columns of numbers."""
    sheet.table(LEFT, 90, [["Bank", "Crossings and fares"]], [150, 200], GRID, HEAD)
    sheet.rect(LEFT, 107, 150, 84, stroke="#000000")
    sheet.rect(LEFT + 150, 107, 200, 84, stroke="#000000")
    for n, (name, count, fare) in enumerate([("Northern", "1,204", "8,428.00"), ("Southern", "998", "6,986.00"),
                                             ("Island", "57", "399.00"), ("Mill", "12", "84.00")]):
        y = 124 + 19 * n
        sheet.text(LEFT + 6, y, name)
        sheet.text(LEFT + 230, y, count, align="right")
        sheet.text(LEFT + 344, y, fare, align="right")


@document
def ruled_table_with_shares(sheet):
    """Seven rows: each cell holds a number and its share below it. A town may be written in two lines."""
    rows = [["Town", "Cars", "Carts", "Walkers"]]
    for n, town in enumerate(["Oldham", "Oldham Reach with\nthe islands", "Brookland", "Carver", "Lower Dunn and\nthe mill", "Eames"]):
        rows.append([town] + [f"{(n + 2) * (k + 3) * 97 % 4000:,}\n({(n * 31 + k * 17) % 100}.{k}%)" for k in range(3)])
    sheet.table(LEFT, 90, rows, [120, 80, 80, 80], GRID, HEAD, ("ALIGN", (1, 0), (-1, -1), "CENTER"))


@document
def ruled_table_with_some_lines(sheet):
    """Eleven rows of five columns: lines stand between some of the rows and some of the columns only."""
    rows = [["Boat", "Built", "Cars", "Crew", "Fares"]]
    names = ["Alder", "Brookland", "Carver", "Dunn", "Eames", "Field", "Grant", "Hale", "Innes", "Jarvis"]
    rows += [[name, str(1900 + n * 37 % 99), str(n * 7 % 40 + 3), str(n % 4 + 2), f"{n * 811 % 9000 + 100:,}"]
             for n, name in enumerate(names)]
    lines = [("LINEBELOW", (0, row), (-1, row), 0.6, black) for row in (0, 1, 4, 5, 7, 8)]
    sheet.table(LEFT, 90, rows, [110, 60, 60, 60, 90], HEAD, ("BOX", (0, 0), (-1, -1), 0.6, black),
                ("ALIGN", (1, 0), (-1, -1), "RIGHT"), ("LINEAFTER", (1, 0), (1, -1), 0.6, black), *lines)


@document
def table_below_pairs_in_one_box(sheet):
    """Names with values stand above the table in the same frame; they are no rows of it. The table begins between two
    lines.
    """
    for n, (name, value, other, number) in enumerate([("Customer:", "Oldham Reach Gardens", "Number:", "5517"),
                                                      ("Street:", "Mill Road 3", "Order:", "2044")]):
        y = 102 + 14 * n
        for x, text in ((LEFT + 4, name), (LEFT + 70, value), (LEFT + 240, other), (LEFT + 318, number)):
            sheet.text(x, y, text, size=10)
    rows = [["Goods", "Boxes", "Weight", "Price", "Sum"], ["Apples", "12", "140", "11.50", "138.00"],
            ["Pears", "7", "81", "14.00", "98.00"], ["Plums", "3", "26", "16.25", "48.75"], ["Quinces", "1", "9", "21.00", "21.00"]]
    y = sheet.table(LEFT, 130, rows, [180, 70, 70, 70, 81], HEAD, ("ALIGN", (1, 0), (-1, -1), "RIGHT"),
                    ("LINEABOVE", (0, 0), (-1, 0), 0.6, black), ("LINEBELOW", (0, 0), (-1, 0), 0.6, black),
                    ("LINEBELOW", (0, -1), (-1, -1), 0.6, black))
    sheet.line(LEFT, 86, RIGHT, 86)
    for x in (LEFT, RIGHT):
        sheet.line(x, 86, x, y)
