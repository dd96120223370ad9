# SPDX-License-Identifier: GPL-3.0-or-later
"""Fonts whose maps to Unicode are missing or wrong, fonts of signs, and vertical text, written object by object."""
import sys
from pathlib import Path

from paper import written

sys.path.insert(0, str(Path(__file__).resolve().parents[1]))
from hand_pdf import HandPdf, line  # noqa: E402


def stream(data, entries=b""):
    return b"<<%s/Length %d>>\nstream\n%s\nendstream" % (entries, len(data), data)


def unicode_map(pairs, digits):
    """A map of codes, of that many hexadecimal digits, to UTF-16 in hexadecimal notation."""
    rows = b"".join(b"<%0*x><%s>\n" % (digits, code, text.encode()) for code, text in pairs)
    space = b"<%s><%s>" % (b"0" * digits, b"f" * digits)
    return stream(b"/CIDInit/ProcSet findresource begin 12 dict begin begincmap /CMapType 2 def\n"
                  b"1 begincodespacerange %s endcodespacerange\n%d beginbfchar\n%sendbfchar\nendcmap end end"
                  % (space, len(pairs), rows))


def drawn_font(pdf, names, first=65):
    """A font of squares that hold from one to five strokes. The glyphs have these names, the first one that code."""
    glyphs = b""
    for n, name in enumerate(names):
        strokes = b"".join(b"%d 100 60 500 re f " % (80 + 110 * k) for k in range(n % 5 + 1))
        glyphs += b"/%s %d 0 R" % (name, pdf.add(stream(b"720 0 0 0 700 700 d1 %s" % strokes)))
    return pdf.add(b"<</Type/Font/Subtype/Type3/FontBBox[0 0 700 700]/FontMatrix[.001 0 0 .001 0 0]/FirstChar %d"
                   b"/LastChar %d/Widths[%s]/Encoding<</Differences[%d%s]>>/CharProcs<<%s>>/Resources<<>>>>" % (
                       first, first + len(names) - 1, b"720 " * len(names), first,
                       b"".join(b"/" + name for name in names), glyphs))


def shown(x, y, font, code, size=11):
    """Draws a string of bytes in hexadecimal notation."""
    return b"BT /%s %g Tf 1 0 0 1 %g %g Tm <%s> Tj ET\n" % (font, size, x, y, code)


def add_page(pdf, content, **fonts):
    """Adds a page with fonts besides F; each is an object's number."""
    number = pdf.page(content)
    names = b"".join(b"/%s %d 0 R" % (name.encode(), font) for name, font in fonts.items())
    pdf.set(number, pdf.bodies[number].replace(b"/F 3 0 R", b"/F 3 0 R" + names))


@written
def bullets_that_are_letters():
    """The marks are the letters l, n and u of fonts of signs, and private code points: round bullets, squares, ticks and
    an arrow. The Greek letters of the last line are stored as a, b and D.
    """
    pdf = HandPdf()
    signs = pdf.add(b"<</Type/Font/Subtype/TrueType/BaseFont/Wingdings-Regular/Encoding/WinAnsiEncoding>>")
    private = pdf.add(unicode_map([(0xa7, "f0a7"), (0xfc, "f0fc"), (0xb7, "f0b7")], 2))
    mapped = pdf.add(b"<</Type/Font/Subtype/TrueType/BaseFont/ABCDEF+Wingdings/Encoding/WinAnsiEncoding/ToUnicode %d 0 R>>"
                     % private)
    symbol = pdf.add(b"<</Type/Font/Subtype/TrueType/BaseFont/SymbolMT/Encoding/WinAnsiEncoding>>")
    content = b""
    for n, (font, code, text) in enumerate([
            (b"W", b"6c", "A round bullet"), (b"W", b"6e", "A square"), (b"W", b"75", "A lozenge"),
            (b"M", b"a7", "A small square"), (b"M", b"fc", "A tick"), (b"S", b"b7", "A bullet of the font Symbol"),
            (b"W", b"e8", "An arrow")]):
        content += shown(72, 760 - 18 * n, font, code) + line(90, 760 - 18 * n, text)
    content += line(72, 610, "The angle") + shown(125, 610, b"S", b"61") + line(136, 610, "and the width") + shown(
        206, 610, b"S", b"44") + shown(213, 610, b"S", b"62")
    add_page(pdf, content, W=signs, M=mapped, S=symbol)
    return pdf.bytes()


@written
def font_without_map():
    """The names of the glyphs only count them: two words of each line are pictures, and no letters are made up for them."""
    pdf = HandPdf()
    font = drawn_font(pdf, [b"g37", b"g38", b"g39", b"g40", b"g41", b"g42"])
    content = b""
    for y, text in [(700, "The word after this one"), (640, "This line is followed by")]:
        content += line(72, y, text) + shown(210, y, b"C", b"4142434445") + line(262, y, "which is drawn.")
    add_page(pdf, content + line(72, 580, "The last line has nothing of the kind."), C=font)
    return pdf.bytes()


