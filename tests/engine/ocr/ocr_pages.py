# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures of pages with known words: pages of our own, and what happens to pages in scanners."""
import random
import subprocess

from PIL import Image, ImageChops, ImageFilter, ImageOps
from reportlab.lib.pagesizes import A4
from reportlab.pdfgen import canvas

PARAGRAPHS = [
    "The harbour office keeps a list of every boat that has entered the basin since the spring of 1962. Each line "
    "names the owner, the home port and the cargo, and a last column says how long the boat stayed. Nobody has ever "
    "missed a day, not even in the winter when the ice closed the outer gate for seven weeks.",
    "When the old crane was replaced, the works council asked for a quieter machine. Two makers sent drawings; the "
    "cheaper one (48,300 euros, delivery in May) needed a new foundation, the other could stand on the rails that were "
    "already there. The vote was close: 14 to 11, with three members absent.",
    "Salt water damages concrete slowly. Samples taken at depths of 2.5, 5 and 10 metres were dried, ground and "
    "weighed; the loss never exceeded 0.7 per cent of the mass. It is therefore enough to inspect the walls every "
    "fourth year, provided that cracks wider than a finger are reported at once.",
    "Visitors may walk along the northern pier between eight o'clock in the morning and sunset. Dogs must be kept on a "
    "short lead. Please do not feed the gulls: they have learned to open bags, and last summer a child was hurt. "
    "Questions are answered at the kiosk, by telephone, or at harbour@example.org.",
    "The following quarter will show whether the repairs were worth their price. If traffic grows by a tenth, as the "
    "chamber of commerce expects, the loan can be repaid by 2031. Should it fall instead, the town has agreed to pay "
    "the interest for another eighteen months, but not the principal.",
    "A second report, written by students of the technical college, compares our harbour with six others of the same "
    "size. It praises the short queues and the clear signs, and it criticises the lighting. Its authors counted lamps "
    "on foot, at night, in heavy rain, which deserves some respect.",
]


def lines_of(text, font, size, width):
    from reportlab.pdfbase.pdfmetrics import stringWidth
    line = ""
    for word in text.split():
        longer = f"{line} {word}".strip()
        if stringWidth(longer, font, size) > width:
            yield line
            longer = word
        line = longer
    yield line


def draw_text(page, paragraphs, left, top, width, bottom, font, size):
    """Draws what fits and returns the words drawn."""
    words = []
    y = top
    page.setFont(font, size)
    for paragraph in paragraphs:
        lines = list(lines_of(paragraph, font, size, width))
        if y - 1.3 * size * len(lines) < bottom:
            break
        for line in lines:
            page.drawString(left, y, line)
            words += line.split()
            y -= 1.3 * size
        y -= 0.8 * size
    return words


def rotated(count):
    return PARAGRAPHS[count % len(PARAGRAPHS):] + PARAGRAPHS[:count % len(PARAGRAPHS)]


def prose(page, size=A4):
    page.setFont("Helvetica-Bold", 16)
    page.drawString(70, size[1] - 80, "Notes from the harbour office")
    return ["Notes", "from", "the", "harbour", "office"] + draw_text(
        page, rotated(0), 70, size[1] - 115, size[0] - 140, 60, "Times-Roman", 11)


def sans(page, size=A4):
    return draw_text(page, rotated(2), 80, size[1] - 80, size[0] - 160, 60, "Helvetica", 10)


def columns(page, size=A4):
    half = (size[0] - 140 - 24) / 2
    return (draw_text(page, rotated(1), 70, size[1] - 80, half, 60, "Times-Roman", 10)
            + draw_text(page, rotated(4), 70 + half + 24, size[1] - 80, half, 60, "Times-Roman", 10))


def drawn_page(folder, name, draw, size=A4):
    """Writes a PDF file with one page; returns its path and words."""
    path = folder / f"{name}.pdf"
    page = canvas.Canvas(str(path), pagesize=size, invariant=1)
    words = draw(page, size)
    page.save()
    return path, words


def rendered(path, number, dpi):
    """The page as a gray picture."""
    done = subprocess.run(["pdftoppm", "-r", str(dpi), "-gray", "-f", str(number), "-l", str(number), path],
                          check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    import io
    return Image.open(io.BytesIO(done.stdout)).convert("L")


def skewed(picture, degrees):
    return picture.rotate(degrees, resample=Image.BICUBIC, fillcolor=255)


def noisy(picture, seed=7):
    """Paper that is not white, uneven light, grain, and specks of dirt and of missing ink."""
    width, height = picture.size
    light = Image.linear_gradient("L").resize(picture.size).point(lambda v: 165 + v // 4)
    picture = ImageChops.multiply(picture.point(lambda v: 60 + v * 195 // 255), light)
    grain = Image.effect_noise(picture.size, 25)
    picture = ImageChops.add(picture, grain, 1, -128)
    source = random.Random(seed)
    pixels = picture.load()
    for _ in range(width * height // 250):
        pixels[source.randrange(width), source.randrange(height)] = source.choice((30, 220))
    return picture.filter(ImageFilter.GaussianBlur(0.4))


# Name: resolution, what is done to the picture.
CLASSES = {
    "clean 300": (300, lambda p: p),
    "clean 200": (200, lambda p: p),
    "clean 150": (150, lambda p: p),
    "skewed 1": (200, lambda p: skewed(p, 1)),
    "skewed 3": (200, lambda p: skewed(p, -3)),
    "skewed 7": (200, lambda p: skewed(p, 7)),
    "noisy": (200, noisy),
    "low 100": (100, lambda p: p),
    "low 75": (75, lambda p: p),
    "rotated 90": (200, lambda p: p.transpose(Image.ROTATE_270)),
    "rotated 180": (200, lambda p: p.transpose(Image.ROTATE_180)),
    "rotated 270": (200, lambda p: p.transpose(Image.ROTATE_90)),
    "inverted": (200, ImageOps.invert),
    "bilevel 600": (600, lambda p: p.point(lambda v: 255 if v > 140 else 0)),
}
