# SPDX-License-Identifier: GPL-3.0-or-later
"""Pages of one or more columns."""
from paper import FULL, LEFT, RIGHT, document
from texts import CLOCK, GARDEN, TOWN


@document
def one_column(sheet):
    """A heading and six paragraphs; all are set to the left, none is justified."""
    y = sheet.heading(80, "The ferry at Oldham Reach", 18)
    sheet.paragraphs(LEFT, y, FULL, TOWN)


@document
def two_columns_under_heading(sheet):
    """The heading has two lines across both columns, and is one heading."""
    y = sheet.heading(80, "The ferry at Oldham Reach and what the town says about it", 18)
    wide = (FULL - 22) / 2
    sheet.paragraphs(LEFT, y + 8, wide, TOWN[:3] + GARDEN[:3], align="justify", first=12, after=0)
    sheet.paragraphs(LEFT + wide + 22, y + 8, wide, TOWN[3:] + GARDEN[3:], align="justify", first=12, after=0)


@document
def three_columns(sheet):
    """A heading and a line across the page, then three columns, each with a heading of its own."""
    y = sheet.heading(80, "News of the week", 22, font="Serif-Bold")
    sheet.line(LEFT, y, RIGHT, y, 1)
    wide = (FULL - 36) / 3
    for n, (title, texts) in enumerate([("Ferry", TOWN[:3]), ("Garden", GARDEN[:3]), ("Tower", CLOCK)]):
        x = LEFT + n * (wide + 18)
        below = sheet.heading(y + 8, title, 12, x, wide)
        sheet.paragraphs(x, below, wide, texts, size=9, align="justify")


@document
def columns_around_figure(sheet):
    """The figure with its caption spans both columns: above it and below it are two columns each."""
    wide = (FULL - 22) / 2
    for x, texts in ((LEFT, TOWN[:2]), (LEFT + wide + 22, TOWN[2:4])):
        sheet.paragraphs(x, 80, wide, texts, align="justify")
    sheet.image(LEFT + 90, 240, FULL - 180, 150)
    sheet.prose(LEFT, 394, FULL, "Figure 1: rings on the water behind the ferry", "Serif-Italic", 9.5, align="centre")
    for x, texts in ((LEFT, GARDEN[:3]), (LEFT + wide + 22, GARDEN[3:] + CLOCK[:1])):
        sheet.paragraphs(x, 425, wide, texts, align="justify")


@document
def short_columns(sheet):
    """Two columns of six lines under a paragraph of full width."""
    y = sheet.paragraphs(LEFT, 80, FULL, TOWN[:2])
    wide = (FULL - 30) / 2
    sheet.prose(LEFT, y + 10, wide, CLOCK[0], align="justify")
    sheet.prose(LEFT + wide + 30, y + 10, wide, CLOCK[1], align="justify")


@document
def columns_of_two_lines(sheet):
    """Three pages of two columns; on the last one stand two lines of each under a figure, which alone would not tell."""
    wide = (FULL - 16) / 2
    for texts in (TOWN, GARDEN + CLOCK[:1]):
        for n, half in enumerate((texts[:3], texts[3:])):
            sheet.paragraphs(LEFT + n * (wide + 16), 80, wide, half, align="justify", first=12, after=0)
        sheet.next_page()
    sheet.image(LEFT, 80, FULL, 200)
    sheet.prose(LEFT, 300, wide, CLOCK[1][:CLOCK[1].index("The weight") + 29], first=12)
    sheet.prose(LEFT + wide + 16, 300, wide, "drawn by hand, since the crank is too heavy for one man to turn it alone.")


@document
def columns_with_narrow_gap(sheet):
    """The gap is hardly wider than three blanks; the columns must not be read across."""
    wide = (FULL - 11) / 2
    sheet.paragraphs(LEFT, 80, wide, TOWN[:4], size=9.5, align="justify")
    sheet.paragraphs(LEFT + wide + 11, 80, wide, GARDEN[:4], size=9.5, align="justify")


@document
def article_with_sidebar(sheet):
    """A box of small type beside the article; it is read after (or before) the article, not line by line with it."""
    y = sheet.heading(80, "How the clock is kept", 16)
    sheet.paragraphs(LEFT, y, 300, CLOCK + TOWN[:2])
    sheet.rect(388, y, 145, 190, fill="#e8eef5")
    sheet.heading(y + 10, "In figures", 11, 398, 125)
    sheet.lines(398, y + 42, ["Height 41 m", "Steps 204", "Bells 4", "Largest bell 1,150 kg", "Wound weekly",
                              "Hands 2.1 m and 1.6 m", "Lit since 1931"], "Sans", 9, 16)


@document
def index_in_columns(sheet):
    """Three columns, no table; each entry is a line of its own; sub-entries are indented."""
    y = sheet.heading(80, "Index", 18)
    entries = ["anchor, 12, 40", "bank, 3", "  northern, 5", "  southern, 6–8", "beans, 31", "cable, 2, 14, 77",
               "  broken, 15", "clock, 51–60", "council, 9", "crank, 53", "crew, 4, 22", "divers, 15", "fare, 4",
               "ferryman, 4, 23", "frost, 36", "gilding, 58", "harvest, 10", "high water, 7", "  in 1947, 71",
               "  in 1998, 72", "journey, 7", "ladder, 55", "mildew, 34", "oak, 18", "pendulum, 51", "pine, 52"]
    third = 9
    for n, entry in enumerate(entries):
        x = LEFT + (n // third) * 165
        indent = 12 if entry.startswith("  ") else 0
        sheet.text(x + indent, y + 20 + 13 * (n % third), entry.strip(), size=9.5)