@written
def numbered_glyphs_of_letters():
    """The names of the glyphs are numbers, but those of the characters themselves: the word is \"ABBA\"."""
    pdf = HandPdf()
    font = drawn_font(pdf, [b"a65", b"a66"])
    add_page(pdf, line(72, 700, "They sang") + shown(128, 700, b"C", b"41424241"), C=font)
    return pdf.bytes()


@written
def large_brackets():
    """Glyphs named after large brackets and after a sum are these signs; parts of brackets are no private characters."""
    pdf = HandPdf()
    font = drawn_font(pdf, [b"parenleftBig", b"parenrightBig", b"bracketleftbigg", b"summationdisplay", b"parenlefttp"], 1)
    add_page(pdf, line(72, 700, "Signs:") + shown(110, 700, b"C", b"01") + line(120, 700, "one") + shown(140, 700, b"C", b"02")
             + shown(160, 700, b"C", b"03") + shown(180, 700, b"C", b"04") + shown(200, 700, b"C", b"05"), C=font)
    return pdf.bytes()


@written
def map_with_exchanged_bytes():
    """The map to Unicode has the bytes of each character in the wrong order; the text is \"Pure black\"."""
    pdf = HandPdf()
    letters = sorted(set("Pure black"))
    to_unicode = pdf.add(unicode_map([(ord(each), "%02x00" % ord(each)) for each in letters], 4))
    inner = pdf.add(b"<</Type/Font/Subtype/CIDFontType2/BaseFont/Sample/CIDSystemInfo<</Registry(Adobe)/Ordering(Identity)"
                    b"/Supplement 0>>/DW 600/FontDescriptor<</Type/FontDescriptor/FontName/Sample/Flags 4"
                    b"/FontBBox[0 0 700 700]/ItalicAngle 0/Ascent 700/Descent 0/CapHeight 700/StemV 80>>>>")
    font = pdf.add(b"<</Type/Font/Subtype/Type0/BaseFont/Sample/Encoding/Identity-H/DescendantFonts[%d 0 R]/ToUnicode %d 0 R>>"
                   % (inner, to_unicode))
    codes = b"".join(b"%04x" % ord(each) for each in "Pure black")
    add_page(pdf, line(72, 720, "The next line is a name:") + shown(72, 700, b"C", codes), C=font)
    return pdf.bytes()


@written
def stated_font_families():
    """The fonts are "River Sans 2" and "iBeam Mono", as their descriptors state, whatever their PostScript names suggest."""
    pdf = HandPdf()
    fonts = {}
    for name, base, family in [("A", b"RiverSans2-Regular", b"River Sans 2"), ("B", b"iBeamMono", b"iBeam Mono")]:
        fonts[name] = pdf.add(
            b"<</Type/Font/Subtype/TrueType/BaseFont/%s/Encoding/WinAnsiEncoding/FontDescriptor<</Type/FontDescriptor"
            b"/FontName/%s/FontFamily(%s)/Flags 32/FontBBox[0 0 700 700]/ItalicAngle 0/Ascent 700/Descent 0"
            b"/CapHeight 700/StemV 80>>>>" % (base, base, family))
    add_page(pdf, shown(72, 700, b"A", b"The river is high.".hex().encode())
             + shown(72, 660, b"B", b"The beam is long.".hex().encode()), **fonts)
    return pdf.bytes()


@written
def vertical_text():
    """Two columns of vertical Japanese, read from the right one to the left one."""
    pdf = HandPdf()
    inner = pdf.add(b"<</Type/Font/Subtype/CIDFontType0/BaseFont/HeiseiMin-W3/CIDSystemInfo<</Registry(Adobe)"
                    b"/Ordering(Japan1)/Supplement 2>>/DW 1000/FontDescriptor<</Type/FontDescriptor"
                    b"/FontName/HeiseiMin-W3/Flags 6/FontBBox[0 -120 1000 880]/ItalicAngle 0/Ascent 880/Descent -120"
                    b"/CapHeight 700/StemV 80>>>>")
    font = pdf.add(b"<</Type/Font/Subtype/Type0/BaseFont/HeiseiMin-W3/Encoding/UniJIS-UCS2-V/DescendantFonts[%d 0 R]>>" % inner)
    content = b""
    for x, text in [(480, "渡し船は百年前から川を渡る"), (460, "市の日には朝五時に出る"), (440, "冬は九日だけ休む"),
                    (400, "時計は一日に四秒遅れる")]:
        content += shown(x, 760, b"J", text.encode("utf-16-be").hex().encode(), 12)
    add_page(pdf, content, J=font)
    return pdf.bytes()
