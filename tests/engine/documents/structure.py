# SPDX-License-Identifier: GPL-3.0-or-later
"""Headings, contents, headers and footers, notes."""
from paper import FULL, LEFT, RIGHT, document
from texts import CLOCK, GARDEN, TOWN
from open_tables import dotted


@document
def headings_by_size(sheet):
    """Three levels."""
    y = sheet.heading(80, "The town and its river", 22)
    y = sheet.prose(LEFT, y, FULL, TOWN[0])
    for chapter, sections in [("The crossing", [("Cables", TOWN[1]), ("Crew", TOWN[2])]),
                              ("The tower", [("Clock", CLOCK[0]), ("Hands", CLOCK[2])])]:
        y = sheet.heading(y + 10, chapter, 16)
        for section, text in sections:
            y = sheet.prose(LEFT, sheet.heading(y + 6, section, 12.5), FULL, text)


@document
def headings_by_bold(sheet):
    """The headings have the size of the text and are distinguished by their bold type and the space above."""
    y = 80
    for title, text in [("Sowing", GARDEN[1]), ("Watering", GARDEN[2]), ("Slugs", GARDEN[3])]:
        y = sheet.prose(LEFT, y + 8, FULL, title, "Serif-Bold", after=2)
        y = sheet.prose(LEFT, y, FULL, text)


@document
def headings_by_number(sheet):
    """Numbers and sizes agree on a title and three levels below it."""
    y = sheet.heading(80, "Report on the ferry", 18)
    for title, size, text in [("1 Purpose", 14, TOWN[0]), ("1.1 Earlier reports", 12, TOWN[4]), ("1.1.1 The report of 1936", 11,
                              TOWN[5]), ("1.2 Sources", 12, CLOCK[0]), ("2 State of the boat", 14, TOWN[1])]:
        y = sheet.prose(LEFT, sheet.heading(y + 4, title, size), FULL, text)


@document
def contents_with_leaders(sheet):
    """Entries of three levels, each a line of its own with its page number; on the second page, what they lead to."""
    y = sheet.heading(80, "Contents", 18)
    for level, name, page in [(0, "1 Purpose", "2"), (1, "1.1 Earlier reports", "2"), (1, "1.2 Sources", "2"),
                              (0, "2 State of the boat", "2"), (1, "2.1 Hull", "3"), (2, "2.1.1 Planks below the water", "3"),
                              (2, "2.1.2 Ramp", "4"), (1, "2.2 Cables and towers", "5"), (0, "3 Costs", "7")]:
        dotted(sheet, LEFT + 16 * level, RIGHT, y + 10, name, page, 10.5)
        sheet.canvas.linkRect("", "purpose", (LEFT, sheet.height - y - 13, RIGHT, sheet.height - y), relative=0,
                              Border="[0 0 0]")
        y += 17
    sheet.next_page()
    sheet.canvas.bookmarkPage("purpose")
    sheet.canvas.addOutlineEntry("1 Purpose", "purpose", 0)
    sheet.prose(LEFT, sheet.heading(80, "1 Purpose", 14), FULL, TOWN[0])


@document
def contents_without_leaders(sheet):
    """Four entries, each a line of its own with a tab before its page number."""
    y = sheet.heading(80, "In this issue", 18)
    for name, page in [("Where the ferry goes", "4"), ("Four beds and a path", "11"), ("Who winds the clock", "15"),
                       ("Letters", "22")]:
        sheet.text(LEFT, y + 10, name)
        sheet.text(RIGHT, y + 10, page, align="right")
        y += 17


@document
def headings_by_outline(sheet):
    """The entries of the outline look like text; the largest line is the title, which has no entry."""
    y = sheet.heading(80, "The town and its river", 20)
    for level, title, text in [(0, "The crossing", TOWN[0]), (1, "Cables", TOWN[1]), (1, "Crew", TOWN[2]),
                               (0, "The tower", CLOCK[0])]:
        sheet.canvas.bookmarkHorizontal(title, 0, sheet.height - y)
        sheet.canvas.addOutlineEntry(title, title, level)
        y = sheet.prose(LEFT, y + 4, FULL, title, "Serif-Italic", after=2)
        y = sheet.prose(LEFT, y, FULL, text)


@document
def running_titles_of_chapters(sheet):
    """The title above the second page is on no other page, at the place and in the type of the others."""
    for page, (title, texts) in enumerate([("The town", TOWN), ("The garden", GARDEN), ("The town", CLOCK),
                                           ("The town", GARDEN)], 1):
        sheet.text(LEFT, 44, title, "Serif-Italic", 9)
        sheet.paragraphs(LEFT, 90, FULL, texts)
        if page < 4:
            sheet.next_page()


@document
def header_and_footer(sheet):
    """Left, middle and right parts above, the number of the page below; three pages of text."""
    for page, texts in enumerate([TOWN, GARDEN, CLOCK], 1):
        sheet.text(LEFT, 44, "Oldham Reach", "Serif-Italic", 9)
        sheet.text((LEFT + RIGHT) / 2, 44, "Yearbook", "Serif-Italic", 9, "centre")
        sheet.text(RIGHT, 44, "2026", "Serif-Italic", 9, "right")
        sheet.line(LEFT, 48, RIGHT, 48, 0.4)
        sheet.text((LEFT + RIGHT) / 2, 806, f"Page {page} of 3", size=9, align="centre")
        sheet.paragraphs(LEFT, 80, FULL, texts)
        if page < 3:
            sheet.next_page()


