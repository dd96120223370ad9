# SPDX-License-Identifier: GPL-3.0-or-later
"""Wrong, broken or endless tags never make an output worse: it is that of the same file without tags. The approved
dumps of drawn documents show that good tags are used."""
import re

import core_support
from hand_pdf import HandPdf, line
from tagged_pdf import TaggedPdf

TEXT = ["The ferry leaves at eight in the morning and goes to the\nother bank, where the road to the mill begins and the\n"
        "old toll house stands.", "In winter it does not run when the river is frozen or the\nwater is higher than the "
        "second step of the stairs.", "Carts wait at the ramp until the bell has been rung for\nthe second time, which the "
        "keeper does himself.", "Nobody may bring more than two animals, and those have\nto be held by a rope that is no "
        "longer than a yard."]


def page(pdf, elements):
    """A heading and four paragraphs of printed text, in elements of these roles."""
    roles = iter(elements)
    pdf.add((next(roles), (72, 770, 16), "The ferry"))
    y = 740
    for text in TEXT:
        pdf.add((next(roles), (72, y), text))
        y -= 14 * (text.count("\n") + 1) + 10


def good(pdf):
    page(pdf, ["H1", "P", "P", "P", "P"])


def all_headings(pdf):
    page(pdf, ["H1"] * 5)


def line_by_line(pdf):
    """Every line is a paragraph."""
    y = 740
    pdf.add(("H1", (72, 770, 16), "The ferry"))
    for text in TEXT:
        for each in text.split("\n"):
            pdf.add(("P", (72, y), each))
            y -= 14
        y -= 10


def shuffled(pdf):
    """The elements are read from below."""
    good(pdf)
    pdf.elements.reverse()


def in_one(pdf):
    """All text is one paragraph."""
    y, parts = 740, []
    for text in TEXT:
        parts += [(72, y), text]
        y -= 14 * (text.count("\n") + 1) + 40
    pdf.add(("P", (72, 770, 16), "The ferry", *parts))


def all_artifacts(pdf):
    page(pdf, ["Artifact"] * 5)


def half_covered(pdf):
    """Most of the text is in no element."""
    page(pdf, ["P"] * 5)
    del pdf.elements[1:4]


def interleaved(pdf):
    """Two paragraphs share the lines of the text."""
    lines = [(y, text) for y, text in zip(range(740, 500, -14), "\n".join(TEXT).split("\n"))]
    odd, even = ([part for y, text in half for part in ((72, y), text)] for half in (lines[::2], lines[1::2]))
    pdf.add(("H1", (72, 770, 16), "The ferry"), ("P", *odd), ("P", *even))


LIES = (line_by_line, shuffled, in_one, all_artifacts, half_covered, interleaved, all_headings)


class Converter:
    def __init__(self, suite):
        self.suite = suite
        self.folder = suite.fresh("tags")

    def __call__(self, data, extension="xml"):
        source, output = self.folder / "in.pdf", self.folder / f"out.{extension}"
        source.write_bytes(data)
        output.unlink(missing_ok=True)
        result = self.suite.run("-call", str(source), str(output))
        self.suite.check(result.status == 0, result)
        return output.read_text(encoding="utf-8") if output.exists() else "nothing"


def both(make):
    """The file with its tags and without them."""
    files = []
    for ignored in (False, True):
        pdf = TaggedPdf()
        make(pdf)
        files.append(pdf.bytes(ignored=ignored))
    return files


def roles(xml):
    return re.findall(r'role="([a-z0-9]+)"', xml)


def lies(suite, convert):
    for lie in LIES:
        tagged, plain = both(lie)
        for extension in ("xml", "txt"):
            suite.check(convert(tagged, extension) == convert(plain, extension), lie.__name__, "changes", extension)


