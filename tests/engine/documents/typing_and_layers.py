# SPDX-License-Identifier: GPL-3.0-or-later
"""Fixed pitch, and text that is drawn in unusual ways."""
from reportlab.lib.colors import HexColor

from paper import FULL, LEFT, RIGHT, document, scan, width_of
from texts import CLOCK, GARDEN, TOWN

MINUTES = [(LEFT, 90, "Minutes of the meeting of the ferry company"),
           (LEFT, 122, "held in the ferry house on the fourteenth of May, at seven in the evening."),
           (LEFT, 138, "Nineteen members came; two had sent a letter."),
           (LEFT, 170, "The keeper read the accounts. They were accepted without a vote.")]


@document
def code_listing(sheet):
    """The listing keeps its line ends, its indents and its empty line; the sentences around it are no headings."""
    y = sheet.prose(LEFT, 80, FULL, "The following function counts the strands of a cable.")
    y = sheet.lines(LEFT + 12, y + 12, ["int strands(const Cable &cable)", "{", "    int count = 0;",
                                        "    for (const Wire &wire : cable.wires()) {", "        if (!wire.broken()) {",
                                        "            ++count; // whole ones only", "        }", "    }", "", "    return count;",
                                        "}"], "Mono", 9, 11.5)
    sheet.prose(LEFT, y + 6, FULL, "It is called once a day by the program of the tower.")


@document
def typewritten_letter(sheet):
    """Prose in fixed pitch is prose: two paragraphs under a date and an address."""
    sheet.lines(LEFT, 90, ["                                             14 May 1958", "", "Mr. J. Hale", "Ferry House",
                           "Oldham Reach", "", "Dear Mr. Hale:", "", "Thank you for your letter of the 2nd. The cable that you",
                           "ordered will leave our works on Monday and should be at your", "station by the end of the week.",
                           "", "May we remind you that the drums remain our property? Please", "return them at your "
                           "convenience, but before the end of July,", "since they are needed for the harvest.", "",
                           "Very truly yours,"], "Mono", 10, 14)


@document
def typewritten_table(sheet):
    """A table typed with blanks, between two lines of prose."""
    sheet.lines(LEFT, 90, ["The crossings of the week are given in the list below.", "",
                           "Day           Cars   Carts   Walkers      Fares", "----------------------------------------------",
                           "Monday          41       3       112     214.50", "Tuesday         38       1        97     198.00",
                           "Wednesday        0       0         0       0.00", "Thursday        52       6       130     230.25",
                           "----------------------------------------------", "Sum            131      10       339     642.75",
                           "", "On Wednesday the ramp was painted and the boat stayed on the", "southern bank until the "
                           "evening."], "Mono", 10, 13)


@document
def command_lines_in_prose(sheet):
    """Single fixed-pitch lines between paragraphs, and fixed-pitch words inside one."""
    y = sheet.prose(LEFT, 80, FULL, 'Start the program with <font name="Mono" size="9.5">clock --wind</font> and wait:')
    sheet.text(LEFT + 24, y + 10, "$ clock --wind --turns 112", "Mono", 9.5)
    sheet.text(LEFT + 24, y + 22, "striking train: 112 turns", "Mono", 9.5)
    sheet.prose(LEFT, y + 34, FULL, CLOCK[1])


@document
def bold_by_overprinting(sheet):
    """The same glyphs twice at a small distance are one bold text, not two."""
    for shift in (0, 0.3):
        sheet.text(LEFT + shift, 90, "Statement of the ferry company", "Serif", 12)
        sheet.text(LEFT + shift, 130, "Total", "Serif", 10.5)
        sheet.text(LEFT + 200 + shift, 130, "2,772,829", "Serif", 10.5, "right")
    sheet.text(LEFT, 112, "Fares", "Serif", 10.5)
    sheet.text(LEFT + 200, 112, "1,310,200", "Serif", 10.5, "right")


@document
def bold_by_letters(sheet):
    """Each letter drawn twice before the next one, as some printer drivers do; then a heading with a grey shadow."""
    x = LEFT
    for letter in "Fares of 2,772,829 travellers":
        for shift in (0, 0.25):
            sheet.text(x + shift, 90, letter, "Serif", 12)
        x += width_of(letter, "Serif", 12)
    sheet.text(LEFT + 0.8, 130.8, "The Winter Timetable", "Sans", 20, colour=HexColor("#b0b0b0"))
    sheet.text(LEFT, 130, "The Winter Timetable", "Sans", 20, colour=HexColor("#203080"))
    sheet.prose(LEFT, 150, FULL, CLOCK[0])


@document
def bold_by_outline(sheet):
    """Letters that are filled and outlined look bold."""
    text = sheet.canvas.beginText(LEFT, sheet.height - 90)
    text.setFont("Serif", 12)
    text.setTextRenderMode(2)
    text.textOut("Drawn with an outline")
    text.setTextRenderMode(0)
    sheet.canvas.drawText(text)
    sheet.prose(LEFT, 100, FULL, CLOCK[0])


