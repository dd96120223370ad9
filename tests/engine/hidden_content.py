# SPDX-License-Identifier: GPL-3.0-or-later
"""What a reader does not see, or sees as background only, is not in the output: layers that are off, hidden
annotations, watermarks, the files of a portfolio."""
import core_support
from hand_pdf import HandPdf, line

EXTENSIONS = ("txt", "html", "xml")


def texts(suite, name, pdf):
    """The outputs for one file, by their extension."""
    folder = suite.fresh(name)
    source = folder / "hidden.pdf"
    source.write_bytes(pdf.bytes())
    found = {}
    for extension in EXTENSIONS:
        output = folder / f"out.{extension}"
        result = suite.run("-call", str(source), str(output))
        suite.check(result.status == 0, name, extension, result)
        found[extension] = output.read_text(encoding="utf-8") if output.exists() else ""
    return found


def expect(suite, name, pdf, seen, unseen):
    for extension, text in texts(suite, name, pdf).items():
        for word in seen:
            suite.check(word in text, name, extension, "lacks", word)
        for word in unseen:
            suite.check(word not in text, name, extension, "has", word)


def layers(suite):
    """Text and forms in a layer that is off, and in one that is on."""
    pdf = HandPdf()
    off, on = pdf.add(b"<</Type/OCG/Name(off)>>"), pdf.add(b"<</Type/OCG/Name(on)>>")
    content = line(10, 10, "Fromform")
    form = pdf.add(b"<</Type/XObject/Subtype/Form/BBox[0 0 200 100]/OC %d 0 R/Resources<</Font<</F 3 0 R>>>>/Length %d>>\n"
                   b"stream\n%s\nendstream" % (off, len(content), content))
    circle = b"0 0 1 rg 100 300 m 100 400 200 400 200 300 c 180 320 120 350 100 300 c f\n"
    pdf.page(line(72, 700, "Always") + b"/OC/Off BDC\n" + line(72, 680, "Turnedoff") + circle + b"EMC\n/OC/On BDC\n" +
             line(72, 660, "Turnedon") + b"EMC\n/X Do\n", b"",
             b"/Properties<</Off %d 0 R/On %d 0 R>>/XObject<</X %d 0 R>>" % (off, on, form))
    pdf.catalog = b"/OCProperties<</OCGs[%d 0 R %d 0 R]/D<</OFF[%d 0 R]>>>>" % (off, on, off)
    expect(suite, "layers", pdf, ["Always", "Turnedon"], ["Turnedoff", "Fromform", "<img", "<figure"])


def annotations(suite):
    """Appearances of hidden annotations and of those that are only printed in another state."""
    pdf = HandPdf()
    content = line(5, 5, "Stamped")

    def appearance():
        return pdf.add(b"<</Type/XObject/Subtype/Form/BBox[0 0 100 20]/Resources<</Font<</F 3 0 R>>>>/Length %d>>\nstream\n"
                       b"%s\nendstream" % (len(content), content))

    hidden = b"<</Type/Annot/Subtype/Stamp/F 2/Rect[100 600 200 620]/AP<</N %d 0 R>>>>" % appearance()
    no_view = b"<</Type/Annot/Subtype/Stamp/F 32/Rect[100 500 200 520]/AP<</N %d 0 R>>>>" % appearance()
    pdf.page(line(72, 700, "Always"), b"/Annots[%s%s]" % (hidden, no_view))
    expect(suite, "annotations", pdf, ["Always"], ["Stamped"])
    pdf = HandPdf()
    shown = b"<</Type/Annot/Subtype/Stamp/F 4/Rect[100 600 200 620]/AP<</N %d 0 R>>>>" % appearance()
    pdf.page(line(72, 700, "Always"), b"/Annots[%s]" % shown)
    expect(suite, "shown", pdf, ["Always", "Stamped"], [])


def watermarks(suite):
    """Large pale slanted letters are background; dark ones are a headline, small ones a label."""

    def slanted(size, gray, word):
        return b"q %g g 0.7 0.7 -0.7 0.7 150 300 cm BT /F %g Tf (%s) Tj ET Q\n" % (gray, size, word)

    pdf = HandPdf()
    pdf.page(slanted(90, 0.8, b"SPECIMEN") + line(72, 700, "Always"))
    text = texts(suite, "watermark", pdf)["txt"].split()
    suite.check(text == ["Always"], "watermark", text)
    # Slanted text comes in pieces: only their first letters are looked for.
    pdf = HandPdf()
    pdf.page(slanted(40, 0, b"Z") + slanted(8, 0.7, b"Q") + line(72, 700, "Always"))
    expect(suite, "headline", pdf, ["Always", "Z", "Q"], [])


def portfolio(suite):
    """The cover page is converted, the files inside are not."""
    pdf = HandPdf()
    inside = pdf.add(b"<</Type/EmbeddedFile/Length 8>>\nstream\nInnertxt\nendstream")
    entry = pdf.add(b"<</Type/Filespec/F(inner.txt)/EF<</F %d 0 R>>>>" % inside)
    pdf.page(line(72, 700, "Cover"))
    pdf.catalog = b"/Collection<</Type/Collection>>/Names<</EmbeddedFiles<</Names[(inner.txt)%d 0 R]>>>>" % entry
    expect(suite, "portfolio", pdf, ["Cover"], ["Innertxt"])


def main():
    suite = core_support.Suite()
    for part in (layers, annotations, watermarks, portfolio):
        part(suite)
    suite.end()


main()
