# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes small PDF files object by object, so that tests decide what each object says, right or wrong."""


class HandPdf:
    """A file whose objects are given as bytes. Object 1 is the catalog, 2 the root of the pages, 3 the font F."""

    def __init__(self):
        self.bodies = {3: b"<</Type/Font/Subtype/Type1/BaseFont/Helvetica/Encoding/WinAnsiEncoding>>"}
        self.pages = []
        self.catalog = b""
        self.info = b""

    def add(self, body=b""):
        """The number of a new object; the body can be set later."""
        number = max(max(self.bodies), 3) + 1
        self.bodies[number] = body
        return number

    def set(self, number, body):
        self.bodies[number] = body

    def page(self, content, entries=b"", resources=b""):
        """Adds a page of A4 and gives its object's number."""
        stream = self.add(b"<</Length %d>>\nstream\n%s\nendstream" % (len(content), content))
        number = self.add()
        self.pages.append(number)
        self.set(number, b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents %d 0 R"
                         b"/Resources<</Font<</F 3 0 R>>%s>>%s>>" % (stream, resources, entries))
        return number

    def bytes(self):
        self.bodies[1] = b"<</Type/Catalog/Pages 2 0 R%s>>" % self.catalog
        self.bodies[2] = b"<</Type/Pages/Count %d/Kids[%s]>>" % (
            len(self.pages), b" ".join(b"%d 0 R" % each for each in self.pages))
        data, offsets = bytearray(b"%PDF-1.7\n"), {}
        for number, body in sorted(self.bodies.items()):
            offsets[number] = len(data)
            data += b"%d 0 obj\n%s\nendobj\n" % (number, body)
        table, size = len(data), max(self.bodies) + 1
        data += b"xref\n0 %d\n0000000000 65535 f \n" % size
        data += b"".join(b"%010d 00000 n \n" % offsets[number] for number in range(1, size))
        info = b"/Info<<%s>>" % self.info if self.info else b""
        return bytes(data + b"trailer\n<</Size %d/Root 1 0 R%s>>\nstartxref\n%d\n%%%%EOF\n" % (size, info, table))


def line(x, y, text, size=11):
    """Draws a line of text, the origin being the lower left corner of the page."""
    escaped = text.replace("\\", "\\\\").replace("(", "\\(").replace(")", "\\)").encode("cp1252")
    return b"BT /F %g Tf 1 0 0 1 %g %g Tm (%s) Tj ET\n" % (size, x, y, escaped)


def utf16(text):
    """A text string in UTF-16, in hexadecimal notation."""
    return b"<" + (b"\xfe\xff" + text.encode("utf-16-be")).hex().encode() + b">"