def invisible_minutes(sheet):
    for x, y, line in MINUTES:
        text = sheet.canvas.beginText(x, sheet.height - y)
        text.setFont("Serif", 12)
        text.setTextRenderMode(3)
        text.textOut(line)
        sheet.canvas.drawText(text)


@document
def invisible_text_over_picture(sheet):
    """A searchable scan: the picture shows the text, the text itself is drawn invisibly. It is the text of the page."""
    sheet.canvas.drawImage(scan(MINUTES), 0, 0, 595, 842)
    invisible_minutes(sheet)


@document
def searchable_scan_with_photo(sheet):
    """Of the picture of the page, the photo stays; the rest of it is text."""
    sheet.canvas.drawImage(scan(MINUTES, (LEFT, 200, 160, 120)), 0, 0, 595, 842)
    invisible_minutes(sheet)


@document
def text_under_scan(sheet):
    """A searchable scan whose text is drawn first and covered by the picture of the page."""
    for x, y, line in MINUTES:
        sheet.text(x, y, line, "Serif", 12)
    sheet.canvas.drawImage(scan(MINUTES), 0, 0, 595, 842)


@document
def text_drawn_again_over_fill(sheet):
    """A form that was filled in again: the old entry is covered by a white box, one line is drawn again on it."""
    sheet.text(LEFT, 100, "Name: Thomas Hale")
    sheet.text(LEFT, 114, "Ferry House")
    sheet.rect(LEFT - 4, 86, 300, 34, fill="#ffffff")
    sheet.text(LEFT, 100, "Name: Mary Dunn")
    sheet.text(LEFT, 114, "Ferry House")


@document
def scanned_page(sheet):
    """A picture of the page and nothing else."""
    sheet.canvas.drawImage(scan(MINUTES), 0, 0, 595, 842)


@document
def watermark(sheet):
    """The large grey word across the page is no part of the text."""
    sheet.rotated(150, 620, 315, lambda: sheet.text(0, 0, "DRAFT", "Sans-Bold", 150, colour=HexColor("#e6e6e6")))
    sheet.paragraphs(LEFT, 80, FULL, TOWN + GARDEN + CLOCK, size=11, leading=15)


@document
def text_under_opaque_fill(sheet):
    """The covered line cannot be seen and should not be found; what lies outside the page neither."""
    sheet.text(LEFT, 100, "This sentence lies under a white box.")
    sheet.rect(LEFT - 4, 86, 300, 20, fill="#ffffff")
    sheet.text(LEFT, 130, "This sentence can be seen.")
    sheet.text(-300, 150, "Outside at the left")
    sheet.text(LEFT, 900, "Below the page")


@document
def text_over_transparent_fill(sheet):
    """Two paragraphs behind a half-transparent band, which hides nothing."""
    y = sheet.paragraphs(LEFT, 80, FULL, TOWN[:2])
    sheet.canvas.saveState()
    sheet.canvas.setFillColor(HexColor("#ffd000"), alpha=0.3)
    sheet.canvas.rect(LEFT - 6, sheet.height - y, FULL + 12, y - 76, stroke=0, fill=1)
    sheet.canvas.restoreState()
    sheet.prose(LEFT, y + 10, FULL, TOWN[2])


@document
def heading_on_colour_gradient(sheet):
    """The heading stays text; what lies behind it is a shading from one colour to another."""
    sheet.canvas.saveState()
    band = sheet.canvas.beginPath()
    band.rect(LEFT, sheet.height - 60, FULL, 30)
    sheet.canvas.clipPath(band, stroke=0, fill=0)
    sheet.canvas.linearGradient(LEFT, sheet.height - 60, RIGHT, sheet.height - 60, (HexColor("#1f4e79"), HexColor("#9dc3e6")),
                                extend=False)
    sheet.canvas.restoreState()
    sheet.text(LEFT + 10, 52, "Spring at the river", "Sans-Bold", 18, colour=HexColor("#ffffff"))
    sheet.paragraphs(LEFT, 110, FULL, GARDEN[:2])


@document
def chinese_paragraphs(sheet):
    """Two paragraphs without blanks, a heading above them; no blank comes in where lines are joined."""
    sheet.text(LEFT, 90, "渡船的歷史", "ZenHei", 16)
    y = sheet.lines(LEFT, 116, ["這條渡船從一八七四年起就在河上來往，載運車輛、牲口和行人。每逢集市，", "它從清晨五點一直開到最後一位農夫"
                                "回家為止。"], "ZenHei", 11, 17)
    sheet.lines(LEFT, y + 9, ["水位太高的時候渡船停開，每年大約有九天。司機只好改走威爾比的橋，要多", "走二十三公里，多花半個鐘頭。"],
                "ZenHei", 11, 17)
