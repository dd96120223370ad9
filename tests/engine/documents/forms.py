# SPDX-License-Identifier: GPL-3.0-or-later
"""Forms: boxes, lines to write on, interactive fields."""
from reportlab.lib.colors import HexColor

from paper import FULL, LEFT, RIGHT, document, width_of
from texts import TOWN


@document
def form_with_boxes(sheet):
    """Labels above empty frames, and comb fields of one box a letter."""
    y = sheet.heading(80, "Application for a season ticket", 15)
    for n, (label, x, width) in enumerate([("Surname", LEFT, 225), ("First name", LEFT + 246, 225), ("Street", LEFT, 300),
                                           ("Number", LEFT + 321, 60)]):
        top = y + 10 + 42 * (n // 2)
        sheet.text(x, top + 8, label, "Sans", 8)
        sheet.rect(x, top + 12, width, 20, stroke="#444444")
    sheet.text(LEFT, y + 104, "Date of birth", "Sans", 8)
    for n in range(8):
        sheet.rect(LEFT + 16 * n, y + 108, 16, 18, stroke="#444444")
    sheet.text(LEFT, y + 146, "Valid for", "Sans", 8)
    for n, text in enumerate(["one month", "half a year", "a year"]):
        sheet.rect(LEFT + 60 + 100 * n, y + 138, 9, 9, stroke="#444444")
        sheet.text(LEFT + 75 + 100 * n, y + 146, text, "Sans", 9)
    sheet.prose(LEFT, y + 165, FULL, TOWN[3], size=9)


@document
def form_with_fill_in_lines(sheet):
    """Dotted and drawn lines to write on; labels stay beside them."""
    y = 90
    for label in ["Name", "Boat", "Weight of the load", "Day of the crossing"]:
        sheet.text(LEFT, y, label + ":")
        start = LEFT + width_of(label + ": ", "Serif", 10.5)
        sheet.text(start, y, "." * int((RIGHT - start) / width_of(".", "Serif", 10.5)))
        y += 24
    for label in ["Place and date", "Signature"]:
        sheet.line(LEFT, y + 20, LEFT + 200, y + 20, 0.6)
        sheet.text(LEFT, y + 30, label, "Sans", 8)
        y += 46
    sheet.prose(LEFT, y + 10, FULL, "I undertake to pay ________ pounds before the ____ of the month.")


@document
def interactive_form(sheet):
    """Fields with values: text, a ticked box, an empty box, a list."""
    form = sheet.canvas.acroForm
    sheet.heading(70, "Order", 15)
    common = {"borderColor": HexColor("#666666"), "fillColor": HexColor("#ffffff"), "borderWidth": 0.5}
    for n, (label, value) in enumerate([("Name", "Mary Dunn"), ("Town", "Oldham Reach")]):
        sheet.text(LEFT, 124 + 34 * n, label)
        form.textfield(name=label.lower(), value=value, x=LEFT + 80, y=sheet.height - 132 - 34 * n, width=200, height=20,
                       fontName="Helvetica", fontSize=10, **common)
    for n, (label, checked) in enumerate([("Send by post", True), ("Gift wrap", False)]):
        form.checkbox(name=f"box{n}", checked=checked, x=LEFT, y=sheet.height - 200 - 22 * n, size=12, **common)
        sheet.text(LEFT + 20, 198 + 22 * n, label)
    form.choice(name="size", value="large", options=["small", "large"], x=LEFT + 80, y=sheet.height - 266, width=100, height=18,
                fontName="Helvetica", fontSize=10, **common)
    sheet.text(LEFT, 261, "Size")