@document
def header_of_a_single_page(sheet):
    """A header line and a page number are found on a single page too, by their place and their size."""
    sheet.text(LEFT, 40, "Garden notes", "Sans", 8)
    sheet.text(RIGHT, 40, "17", "Sans", 8, "right")
    sheet.line(LEFT, 45, RIGHT, 45, 0.4)
    sheet.paragraphs(LEFT, 80, FULL, GARDEN)


@document
def letter_of_two_pages(sheet):
    """The second page has the number at its foot, as the first one has; the address at the foot of both is small."""
    for page, texts in enumerate([TOWN, GARDEN], 1):
        sheet.paragraphs(LEFT, 80, FULL, texts)
        sheet.line(LEFT, 770, RIGHT, 770, 0.4)
        sheet.text(LEFT, 782, "Oldham Reach Ferry Company · Ferry House · OR1 1AA", "Sans", 8)
        sheet.text(RIGHT, 782, f"Page {page}", "Sans", 8, "right")
        if page < 2:
            sheet.next_page()


@document
def page_number_of_a_single_page(sheet):
    """The number in the middle of the foot is no paragraph; the short last line of the text is one."""
    y = sheet.paragraphs(LEFT, 80, FULL, GARDEN + TOWN)
    sheet.prose(LEFT, y, FULL, "17 of them were sold.")
    sheet.text((LEFT + RIGHT) / 2, 790, "– 17 –", align="centre")


@document
def footnotes(sheet):
    """Two notes under a short line, each with a superscript number that is in the text, too."""
    y = sheet.prose(LEFT, 80, FULL, TOWN[0].replace("1874.", "1874.<super>1</super>"))
    y = sheet.prose(LEFT, y, FULL, TOWN[1].replace("cables", "cables<super>2</super>"))
    sheet.paragraphs(LEFT, y, FULL, TOWN[2:5])
    sheet.line(LEFT, 700, LEFT + 140, 700, 0.5)
    sheet.prose(LEFT, 706, FULL, "<super>1</super> The first boat was bought second-hand and sank in its third year; its "
                "bell is in the museum of the town, beside the bill for it.", size=8.5, after=3)
    sheet.prose(LEFT, 732, FULL, "<super>2</super> Steel since 1921, hemp before.", size=8.5)


@document
def footnotes_with_signs(sheet):
    """Asterisk and dagger tie the notes to words of a table and of the text."""
    y = sheet.prose(LEFT, 80, FULL, GARDEN[0].replace("three beds", "three beds*"))
    sheet.prose(LEFT, y, FULL, GARDEN[1].replace("spade.", "spade.†"))
    sheet.line(LEFT, 730, LEFT + 140, 730, 0.5)
    sheet.prose(LEFT, 736, FULL, "* Two are enough for herbs.", size=8.5, after=2)
    sheet.prose(LEFT, 749, FULL, "† In heavy soil wait a day longer.", size=8.5)


@document
def endnotes(sheet):
    """Numbers in brackets in the text, the notes in a list under a heading at the end."""
    y = sheet.paragraphs(LEFT, 80, FULL, [CLOCK[0] + " [1]", CLOCK[1] + " [2, 3]", CLOCK[2]])
    y = sheet.heading(y + 10, "Notes")
    for n, text in enumerate(["J. Hale, <i>Clocks of the Reach</i>, Welby 1966, pages 12 to 40, where the older accounts are "
                              "compared with one another.", "The book of the tower, entry of 3 March.", "As told by the "
                              "present keeper."]):
        sheet.text(LEFT, y + 8.5, f"[{n + 1}]", size=9)
        y = sheet.prose(LEFT + 22, y, FULL - 22, text, size=9, after=3)


@document
def document_with_two_chapters(sheet):
    """A title page, then chapters on new pages; a sentence is cut by a page break."""
    sheet.text(297, 300, "The Ferry Book", "Serif-Bold", 28, "centre")
    sheet.text(297, 340, "Collected by the keepers", "Serif-Italic", 14, "centre")
    sheet.next_page()
    y = sheet.heading(80, "Chapter One", 18)
    y = sheet.paragraphs(LEFT, y, FULL, TOWN * 3, align="justify", first=14, after=0, size=11, leading=16)
    sheet.prose(LEFT, y, FULL, "When the water had risen to the third step, the keeper took the lamp from its hook, called "
                "the boy, who was asleep under the", align="justify", first=14, size=11, leading=16)
    sheet.next_page()
    sheet.prose(LEFT, 80, FULL, "stairs, and went down to the ramp to see whether the chain still held. It did, but the "
                "boat hung on it like a dog on a leash.", align="justify", size=11, leading=16)


@document
def footnotes_in_two_columns(sheet):
    """Each column has its own note at its foot; the notes do not interrupt the text that goes on in the next column."""
    wide = (FULL - 22) / 2
    for n, (x, texts) in enumerate([(LEFT, TOWN[:5]), (LEFT + wide + 22, GARDEN)]):
        texts = [texts[0].replace(".", f".<super>{n + 1}</super>", 1), *texts[1:]]
        y = sheet.paragraphs(x, 80, wide, texts, align="justify")
        sheet.line(x, y + 14, x + 80, y + 14, 0.5)
        sheet.prose(x, y + 18, wide, f"<super>{n + 1}</super> So the keeper says, who was not there when it was begun.", size=8)
