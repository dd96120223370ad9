# SPDX-License-Identifier: GPL-3.0-or-later
"""Fixed pitch, and text that is drawn in unusual ways."""
from reportlab.lib.colors import HexColor

from paper import FULL, LEFT, document
from texts import CLOCK, GARDEN, TOWN


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
def bold_by_outline(sheet):
    """Letters that are filled and outlined look bold."""
    text = sheet.canvas.beginText(LEFT, sheet.height - 90)
    text.setFont("Serif", 12)
    text.setTextRenderMode(2)
    text.textOut("Drawn with an outline")
    text.setTextRenderMode(0)
    sheet.canvas.drawText(text)
    sheet.prose(LEFT, 100, FULL, CLOCK[0])


@document
def invisible_text_over_picture(sheet):
    """A searchable scan: the picture shows the text, the text itself is drawn invisibly. It is the text of the page."""
    sheet.image(0, 0, 595, 842, "slope")
    y = 90
    for line in ["Minutes of the meeting of the ferry company", "held in the ferry house on the fourteenth of May,",
                 "at seven in the evening. Nineteen members came."]:
        text = sheet.canvas.beginText(LEFT, sheet.height - y)
        text.setFont("Serif", 12)
        text.setTextRenderMode(3)
        text.textOut(line)
        sheet.canvas.drawText(text)
        y += 16


@document
def scanned_page(sheet):
    """A picture of the page and nothing else."""
    sheet.image(0, 0, 595, 842, "slope")


@document
def watermark(sheet):
    """The large grey word across the page is no part of the text."""
    sheet.turned(150, 620, 315, lambda: sheet.text(0, 0, "DRAFT", "Sans-Bold", 150, colour=HexColor("#e6e6e6")))
    sheet.paragraphs(LEFT, 80, FULL, TOWN + GARDEN + CLOCK, size=11, leading=15)


@document
def text_under_opaque_fill(sheet):
    """The covered line cannot be seen and should not be found; what lies outside the page neither."""
    sheet.text(LEFT, 100, "This sentence lies under a white box.")
    sheet.rect(LEFT - 4, 86, 300, 20, fill="#ffffff")
    sheet.text(LEFT, 130, "This sentence can be seen.")
    sheet.text(-300, 150, "Outside at the left")
    sheet.text(LEFT, 900, "Below the page")
