# SPDX-License-Identifier: GPL-3.0-or-later
"""What the drawn documents share: the table of documents, the fonts, and a sheet that is drawn on from the top.

All lengths are points; x grows to the right and y downwards from the top left corner of the page, as in the dumps.
"""
import io
import math

from reportlab import rl_config

rl_config.invariant = 1  # no dates, no random identifiers

from reportlab.lib.colors import HexColor, black  # noqa: E402 (the line above must come first)
from reportlab.lib.enums import TA_CENTER, TA_JUSTIFY, TA_LEFT, TA_RIGHT  # noqa: E402
from reportlab.lib.styles import ParagraphStyle  # noqa: E402
from reportlab.lib.utils import ImageReader  # noqa: E402
from reportlab.pdfbase import pdfmetrics  # noqa: E402
from reportlab.pdfbase.ttfonts import TTFont  # noqa: E402
from reportlab.pdfgen.canvas import Canvas  # noqa: E402
from reportlab.platypus import Paragraph, Table, TableStyle  # noqa: E402

WIDTH, HEIGHT = 595, 842
LEFT, RIGHT = 62, 533
FULL = RIGHT - LEFT

# Of the packages fonts-liberation, fonts-dejavu-core and fonts-wqy-zenhei.
FONT_FOLDER = "/usr/share/fonts/truetype/"
FONTS = {
    "Serif": "liberation/LiberationSerif-Regular.ttf",
    "Serif-Bold": "liberation/LiberationSerif-Bold.ttf",
    "Serif-Italic": "liberation/LiberationSerif-Italic.ttf",
    "Serif-BoldItalic": "liberation/LiberationSerif-BoldItalic.ttf",
    "Sans": "liberation/LiberationSans-Regular.ttf",
    "Sans-Bold": "liberation/LiberationSans-Bold.ttf",
    "Sans-Italic": "liberation/LiberationSans-Italic.ttf",
    "Sans-BoldItalic": "liberation/LiberationSans-BoldItalic.ttf",
    "Mono": "liberation/LiberationMono-Regular.ttf",
    "Mono-Bold": "liberation/LiberationMono-Bold.ttf",
    "DejaVu": "dejavu/DejaVuSans.ttf",
    "DejaVu-Bold": "dejavu/DejaVuSans-Bold.ttf",
    "ZenHei": "wqy/wqy-zenhei.ttc",
}
ALIGNMENTS = {"left": TA_LEFT, "right": TA_RIGHT, "centre": TA_CENTER, "justify": TA_JUSTIFY}

DOCUMENTS = {}
WRITTEN = {}


def document(draw):
    """Makes the function a document: its name with hyphens is the file's, it gets the sheet to draw on."""
    DOCUMENTS[draw.__name__.replace("_", "-")] = draw
    return draw


def written(write):
    """Makes the function a document like `document`, but one that gives the bytes of the file."""
    WRITTEN[write.__name__.replace("_", "-")] = write
    return write


def register_fonts():
    for name, path in FONTS.items():
        pdfmetrics.registerFont(TTFont(name, FONT_FOLDER + path))
    for family in ("Serif", "Sans"):
        pdfmetrics.registerFontFamily(family, family, family + "-Bold", family + "-Italic", family + "-BoldItalic")


def width_of(text, font, size):
    return pdfmetrics.stringWidth(text, font, size)


