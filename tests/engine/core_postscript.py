# SPDX-License-Identifier: GPL-3.0-or-later
"""PostScript and EPS: drawn again they hold as much ink as the document, pages and boxes are right, mono and gray leave
no colour, and a requested size is kept."""
import re

import core_support
from core_support import page_count, password, pixmap, tool

INK_DIFFERENCE = 0.6  # percent of all ink that a page can hold


def ink(data):
    _, width, height, pixels = pixmap(data)
    return 100 - sum(pixels) * 100 / (255 * max(1, width * height))


def drawn(path, folder, *options):
    """The pages as rendered by Ghostscript, in gray."""
    tool("gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=pgmraw", "-r36", *options,
         f"-sOutputFile={folder}/{path.stem}{path.suffix[1:]}-%03d.pgm", str(path))
    return [each.read_bytes() for each in sorted(folder.glob(f"{path.stem}{path.suffix[1:]}-*.pgm"))]


def same_ink(suite, document):
    folder = suite.fresh(f"ink-{document.stem}")
    pages = min(3, page_count(document))
    path = folder / "out.ps"
    suite.convert(document, path, "-l", "3")
    text = path.read_bytes()
    suite.check(text.startswith(b"%!PS-Adobe-3.0\n") and text.rstrip().endswith(b"%%EOF"), document.name, "no DSC")
    suite.check(len(re.findall(rb"^%%Page: ", text, re.M)) == pages, document.name, "page comments")
    ours = drawn(path, folder)
    suite.check(len(ours) == pages, document.name, "pages drawn:", len(ours))
    peers = [each.read_bytes() for each in core_support.peer_pages(folder, document, "-r", "36", "-gray", "-l", "3")]
    # The two programs render thin text differently; one of them must agree.
    direct = drawn(document, folder, "-dLastPage=3", f"-sPDFPassword={core_support.PASSWORDS.get(document.name, '')}")
    for number, our in enumerate(ours):
        others = [ink(each[number]) for each in (peers, direct) if number < len(each)]
        suite.check(any(abs(ink(our) - each) < INK_DIFFERENCE for each in others), document.name, number + 1, ink(our),
                    others)


def eps_pages(suite, document):
    folder = suite.fresh(f"eps-{document.stem}")
    count = page_count(document)
    suite.convert(document, folder / "out.eps")
    names = sorted(each.name for each in folder.iterdir())
    expected = ["out.eps"] if count == 1 else [f"out{n:04}.eps" for n in range(1, count + 1)]
    if not suite.check(names == expected, document.name, names):
        return
    info = tool("pdfinfo", *password(document), "-l", str(count), "-box", str(document)).decode(errors="replace")
    for number, name in enumerate(names, 1):
        text = (folder / name).read_bytes()
        suite.check(text.startswith(b"%!PS-Adobe-3.0 EPSF-3.0"), name, "is no EPS")
        box = [int(each) for each in re.search(rb"^%%BoundingBox: (-?\d+) (-?\d+) (-?\d+) (-?\d+)", text, re.M).groups()]
        crop = re.search(rf"Page +{number} CropBox: +([-\d.]+) +([-\d.]+) +([-\d.]+) +([-\d.]+)", info)
        rotation = re.search(rf"Page +{number} rot: +(\d+)", info)
        wide, high = float(crop.group(3)) - float(crop.group(1)), float(crop.group(4)) - float(crop.group(2))
        if rotation and int(rotation.group(1)) % 180:
            wide, high = high, wide
        suite.check(abs(box[2] - box[0] - wide) <= 1.5 and abs(box[3] - box[1] - high) <= 1.5,
                    document.name, name, box, wide, high)


def same_as_peer(suite, document):
    """All pages as PostScript and the first as EPS, byte for byte what pdftops writes."""
    folder = suite.fresh(f"peer-{document.stem}")
    for extension, ours, theirs in (("ps", (), ()), ("eps", ("-l", "1"), ("-eps", "-l", "1"))):
        path = folder / f"our.{extension}"
        peer = folder / f"peer.{extension}"
        suite.convert(document, path, *ours)
        tool("pdftops", *password(document), *theirs, str(document), str(peer))
        suite.check(path.read_bytes() == peer.read_bytes(), document.name, extension, "differs from pdftops")
        path.unlink()
        peer.unlink()


def no_colour(suite, document):
    for option in ("-gray", "-mono"):
        for extension in ("ps", "eps"):
            path = suite.folder / f"level{option}.{extension}"
            suite.convert(document, path, "-l", "1", option)
            body = path.read_bytes().split(b"%%EndPageSetup")[-1]
            suite.check(b"%%LanguageLevel: 1" in path.read_bytes(), path.name, "language level")
            suite.check(not re.search(rb"[\d.] (rg|k|RG|K)\n", body), path.name, "holds colour")
            for page in drawn(path, suite.folder):
                suite.check(ink(page) > 0, path.name, "is empty")


def asked_sizes(suite, document):
    for extension in ("ps", "eps"):
        path = suite.folder / f"sized.{extension}"
        suite.convert(document, path, "-l", "1", "-width", "400", "-height", "600", "-xres", "72")
        text = path.read_bytes()
        suite.check(b"BoundingBox: 0 0 400 600" in text or b"PageBoundingBox: 0 0 400 600" in text, extension, "box")
        options = ["-dEPSCrop"] if extension == "eps" else []
        pages = drawn(path, suite.folder, *options)
        suite.check(len(pages) == 1 and pixmap(pages[0])[1:3] == (200, 300), extension, "size",
                    [pixmap(each)[1:3] for each in pages])
        suite.check(pages and ink(pages[0]) > 0.5, extension, "is empty")


def main():
    suite = core_support.Suite()
    for document in suite.documents():
        same_as_peer(suite, document)
    if not suite.corpus:
        for document in suite.documents():
            same_ink(suite, document)
            eps_pages(suite, document)
        no_colour(suite, suite.samples / "pictures.pdf")
        asked_sizes(suite, suite.samples / "report.pdf")
        asked_sizes(suite, suite.samples / "rotated.pdf")
    suite.end()


main()
