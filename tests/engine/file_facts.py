# SPDX-License-Identifier: GPL-3.0-or-later
"""What a file says about itself reaches HTML and XML: title, author, language, outline, page labels, comments. Broken
outlines and odd texts do no harm."""
import itertools
import xml.etree.ElementTree as ElementTree

import core_support
from hand_pdf import HandPdf, line, utf16


NUMBERS = itertools.count()


def convert(suite, name, pdf, extension):
    folder = suite.fresh(f"{name}-{next(NUMBERS)}")
    source, output = folder / "facts.pdf", folder / f"out.{extension}"
    source.write_bytes(pdf.bytes())
    result = suite.run("-call", str(source), str(output))
    suite.check(result.status == 0, name, extension, result)
    return output.read_text(encoding="utf-8") if output.exists() else ""


def as_xml(suite, name, pdf):
    text = convert(suite, name, pdf, "xml")
    return ElementTree.fromstring(text) if text else ElementTree.Element("none")


def described():
    """A file of two pages that says all it can about itself."""
    pdf = HandPdf()
    first = pdf.page(line(72, 700, "The first page."))
    second = pdf.page(line(72, 700, "The second page."), b"/Annots[%s]" % b" ".join([
        b"<</Type/Annot/Subtype/Text/Rect[100 600 120 620]/T(Ann)/Contents(Is this right?)>>",
        b"<</Type/Annot/Subtype/Highlight/Rect[72 690 150 710]/T%s/Contents%s>>" % (utf16("Bjørn"), utf16("a\nb")),
        b"<</Type/Annot/Subtype/Text/F 2/Rect[1 1 9 9]/Contents(seen by nobody)>>",
        b"<</Type/Annot/Subtype/Popup/Rect[1 1 9 9]/Contents(the same in a window)>>",
        b"<</Type/Annot/Subtype/Text/Rect[1 1 9 9]>>"]))
    root, one, two, inner = (pdf.add() for _ in range(4))
    pdf.set(root, b"<</Type/Outlines/First %d 0 R/Last %d 0 R>>" % (one, two))
    pdf.set(one, b"<</Title(One)/Parent %d 0 R/Next %d 0 R/First %d 0 R/Dest[%d 0 R/Fit]>>" % (root, two, inner, first))
    pdf.set(inner, b"<</Title%s/Parent %d 0 R/A<</S/GoTo/D[%d 0 R/XYZ 0 421 0]>>>>" % (utf16("Größe"), one, second))
    pdf.set(two, b"<</Title(Two)/Parent %d 0 R/Dest(nowhere)>>" % root)
    pdf.catalog = (b"/Lang(de_at)/Outlines %d 0 R/PageLabels<</Nums[0<</S/r/St 4>>1<</S/D/St 2>>]>>" % root)
    pdf.info = b"/Title%s/Author(Ann & Bob)/Subject(untitled)/Keywords(one, two)" % utf16("Grüße <1>")
    return pdf


def facts(suite):
    root = as_xml(suite, "described", described())
    suite.check(root.attrib == {"version": "1", "unit": "pt", "title": "Grüße <1>", "author": "Ann & Bob",
                                "keywords": "one, two", "language": "de-AT"},
                root.attrib)
    entries = [dict(each.attrib) for each in root.iter("entry")]
    suite.check(entries == [{"level": "1", "title": "One", "page": "1"},
                            {"level": "2", "title": "Größe", "page": "2", "top": "421"},
                            {"level": "1", "title": "Two"}], entries)
    labels = [page.get("label") for page in root.iter("page")]
    suite.check(labels == ["iv", None], labels)
    comments = [(each.get("author"), each.get("text"), each.get("top")) for each in root.iter("comment")]
    suite.check(comments == [("Ann", "Is this right?", "222"), ("Bjørn", "a\nb", "132")], comments)
    html = convert(suite, "described-html", described(), "html")
    for part in ['<html xmlns="http://www.w3.org/1999/xhtml" lang="de-AT">', "<title>Grüße &lt;1&gt;</title>",
                 'name="author" content="Ann &amp; Bob"', 'name="keywords" content="one, two"',
                 "<cite>Ann</cite>: Is this right?"]:
        suite.check(part in html, part, "is not in the HTML file")
    suite.check("seen by nobody" not in html and "in a window" not in html, "a comment that nobody sees is written")


