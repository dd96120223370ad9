# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes tagged PDF files from a tree of elements, each a tuple (role, children...) or (role, {attributes}, children...).
A child that is text is drawn on lines of its own; its place is the cursor's, which a child that is a number moves down
and a child (x, y) or (x, y, size) sets. A child of bytes is drawn as it is.
"""
from hand_pdf import HandPdf, line

LEADING = 14


class TaggedPdf:
    """One page after another is filled with the content of elements; artifacts can be drawn at any place."""

    def __init__(self):
        self.pdf = HandPdf()
        self.elements = []  # of the outermost level
        self._content = b""
        self._count = 0
        self._x, self._y, self._size = 72, 770, 11
        self._page = self.pdf.add()
        self._pages = []
        self.root = self.pdf.add()
        self.document = self.pdf.add()

    def artifact(self, x, y, text):
        self._content += b"/Artifact<</Type/Pagination>>BDC\n" + line(x, y, text) + b"EMC\n"

    def untagged(self, x, y, text):
        self._content += line(x, y, text)

    def draw(self, drawing):
        """Adds operators that draw something."""
        self._content += b"/Artifact BMC\n" + drawing + b"\nEMC\n"

    def next_page(self):
        self._pages.append((self._page, self._content))
        self._page, self._content, self._count, self._y = self.pdf.add(), b"", 0, 770

    def add(self, *elements):
        """Adds elements on the current page."""
        self.elements += [self._element(each, self.document) for each in elements]

    def _text(self, text):
        drawn = b""
        for each in text.split("\n"):
            drawn += line(self._x, self._y, each, self._size)
            self._y -= LEADING
        return self._marked(drawn)

    def _marked(self, drawn):
        self._content += b"/Span<</MCID %d>>BDC\n%sEMC\n" % (self._count, drawn)
        self._count += 1
        return b"<</Type/MCR/Pg %d 0 R/MCID %d>>" % (self._page, self._count - 1)

    def _element(self, element, parent):
        role, children = element[0], list(element[1:])
        attributes = children.pop(0) if children and isinstance(children[0], dict) else {}
        number, kids = self.pdf.add(), []
        for child in children:
            if isinstance(child, str):
                kids.append(self._text(child))
            elif isinstance(child, bytes):
                kids.append(self._marked(child))
            elif isinstance(child, (int, float)):
                self._y -= child
            elif isinstance(child[0], str):
                kids.append(b"%d 0 R" % self._element(child, number))
            else:
                self._x, self._y = child[:2]
                self._size = child[2] if len(child) > 2 else 11
        entries = b"".join(b"/%s %s" % (key.encode(), value) for key, value in attributes.items())
        self.pdf.set(number, b"<</Type/StructElem/S/%s/P %d 0 R/Pg %d 0 R/K[%s]%s>>" % (
            role.encode(), parent, self._page, b" ".join(kids), entries))
        return number

    def bytes(self, entries=b"", ignored=False):
        """The file, in which nothing leads to the tags if they are to be ignored."""
        self.next_page()
        for number, content in self._pages:
            stream = self.pdf.add(b"<</Length %d>>\nstream\n%s\nendstream" % (len(content), content))
            self.pdf.set(number, b"<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents %d 0 R"
                                 b"/Resources<</Font<</F 3 0 R>>>>>>" % stream)
            self.pdf.pages.append(number)
        self.pdf.set(self._page, b"null")
        self.pdf.set(self.document, b"<</Type/StructElem/S/Document/P %d 0 R/K[%s]>>" % (
            self.root, b" ".join(b"%d 0 R" % each for each in self.elements)))
        self.pdf.set(self.root, b"<</Type/StructTreeRoot/K %d 0 R%s>>" % (self.document, entries))
        if not ignored:
            self.pdf.catalog = b"/MarkInfo<</Marked true>>/StructTreeRoot %d 0 R" % self.root
        return self.pdf.bytes()