def truth(suite, convert):
    """Control: good tags do change the result."""
    tagged, plain = both(lambda pdf: pdf.add(("H2", "The ferry"), ("P", TEXT[0]), ("H2", "The boat"), ("P", TEXT[1])))
    suite.check(roles(convert(tagged)) == ["heading2", "body", "heading2", "body"], roles(convert(tagged)))
    suite.check(roles(convert(plain)) != roles(convert(tagged)), "headings of the text's size are found without tags")
    tagged, plain = both(good)
    suite.check(roles(convert(tagged)) == ["heading1"] + 4 * ["body"], roles(convert(tagged)))


def nothing_lost(suite, convert):
    """Text outside of the elements stays, and so do artifacts."""
    pdf = TaggedPdf()
    pdf.artifact(72, 815, "Running title")
    good(pdf)
    pdf.untagged(72, 300, "Stamped later.")
    pdf.artifact(400, 700, "Void")
    pdf.artifact(300, 20, "Page 9")
    words = set(re.findall(r"[A-Za-z0-9]+", convert(pdf.bytes(), "txt")))
    wanted = set(re.findall(r"[A-Za-z0-9]+", " ".join(TEXT) + " The ferry Running title Stamped later Void Page 9"))
    suite.check(wanted <= words, "lost:", wanted - words)


def broken(suite, convert):
    """Malformed trees: the text is converted anyway."""
    def with_tree(root, *bodies):
        pdf = HandPdf()
        pdf.page(b"/P<</MCID 0>>BDC\n" + line(72, 700, "Some text.") + b"EMC\n/P<</MCID 99999999>>BDC EMC EMC EMC")
        numbers = [pdf.add() for _ in (root, *bodies)]
        for number, body in zip(numbers, (root, *bodies)):
            pdf.set(number, body.replace(b"@root", b"%d 0 R" % numbers[0]).replace(b"@next", b"%d 0 R" % (number + 1)))
        pdf.catalog = b"/StructTreeRoot %d 0 R" % numbers[0]
        return pdf.bytes()

    element = b"<</S/P/P @root/Pg 5 0 R/K %s>>"
    trees = [(b"42",), (b"<<>>",), (b"<</K(x)>>",), (b"<</K @next>>", b"<<>>"), (b"<</K @next>>", b"<</K @next>>", b"7"),
             (b"<</K @next>>", element % b"@root"), (b"<</K[@next @next]>>", element % b"[0 0 0]"),
             (b"<</K @next>>", element % b"[-1 0 1.5 null(x)<</MCID/x>><</Type/MCR/MCID 0/Pg 999 0 R>>]"),
             (b"<</K @next/RoleMap<</X/Y/Y/X/P/X>>>>", b"<</S/X/Pg 5 0 R/K 0>>"),
             (b"<</K @next>>", b"<</S/Table/Pg 5 0 R/K[<</S/TR/K[<</S/TD/K 0/A<</RowSpan 2147483647/ColSpan -5>>>>"
                               b"<</S/TD/K[]/A[<</ColSpan 99999999>>(x)]>>]>>]>>"),
             (b"<</K " + b"[" * 400 + b"]" * 400 + b">>",)]
    for tree in trees:
        text = convert(with_tree(*tree), "txt")
        suite.check(text.split() == ["Some", "text."], tree, "gave", text[:100])
    pdf = HandPdf()  # nested so deeply that a recursive reader would exhaust its stack
    pdf.page(b"/P<</MCID 0>>BDC\n" + line(72, 700, "Some text.") + b"EMC")
    first, count = pdf.add(), 60_000
    for number in range(first + 1, first + count):
        pdf.bodies[number] = b"<</S/Sect/Pg 5 0 R/K %d 0 R>>" % (number + 1)
    pdf.bodies[first + count] = b"<</S/P/Pg 5 0 R/K 0>>"
    pdf.set(first, b"<</K %d 0 R>>" % (first + 1))
    pdf.catalog = b"/StructTreeRoot %d 0 R" % first
    suite.check(convert(pdf.bytes(), "txt").split() == ["Some", "text."], "deep nesting")


def main():
    suite = core_support.Suite()
    convert = Converter(suite)
    for part in (truth, lies, nothing_lost, broken):
        part(suite, convert)
    suite.end()


main()