def languages(suite):
    """The script of the text takes precedence over the file, and words that are no language count for nothing."""
    for said, expected in [("en_GB", "en-GB"), ("english please", None), ("und", None), ("fr", "fr"), ("<b>", None)]:
        pdf = HandPdf()
        pdf.page(line(72, 700, "Some text."))
        pdf.catalog = b"/Lang(%s)" % said.encode()
        found = as_xml(suite, "language", pdf).get("language")
        suite.check(found == expected, said, "became", found)


def titles(suite):
    """A title may be in the metadata only; a placeholder is no title."""
    packet = (b'<rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">'
              b'<rdf:Description xmlns:dc="http://purl.org/dc/elements/1.1/"><dc:title><rdf:Alt><rdf:li xml:lang='
              b'"x-default">From metadata</rdf:li></rdf:Alt></dc:title></rdf:Description></rdf:RDF>')
    for data, expected in [(packet, "From metadata"), (packet[:-40], "From metadata"), (b"no XML", None)]:
        pdf = HandPdf()
        pdf.page(line(72, 700, "Some text."))
        stream = pdf.add(b"<</Type/Metadata/Subtype/XML/Length %d>>\nstream\n%s\nendstream" % (len(data), data))
        pdf.catalog = b"/Metadata %d 0 R" % stream
        pdf.info = b"/Title(untitled)"
        found = as_xml(suite, "title", pdf).get("title")
        suite.check(found == expected, "metadata:", found)


def broken_outlines(suite):
    """Outlines that run in circles, lead nowhere, or are no outlines at all."""
    circle = HandPdf()
    circle.page(line(72, 700, "Some text."))
    root, one, two = (circle.add() for _ in range(3))
    circle.set(root, b"<</First %d 0 R>>" % one)
    circle.set(one, b"<</Title(a)/Next %d 0 R/First %d 0 R>>" % (two, one))
    circle.set(two, b"<</Title(b)/Next %d 0 R/First %d 0 R>>" % (one, root))
    circle.catalog = b"/Outlines %d 0 R" % root
    titles_found = [each.get("title") for each in as_xml(suite, "circle", circle).iter("entry")]
    suite.check(titles_found == ["a", "b"], titles_found)
    for body in (b"42", b"<</First 99 0 R>>", b"<</First(x)>>", b"<<>>", b"[1 2]"):
        pdf = HandPdf()
        pdf.page(line(72, 700, "Some text."))
        pdf.catalog = b"/Outlines %d 0 R" % pdf.add(body)
        root = as_xml(suite, "no-outline", pdf)
        suite.check(root.find("outline") is None and root.find("page") is not None, body)
    pdf = HandPdf()
    pdf.page(line(72, 700, "Some text."))
    numbers = [pdf.add() for _ in range(5001)]
    pdf.set(numbers[0], b"<</First %d 0 R>>" % numbers[1])
    for before, number in zip(numbers[1:], numbers[2:]):
        pdf.set(before, b"<</Title(deep)/First %d 0 R/Dest[0 /Fit]>>" % number)
    pdf.set(numbers[-1], b"<</Title(end)>>")
    pdf.catalog = b"/Outlines %d 0 R" % numbers[0]
    depth = len(list(as_xml(suite, "deep", pdf).iter("entry")))
    suite.check(0 < depth < 100, "levels:", depth)


def main():
    suite = core_support.Suite()
    for part in (facts, languages, titles, broken_outlines):
        part(suite)
    suite.end()


main()
