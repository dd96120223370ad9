# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures, charts and drawings."""
from reportlab.lib.colors import HexColor, white

from paper import FULL, LEFT, RIGHT, document
from texts import CLOCK, GARDEN, TOWN


@document
def picture_with_caption(sheet):
    y = sheet.prose(LEFT, 80, FULL, TOWN[0])
    sheet.image(LEFT + 120, y + 10, 230, 150)
    sheet.prose(LEFT, y + 166, FULL, "Figure 1. The rings that the ferry leaves on the water.", "Serif-Italic", 9.5,
                align="centre")
    sheet.prose(LEFT, y + 190, FULL, TOWN[1])


@document
def pictures_side_by_side(sheet):
    """Three pictures in a row, each with a caption below it."""
    for n, (kind, text) in enumerate([("rings", "(a) morning"), ("slope", "(b) noon"), ("rings", "(c) evening")]):
        sheet.image(LEFT + 160 * n, 90, 150, 110, kind)
        sheet.text(LEFT + 160 * n + 75, 212, text, "Serif-Italic", 9, "centre")
    sheet.prose(LEFT, 230, FULL, TOWN[2])


@document
def picture_in_text(sheet):
    """Text runs around the picture at its right."""
    sheet.image(LEFT + 300, 84, 171, 120, "slope")
    y = sheet.prose(LEFT, 80, 285, " ".join(TOWN[:3]), align="justify")
    sheet.prose(LEFT, max(y, 216), FULL, " ".join(GARDEN[:3]), align="justify")


@document
def bar_chart(sheet):
    """Bars with values on them, an axis with numbers, names below: one figure with its labels, and a caption."""
    y = sheet.prose(LEFT, 80, FULL, TOWN[3])
    base = y + 190
    for n in range(5):
        sheet.text(LEFT + 22, base - 40 * n + 3, str(n * 25), "Sans", 8, "right")
        sheet.line(LEFT + 26, base - 40 * n, LEFT + 400, base - 40 * n, 0.3, HexColor("#999999"))
    for n, (name, value) in enumerate([("Mon", 64), ("Tue", 81), ("Wed", 22), ("Thu", 93), ("Fri", 70)]):
        x = LEFT + 45 + n * 72
        sheet.rect(x, base - value * 1.6, 44, value * 1.6, fill="#3a6ea5")
        sheet.text(x + 22, base - value * 1.6 + 12, str(value), "Sans-Bold", 8, "centre", white)
        sheet.text(x + 22, base + 12, name, "Sans", 8, "centre")
    sheet.line(LEFT + 26, base, LEFT + 400, base, 0.8)
    sheet.text(LEFT, base + 34, "Figure 2: Crossings by day of the week", "Serif-Italic", 9.5)


@document
def line_chart_on_grid(sheet):
    """Two curves on a grid of lines are a figure and no table."""
    left, top = LEFT + 40, 100
    for n in range(6):
        sheet.line(left, top + 30 * n, left + 300, top + 30 * n, 0.3)
        sheet.text(left - 5, top + 30 * n + 3, str(50 - 10 * n), "Sans", 8, "right")
        sheet.line(left + 60 * n, top, left + 60 * n, top + 150, 0.3)
        sheet.text(left + 60 * n, top + 162, str(2020 + n), "Sans", 8, "centre")
    for values, ink in (([12, 18, 31, 28, 40, 44], "#cc2222"), ([40, 35, 30, 22, 19, 9], "#2244cc")):
        for n in range(5):
            sheet.line(left + 60 * n, top + 150 - 3 * values[n], left + 60 * (n + 1), top + 150 - 3 * values[n + 1], 1.4,
                       HexColor(ink))
    sheet.text(left + 310, top + 22, "walkers", "Sans", 8, colour=HexColor("#cc2222"))
    sheet.text(left + 310, top + 124, "carts", "Sans", 8, colour=HexColor("#2244cc"))
    sheet.prose(LEFT, top + 180, FULL, "Figure 3: Walkers and carts", "Serif-Italic", 9.5)
    sheet.prose(LEFT, top + 200, FULL, TOWN[4])


@document
def boxes_and_arrows(sheet):
    """A flow chart is one figure; its labels are no table and no paragraphs of the text."""
    y = sheet.prose(LEFT, 80, FULL, "The way of a complaint through the company is shown in the figure.")
    boxes = {"Complaint": (LEFT, y + 20), "Keeper": (LEFT + 160, y + 20), "Council": (LEFT + 320, y + 20),
             "Answer": (LEFT + 160, y + 100)}
    for name, (x, top) in boxes.items():
        sheet.rect(x, top, 100, 36, stroke="#222222", line=1)
        sheet.text(x + 50, top + 22, name, "Sans", 10, "centre")
    sheet.arrow(LEFT + 100, y + 38, LEFT + 160, y + 38)
    sheet.arrow(LEFT + 260, y + 38, LEFT + 320, y + 38)
    sheet.arrow(LEFT + 210, y + 56, LEFT + 210, y + 100)
    sheet.arrow(LEFT + 320, y + 56, LEFT + 260, y + 104)
    sheet.text(LEFT + 130, y + 33, "day 1", "Sans", 7, "centre")
    sheet.text(LEFT + 290, y + 33, "day 8", "Sans", 7, "centre")
    sheet.prose(LEFT, y + 150, FULL, "Figure 4: Complaints", "Serif-Italic", 9.5)
    sheet.prose(LEFT, y + 175, FULL, TOWN[5])