def picture(kind, size=120):
    """A picture of our own: coloured rings or a grey slope."""
    from PIL import Image
    image = Image.new("RGB", (size, size))
    for y in range(size):
        for x in range(size):
            far = math.hypot(x - size / 2, y - size / 2) / size
            ring = int(127 + 120 * math.cos(far * 30))
            image.putpixel((x, y), (ring, 90, 255 - ring) if kind == "rings" else (55 + x + y // 2,) * 3)
    data = io.BytesIO()
    image.save(data, "PNG")
    data.seek(0)
    return ImageReader(data)


def scan(lines, photo=None):
    """A picture of a page with these (x, y, text) lines, as a scanner makes it: grey paper, 100 dots per inch. The photo
    is a dark disc in a box (x, y, width, height).
    """
    from PIL import Image, ImageDraw, ImageFont
    dots = 100 / 72
    image = Image.new("L", (round(WIDTH * dots), round(HEIGHT * dots)), 244)
    pen = ImageDraw.Draw(image)
    font = ImageFont.truetype(FONT_FOLDER + FONTS["Serif"], round(12 * dots))
    for x, y, text in lines:
        pen.text((x * dots, y * dots), text, font=font, fill=40, anchor="ls")
    if photo:
        x, y, width, height = (each * dots for each in photo)
        pen.rectangle((x, y, x + width, y + height), fill=150)
        pen.ellipse((x + 10, y + 10, x + width - 10, y + height - 10), fill=60)
    data = io.BytesIO()
    image.save(data, "PNG")
    data.seek(0)
    return ImageReader(data)


class Sheet:
    """A canvas with its origin at the top left corner."""

    def __init__(self, path, title):
        self.canvas = Canvas(str(path), pagesize=(WIDTH, HEIGHT))
        self.canvas.setTitle(title)
        self.height = HEIGHT

    def next_page(self, width=WIDTH, height=HEIGHT):
        self.canvas.showPage()
        self.size(width, height)

    def size(self, width, height):
        """Of the page that is being drawn."""
        self.canvas.setPageSize((width, height))
        self.height = height

    def text(self, x, y, text, font="Serif", size=10.5, align="left", colour=black):
        """One line of text with its baseline at y; x is its left or right end or its middle."""
        x -= {"left": 0, "right": 1, "centre": 0.5}[align] * width_of(text, font, size)
        self.canvas.setFillColor(colour)
        self.canvas.setFont(font, size)
        self.canvas.drawString(x, self.height - y, text)

    def lines(self, x, y, lines, font="Serif", size=10.5, leading=13.5, colour=black):
        """Lines as they are; gives the y after the last."""
        for line in lines:
            self.text(x, y, line, font, size, colour=colour)
            y += leading
        return y

    def prose(self, x, y, width, text, font="Serif", size=10.5, leading=None, align="left", first=0, hang=0, after=6,
              colour=black):
        """A paragraph, y being its upper edge; gives the y after it. May hold reportlab's tags: b, i, super, a ..."""
        style = ParagraphStyle("", fontName=font, fontSize=size, leading=leading or size * 1.28,
                               alignment=ALIGNMENTS[align], firstLineIndent=first, leftIndent=hang, textColor=colour)
        flowable = Paragraph(text, style)
        _, height = flowable.wrap(width, 10000)
        flowable.drawOn(self.canvas, x, self.height - y - height)
        return y + height + after

    def paragraphs(self, x, y, width, texts, **options):
        for each in texts:
            y = self.prose(x, y, width, each, **options)
        return y

    def heading(self, y, text, size=13, x=LEFT, width=FULL, font="Sans-Bold"):
        return self.prose(x, y, width, text, font, size, after=size * 0.4)

    def line(self, x1, y1, x2, y2, width=0.6, colour=black):
        self.canvas.setStrokeColor(colour)
        self.canvas.setLineWidth(width)
        self.canvas.line(x1, self.height - y1, x2, self.height - y2)

    def rect(self, x, y, width, height, fill=None, stroke=None, line=0.6, radius=0):
        if fill is not None:
            self.canvas.setFillColor(HexColor(fill))
        if stroke is not None:
            self.canvas.setStrokeColor(HexColor(stroke))
            self.canvas.setLineWidth(line)
        draw = self.canvas.roundRect if radius else self.canvas.rect
        draw(x, self.height - y - height, width, height, *([radius] if radius else []),
             stroke=int(stroke is not None), fill=int(fill is not None))

    def arrow(self, x1, y1, x2, y2):
        self.line(x1, y1, x2, y2, 0.8)
        turn = math.atan2(y2 - y1, x2 - x1)
        for side in (2.7, -2.7):
            self.line(x2, y2, x2 + 6 * math.cos(turn + side), y2 + 6 * math.sin(turn + side), 0.8)

    def image(self, x, y, width, height, kind="rings"):
        self.canvas.drawImage(picture(kind), x, self.height - y - height, width, height)

    def table(self, x, y, rows, widths, *commands, font="Serif", size=10, heights=None):
        """A table with reportlab's style commands; gives the y of its lower edge. Texts with tags are wrapped."""
        wrapped = ParagraphStyle("", fontName=font, fontSize=size, leading=size * 1.2)
        cells = [[Paragraph(cell[1:], wrapped) if cell.startswith("¶") else cell for cell in row] for row in rows]
        style = TableStyle([("FONT", (0, 0), (-1, -1), font, size), *commands])
        flowable = Table(cells, widths, heights, style=style)
        _, height = flowable.wrap(1000, 10000)
        flowable.drawOn(self.canvas, x, self.height - y - height)
        return y + height

    def rotated(self, x, y, degrees, draw):
        """Draws with the origin at (x, y) of the page, rotated clockwise."""
        self.canvas.saveState()
        self.canvas.translate(x, self.height - y)
        self.canvas.rotate(-degrees)
        height, self.height = self.height, 0
        draw()
        self.height = height
        self.canvas.restoreState()

    def save(self):
        self.canvas.save()
