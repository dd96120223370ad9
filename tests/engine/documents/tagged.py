# SPDX-License-Identifier: GPL-3.0-or-later
"""Files with a structure tree, whose tags state more than the page shows."""
import sys
from pathlib import Path

sys.path.append(str(Path(__file__).resolve().parents[1]))

from paper import written  # noqa: E402
from tagged_pdf import TaggedPdf  # noqa: E402

WEATHER = ["The morning began with fog over the low meadows by\nthe river.",
           "By noon the wind had turned to the west, and the fog\nwas gone.",
           "Rain is expected for the night."]


@written
def tagged_headings_and_paragraphs():
    """Headings of the size of the text, paragraphs without space between them, a title that is no heading."""
    pdf = TaggedPdf()
    pdf.add(("Document", ("P", (200, 770, 20), "Weather log", (72, 740)),
             ("H1", "The first week"), ("P", WEATHER[0]), ("P", WEATHER[1]),
             ("H2", "Measured at noon"), ("P", WEATHER[2]), ("H4", "Of the well"), ("P", "It was full.")))
    return pdf.bytes()


@written
def tagged_meant_line_breaks():
    """An address is one paragraph with intended line breaks."""
    pdf = TaggedPdf()
    pdf.add(("P", "Anna Holm\n14 Long Garden Street\nOldham Reach"), ("P", 8, WEATHER[0]))
    return pdf.bytes()


@written
def tagged_lists():
    """A list in a list, marks with and without labels, an item of two paragraphs, a numbered heading in a list."""
    pdf = TaggedPdf()

    pdf.add(("H1", "What to bring"))
    socks = [("LI", ("LBody", ("P", (100, y), "o", (114, y), text))) for y, text in [(712, "two pairs of socks"), (698, "a scarf")]]
    rows = [("LI", ("Lbl", (72, 740), "1."), ("LBody", ("P", (90, 740), "A lamp"))),
            ("LI", ("Lbl", (72, 726), "2."), ("LBody", ("P", (90, 726), "Boots and a coat"), ("L", *socks))),
            ("LI", ("Lbl", (72, 684), "3."), ("LBody", ("P", (90, 684), "Bread"),
                                              ("P", (90, 664), "White or brown, as you like it.")))]
    pdf.add(("L", *rows))
    pdf.add(("L", ("LI", ("Lbl", (72, 634), "4"), ("LBody", ("H2", (90, 634), "Where to meet")))))
    pdf.add(("P", (72, 618), "At the ramp."))
    return pdf.bytes()


@written
def tagged_table():
    """Head cells, a cell over two columns and one over two rows, an empty cell, cells of two lines; no lines at all."""
    pdf = TaggedPdf()
    pdf.add(("P", WEATHER[0]))
    x = (72, 190, 290, 390)
    wide, tall = {"A": b"<</O/Table/ColSpan 2>>"}, {"A": b"[<</O/Layout>> 0 <</O/Table/RowSpan 2>>]"}
    pdf.add(("Table",
             ("THead", ("TR", ("TH", tall, (x[0], 720), "Place"), ("TH", wide, (x[1] + 30, 720), "Height at"),
                        ("TH", tall, (x[3], 720), "Remarks")),
              ("TR", ("TH", (x[1], 704), "noon"), ("TH", (x[2], 704), "night"))),
             ("TBody", *[("TR", ("TD", ("P", (x[0], y), name)), ("TD", ("P", (x[1], y), noon)), ("TD", ("P", (x[2], y), night)),
                          ("TD", ("P", (x[3], y), remark)) if remark else ("TD",))
                         for y, name, noon, night, remark in [
                             (680, "The lower bridge,\nleft pier", "2.1", "2.4", "read twice"), (648, "Ramp", "1.9", "2.0", ""),
                             (632, "Mill race", "0.8", "", "dry for an hour\nafter eight")]])))
    pdf.add(("P", (72, 590), WEATHER[1]))
    return pdf.bytes()


@written
def tagged_table_with_lines():
    """The lines divide two cells of the last row whose texts are in one cell of the tags; the head comes from the tags."""
    pdf = TaggedPdf()
    xs, ys = (70, 170, 270, 370), [720 - 20 * row for row in range(9)]
    lines = [(x, ys[0], x, ys[-1]) for x in xs] + [(xs[0], y, xs[-1], y) for y in ys]
    pdf.draw(b"".join(b"%d %d m %d %d l S\n" % each for each in lines))
    rows = [("TR", *[("TH" if row == 0 else "TD", ("P", (x + 4, 706 - 20 * row), text)) for x, text in zip(xs, texts)])
            for row, texts in enumerate([("Ship", "Port", "Master"), ("Ann", "Welby", "Hale"), ("Bee", "Oldham", "Dunn"),
                                         ("Cod", "Welby", "Holm"), ("Dab", "Reach", "Marsh"), ("Eel", "Welby", "Hale"),
                                         ("Fry", "Oldham", "Dunn")])]
    rows.append(("TR", ("TD", ("P", (74, 566), "Gull")),
                 ("TD", {"A": b"<</O/Table/ColSpan 2>>"}, ("P", (174, 566), "Welby", (274, 566), "Marsh"))))
    pdf.add(("Table", *rows))
    return pdf.bytes()


@written
def tagged_order():
    """Two columns of short lines, which only the tags distinguish from a table; the remark between them is read last."""
    pdf = TaggedPdf()
    pdf.add(("H1", "Two lists"))
    left = [("P", (72, 730 - 14 * n), text) for n, text in enumerate(["Oak", "Ash and elm", "Beech", "Pine"])]
    right = [("P", (320, 730 - 14 * n), text) for n, text in enumerate(["Rose", "Lily", "Aster and phlox", "Iris"])]
    pdf.add(("Div", *left), ("Div", *right), ("P", (72, 650), "Trees on the left, flowers on the right."))
    return pdf.bytes()


@written
def tagged_figures():
    """Two drawings, one of which has a text to be read in its place."""
    pdf = TaggedPdf()
    pdf.add(("P", WEATHER[0]))
    for number, x in enumerate((72, 320)):
        waves = b"".join(b"%d %d m %d %d %d %d %d %d c S\n" % (x, y, x + 40, y + 60, x + 80, y - 60, x + 120, y)
                         for y in range(620, 700, 8))
        alternative = {"Alt": b"(The river seen from the tower)"} if number == 0 else {}
        pdf.add(("Figure", alternative, waves))
    pdf.add(("P", (72, 560), WEATHER[1]))
    return pdf.bytes()


@written
def tagged_notes_and_edges():
    """A footnote, a running title and a page number of a single page, and a stamp beside the text that is no content."""
    pdf = TaggedPdf()
    pdf.artifact(72, 810, "Weather log")
    pdf.artifact(290, 30, "7")
    pdf.artifact(430, 700, "Copy")
    pdf.add(("H1", "The second week"), ("P", WEATHER[0]), ("Note", ("Lbl", (72, 80, 8), "1"), ("P", (80, 80, 8), "Seen from the ramp.")),
            ("P", (72, 700), WEATHER[1]))
    return pdf.bytes()