@document
def logo(sheet):
    """A drawn mark of 30 points with a name beside it, at the head of a page."""
    path = sheet.canvas.beginPath()
    path.moveTo(LEFT, sheet.height - 80)
    path.curveTo(LEFT + 10, sheet.height - 40, LEFT + 20, sheet.height - 40, LEFT + 30, sheet.height - 80)
    path.close()
    sheet.canvas.setFillColor(HexColor("#b03030"))
    sheet.canvas.drawPath(path, stroke=0, fill=1)
    sheet.canvas.setFillColor(HexColor("#f0c040"))
    sheet.canvas.circle(LEFT + 15, sheet.height - 66, 6, stroke=0, fill=1)
    sheet.text(LEFT + 40, 76, "Lower Mill Print Works", "Sans-Bold", 14)
    sheet.line(LEFT, 88, RIGHT, 88, 0.6)
    sheet.paragraphs(LEFT, 110, FULL, CLOCK)


@document
def small_icons(sheet):
    """Signs of 8 points before lines of text are kept; they are no list marks of their own."""
    for n, text in enumerate(["Telephone: 0555 1234", "Open daily except Wednesdays", "Dogs are welcome"]):
        y = 96 + 20 * n
        sheet.canvas.setFillColor(HexColor("#207040"))
        sheet.canvas.circle(LEFT + 4, sheet.height - y + 3, 4, stroke=0, fill=1)
        sheet.line(LEFT + 2, y - 3, LEFT + 6, y - 3, 1, white)
        sheet.text(LEFT + 14, y, text)


@document
def map_with_labels(sheet):
    """Curves, areas and names: one figure."""
    path = sheet.canvas.beginPath()
    path.moveTo(LEFT, sheet.height - 200)
    path.curveTo(LEFT + 120, sheet.height - 120, LEFT + 220, sheet.height - 300, LEFT + 400, sheet.height - 180)
    sheet.canvas.setStrokeColor(HexColor("#4477bb"))
    sheet.canvas.setLineWidth(9)
    sheet.canvas.drawPath(path)
    for x, y, name in [(60, 150, "Welby"), (180, 260, "Oldham Reach"), (330, 150, "Brook")]:
        sheet.canvas.setFillColor(HexColor("#333333"))
        sheet.canvas.circle(LEFT + x, sheet.height - y, 3, stroke=0, fill=1)
        sheet.text(LEFT + x + 6, y + 3, name, "Sans", 9)
    sheet.text(LEFT + 235, 222, "Reach", "Serif-Italic", 9, colour=HexColor("#4477bb"))
    sheet.prose(LEFT, 320, FULL, "Map: the river and its towns", "Serif-Italic", 9.5)
    sheet.prose(LEFT, 345, FULL, GARDEN[4])


@document
def organisation_chart(sheet):
    """Boxes in a tree of lines without arrows: one figure, no table."""
    y = sheet.prose(LEFT, 80, FULL, "Who answers to whom is shown below.")
    places = {"Board": (220, y + 20), "Ferry": (60, y + 90), "Tower": (220, y + 90), "Garden": (380, y + 90)}
    for name, (x, top) in places.items():
        sheet.rect(x, top, 110, 34, stroke="#333333")
        sheet.text(x + 55, top + 21, name, "Sans", 10, "centre")
    sheet.line(275, y + 54, 275, y + 72)
    sheet.line(115, y + 72, 435, y + 72)
    for x in (115, 275, 435):
        sheet.line(x, y + 72, x, y + 90)
    sheet.prose(LEFT, y + 140, FULL, "Figure 5: The company", "Serif-Italic", 9.5)
    sheet.prose(LEFT, y + 165, FULL, TOWN[2])


@document
def class_diagram(sheet):
    """Boxes of several compartments, joined by a line: one figure, no tables."""
    y = sheet.prose(LEFT, 80, FULL, "The program knows two kinds of thing.")
    for x, name, fields, calls in [(LEFT, "Clock", ["turns: int", "gilded: bool"], ["wind()"]),
                                   (LEFT + 240, "Weight", ["kilograms: int"], ["raise()", "drop()"])]:
        sheet.rect(x, y + 10, 130, 22, stroke="#000000")
        sheet.rect(x, y + 32, 130, 34, stroke="#000000")
        sheet.rect(x, y + 66, 130, 34, stroke="#000000")
        sheet.text(x + 65, y + 25, name, "Sans-Bold", 10, "centre")
        for n, text in enumerate(fields):
            sheet.text(x + 6, y + 46 + 13 * n, text, "Sans", 9)
        for n, text in enumerate(calls):
            sheet.text(x + 6, y + 80 + 13 * n, text, "Sans", 9)
    sheet.line(LEFT + 130, y + 50, LEFT + 240, y + 50)
    sheet.text(LEFT + 185, y + 46, "drives", "Sans", 8, "centre")
    sheet.prose(LEFT, y + 120, FULL, GARDEN[2])


