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
