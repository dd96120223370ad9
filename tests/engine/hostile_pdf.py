# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes PDF files that ask for far more work than their size suggests, and pages that are honestly slow.

Each function gives the bytes of a file.
"""
import random
import struct
import zlib

PAGE = (595, 842)
CHUNK = 16 << 20


def document(objects, pages=1, media=PAGE, resources=b"<<>>"):
    """A file whose objects from 4 on are the given bodies; all pages share one content and one set of resources."""
    first = 4 + len(objects)
    kids = b" ".join(b"%d 0 R" % (first + i) for i in range(pages))
    bodies = [b"<</Type/Catalog/Pages 2 0 R>>", b"<</Type/Pages/Count %d/Kids[%s]>>" % (pages, kids),
              b"<</Type/Font/Subtype/Type1/BaseFont/Helvetica>>", *objects]
    page = b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 %d %d]/Contents 4 0 R/Resources %s>>" % (*media, resources)
    bodies += [page] * pages
    data = bytearray(b"%PDF-1.7\n")
    offsets = []
    for number, body in enumerate(bodies, 1):
        offsets.append(len(data))
        data += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    table = len(data)
    data += b"xref\n0 %d\n0000000000 65535 f \n" % (len(bodies) + 1)
    data += b"".join(b"%010d 00000 n \n" % offset for offset in offsets)
    return bytes(data + b"trailer\n<</Size %d/Root 1 0 R>>\nstartxref\n%d\n%%%%EOF\n" % (len(bodies) + 1, table))


def stream(content, entries=b""):
    return b"<<%s/Length %d>>\nstream\n%s\nendstream" % (entries, len(content), content)


def deflated(content, entries=b""):
    return stream(zlib.compress(content), entries + b"/Filter/FlateDecode")


def twice_deflated(piece, size):
    """About `size` bytes of the repeated piece, compressed twice. The inner data is one compressed block over and over,
    so that making it takes no time."""
    packer = zlib.compressobj(9)
    chunk = piece * (CHUNK // len(piece))
    head = packer.compress(b"") + packer.flush(zlib.Z_FULL_FLUSH)
    block = packer.compress(chunk) + packer.flush(zlib.Z_FULL_FLUSH)
    inner = head + block * (size // len(chunk)) + packer.flush()
    return zlib.compress(inner, 9)


def flate_bomb():
    return document([stream(twice_deflated(b"0 g q Q\n", 10 << 30), b"/Filter[/FlateDecode/FlateDecode]")])


def exponential_forms(levels=40, calls=10, pages=1, leaf=b"0 0 1 1 re f"):
    """Forms, each of which paints the next one ten times."""
    entries = b"/Type/XObject/Subtype/Form/BBox[0 0 600 850]"
    forms = [stream(b"/F Do " * calls, entries + b"/Resources<</XObject<</F %d 0 R>>>>" % (6 + level))
             for level in range(levels)]
    return document([stream(b"/F Do"), *forms, stream(leaf, entries)], pages,
                    resources=b"<</XObject<</F 5 0 R>>>>")


def slow_pages(pages=12):
    """Pages that each take some seconds and could be legitimate."""
    return exponential_forms(levels=5, pages=pages, leaf=b"q 1 0 0 RG 0 0 m 300 400 l S Q " * 10)


def many_slow_pages():
    """The same with an excessive number of pages."""
    return slow_pages(400)


def painting_itself():
    """A form whose pattern and soft mask paint the form."""
    resources = b"/Resources<</XObject<</F 5 0 R>>/Pattern<</P 6 0 R>>/ExtGState<</G 7 0 R>>>>"
    paint = b"/G gs /Pattern cs /P scn 0 0 600 850 re f /F Do "
    form = b"/Type/XObject/Subtype/Form/BBox[0 0 600 850]/Group<</S/Transparency/CS/DeviceRGB>>" + resources
    pattern = (b"/Type/Pattern/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 50 50]/XStep 50/YStep 50" + resources)
    mask = b"<</Type/ExtGState/SMask<</Type/Mask/S/Luminosity/G 5 0 R>>>>"
    return document([stream(paint), stream(paint * 3, form), stream(paint * 3, pattern), mask],
                    resources=resources[len(b"/Resources"):])


def image(entries, data, paint=b"q 595 0 0 842 0 0 cm /I Do Q", media=PAGE):
    return document([stream(paint), stream(data, b"/Type/XObject/Subtype/Image" + entries)], media=media,
                    resources=b"<</XObject<</I 5 0 R>>>>")


def huge_image():
    return image(b"/Width 100000/Height 100000/ColorSpace/DeviceRGB/BitsPerComponent 8"
                 b"/Filter[/FlateDecode/FlateDecode]", twice_deflated(b"\x80\x40\xc0\x20", 30_000_000_000))


def huge_jbig2(side=60000):
    def segment(number, kind, data):
        return struct.pack(">IBBBI", number, kind, 0, 1, len(data)) + data

    page = struct.pack(">IIIIBH", side, side, 0, 0, 0, 0)
    region = struct.pack(">IIIIB", side, side, 0, 0, 0) + b"\x00\x03\xff\xfd\xff\x02\xfe\xfe\xfe" + bytes(range(200))
    return image(b"/Width %d/Height %d/ColorSpace/DeviceGray/BitsPerComponent 1/Filter/JBIG2Decode" % (side, side),
                 segment(0, 48, page) + segment(1, 38, region))


def marked_content(count=500_000):
    return document([deflated(b"/Span <</ActualText(a)>> BDC " * count)])


def tiny_tiles():
    tile = stream(b"0 0 1 rg 0 0 5 5 re f", b"/Type/Pattern/PatternType 1/PaintType 1/TilingType 1/BBox[0 0 10 10]"
                  b"/XStep 0.000001/YStep 0.000001/Resources<<>>")
    return document([stream(b"/Pattern cs /P scn 0 0 595 842 re f"), tile], resources=b"<</Pattern<</P 5 0 R>>>>")


def many_words(count=300_000, seed=7):
    """A page covered with an unreadable number of words."""
    rng = random.Random(seed)
    words = b"".join(b"1 0 0 1 %d.%d %d.%d Tm (w%d) Tj\n" %
                     (rng.randrange(590), rng.randrange(10), rng.randrange(840), rng.randrange(10), i)
                     for i in range(count))
    return document([deflated(b"BT /T 2 Tf\n" + words + b"ET")], resources=b"<</Font<</T 3 0 R>>>>")


def dense_map(paths=3000, points=100, seed=5):
    """A legitimate page with 300,000 segments in coloured lines and areas."""
    rng = random.Random(seed)
    lines = []
    for path in range(paths):
        x, y = rng.uniform(0, 1190), rng.uniform(0, 840)
        lines.append("%.2f %.2f %.2f RG %.2f w %.2f %.2f m" %
                     (rng.random(), rng.random(), rng.random(), rng.uniform(.2, 2), x, y))
        for _ in range(points):
            x, y = x + rng.uniform(-5, 5), y + rng.uniform(-5, 5)
            lines.append(f"{x:.2f} {y:.2f} l")
        lines.append("S" if path % 3 else "B")
    return document([deflated("\n".join(lines).encode())], media=(1190, 842))


def scan(width=7016, height=9921, seed=3):
    """A legitimate colour scan of A3 paper at 600 dots per inch: 70 million pixels."""
    rng = random.Random(seed)
    noise = bytes(rng.randrange(215, 235) for _ in range(3 * width + 1000))
    rows = [noise[start:start + 3 * width] for start in range(0, 1000, 125)]
    packer = zlib.compressobj(1)
    data = b"".join(packer.compress(rows[y % len(rows)]) for y in range(height)) + packer.flush()
    return image(b"/Width %d/Height %d/ColorSpace/DeviceRGB/BitsPerComponent 8/Filter/FlateDecode" % (width, height),
                 data, b"q 842 0 0 1191 0 0 cm /I Do Q", (842, 1191))