@document
def drawn_lettering(sheet):
    """A name of two words drawn as outlines, as advertising does, twelve points high: it is kept as one picture."""
    path = sheet.canvas.beginPath()
    top = sheet.height - 70
    for n in range(9):
        x = LEFT + 11 * n + (8 if n > 4 else 0)
        path.moveTo(x, top)
        path.curveTo(x + 2, top + 14, x + 6, top + 14, x + 9, top)
        path.lineTo(x + 7, top)
        path.curveTo(x + 5, top + 9, x + 4, top + 9, x + 2, top)
        path.close()
    sheet.canvas.setFillColor(HexColor("#204080"))
    sheet.canvas.drawPath(path, stroke=0, fill=1)
    sheet.paragraphs(LEFT, 100, FULL, CLOCK[:2])


@document
def drawn_bullets(sheet):
    """Dots and squares that are drawn before lines of text are marks of lists."""
    sheet.canvas.setFillColor(HexColor("#000000"))
    for n, text in enumerate(["Bring the rope", "Count the life belts", "Close the ramp"]):
        sheet.canvas.setFillColor(HexColor("#000000"))
        sheet.canvas.circle(LEFT + 8, sheet.height - (93 + 16 * n), 2, stroke=0, fill=1)
        sheet.text(LEFT + 18, 96 + 16 * n, text)
    sheet.prose(LEFT, 150, FULL, TOWN[0])
    for n, text in enumerate(["Wind the clock", "Oil the bearings"]):
        sheet.rect(LEFT + 6, 195 + 16 * n, 4, 4, fill="#a02020")
        sheet.text(LEFT + 18, 200 + 16 * n, text)


@document
def text_across_the_edge_of_a_drawing(sheet):
    """A sentence that crosses the edge of a drawing is output once, as text; the picture does not show a part of it."""
    sheet.canvas.setStrokeColor(HexColor("#336699"))
    for n in range(5):
        sheet.canvas.circle(LEFT + 60, sheet.height - 140, 50 - 8 * n, stroke=1, fill=0)
    sheet.text(LEFT + 82, 120, "The rings of the clock tower", "Sans", 10)
    sheet.text(LEFT + 60, 143, "mid", "Sans", 8, "centre")
    sheet.prose(LEFT, 210, FULL, CLOCK[0])


@document
def round_frame_around_text(sheet):
    """White text in a coloured frame with round corners stays text, on a background of that colour."""
    sheet.rect(LEFT, 80, FULL, 34, fill="#205080", radius=9)
    sheet.text(LEFT + 14, 101, "Season tickets are sold at the ramp", "Sans-Bold", 12, colour=white)
    sheet.prose(LEFT, 130, FULL, TOWN[1])


@document
def transparent_fills(sheet):
    """Colours as they are seen: half-transparent red and blue on paper, on a fill, and across the edge of one."""
    sheet.rect(LEFT, 80, 200, 60, fill="#ffe000")
    for x, colour in ((LEFT + 20, "#ff0000"), (LEFT + 180, "#0000ff"), (LEFT + 300, "#ff0000")):
        sheet.canvas.saveState()
        sheet.canvas.setFillColor(HexColor(colour), alpha=0.5)
        sheet.canvas.rect(x, sheet.height - 130, 60, 40, stroke=0, fill=1)
        sheet.canvas.restoreState()
    sheet.prose(LEFT, 160, FULL, TOWN[0])


@document
def clipped_fill(sheet):
    """A fill that is clipped to a circle is a drawing, not a rectangle."""
    sheet.canvas.saveState()
    path = sheet.canvas.beginPath()
    path.circle(LEFT + 40, sheet.height - 120, 30)
    sheet.canvas.clipPath(path, stroke=0, fill=0)
    sheet.rect(LEFT, 80, 80, 80, fill="#208040")
    sheet.canvas.restoreState()
    sheet.prose(LEFT, 170, FULL, TOWN[0])


@document
def pictures_with_their_own_pixels(sheet):
    """Upright, cut off by a clip, turned by a quarter; one under a line, whose pixels have to be drawn again."""
    sheet.image(LEFT, 90, 120, 120)
    sheet.canvas.saveState()
    path = sheet.canvas.beginPath()
    path.rect(LEFT + 160, sheet.height - 150, 60, 60)
    sheet.canvas.clipPath(path, stroke=0, fill=0)
    sheet.image(LEFT + 160, 90, 120, 120)
    sheet.canvas.restoreState()
    sheet.rotated(LEFT + 400, 90, 90, lambda: sheet.image(0, 0, 100, 100, "slope"))
    sheet.image(LEFT, 240, 120, 60, "slope")
    sheet.line(LEFT - 5, 270, LEFT + 125, 270, 2)
    sheet.prose(LEFT, 320, FULL, TOWN[0])
