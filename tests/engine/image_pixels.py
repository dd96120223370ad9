# SPDX-License-Identifier: GPL-3.0-or-later
"""Pictures hold exactly the pixels that pdftoppm draws: in the plain formats on all documents, in every other lossless
format on the pages of the samples; JPEG within a stated mean difference, GIF by its palette."""
import core_support
from core_support import mean_difference, peer_pages, pixmap, tool

JPEG_MEAN_DIFFERENCE = 2.0  # gray levels of 255
GIF_MEAN_DIFFERENCE = 3.0   # where a page has more than 256 colours
MOST_MEGABYTES = 150

DEPTHS = (  # our options, our extension, pdftoppm's options
    ((), "ppm", ()),
    (("-gray",), "pgm", ("-gray",)),
    (("-mono",), "pbm", ("-mono",)),
)
LOSSLESS = ("png", "tif", "tiff", "bmp", "tga", "pnm")


def same_pages(suite, document, options, extension, peer_options, resolution):
    folder = suite.fresh(f"{document.stem}-{extension}")
    result = suite.convert(document, folder / f"our.{extension}", *options, "-xres", str(resolution))
    suite.check(not suite.corpus or result.megabytes <= MOST_MEGABYTES, document.name, extension, "took",
                result.megabytes, "MB")
    ours = sorted(folder.glob("our*"))
    peers = peer_pages(folder, document, "-r", str(resolution), *peer_options)
    suite.check(len(ours) == len(peers), document.name, "pages:", len(ours), "and", len(peers))
    for our, peer in zip(ours, peers):
        expected = peer.read_bytes()
        if pixmap(expected)[1] == 0:
            continue  # a page that pdftoppm cannot draw
        suite.check(our.read_bytes() == expected, document.name, our.name, "has other pixels")
    for path in folder.iterdir():
        path.unlink()


def decoded(path, magic):
    """The pixels of the picture as read by an independent program, as a portable pixmap."""
    form = {b"P4": "pbm", b"P5": "pgm", b"P6": "ppm"}[magic]
    extra = ["-depth", "8"] if magic != b"P4" else []
    return pixmap(tool("gm", "convert", str(path), *extra, f"{form}:-"))


def other_formats(suite, document):
    for options, plain, peer_options in DEPTHS:
        folder = suite.fresh(f"formats-{document.stem}-{plain}")
        peer = pixmap(peer_pages(folder, document, "-r", "60", "-l", "1", *peer_options)[0].read_bytes())
        for extension in (*LOSSLESS, "gif", "jpg", "jpeg", "jpe"):
            if extension.startswith("jp") and plain == "pbm":
                continue  # drawn in gray then
            path = folder / f"our.{extension}"
            suite.convert(document, path, *options, "-xres", "60", "-l", "1")
            magic, width, height, pixels = decoded(path, peer[0])
            name = f"{document.name} {path.name} {options}"
            if not suite.check((magic, width, height) == peer[:3], name, magic, width, height, "not", peer[:3]):
                continue
            difference = 0 if pixels == peer[3] else mean_difference(pixels, peer[3])
            allowed = 0
            if extension.startswith("jp"):
                allowed = JPEG_MEAN_DIFFERENCE
            elif extension == "gif" and plain == "ppm" and colours(peer[3]) > 256:
                allowed = GIF_MEAN_DIFFERENCE
            suite.check(difference <= allowed, name, "differs by", difference)


def colours(pixels):
    return len({pixels[i:i + 3] for i in range(0, len(pixels), 3)})


def main():
    suite = core_support.Suite()
    for document in suite.documents():
        for options, extension, peer_options in DEPTHS:
            same_pages(suite, document, options, extension, peer_options, 150 if suite.corpus else 100)
        if not suite.corpus:
            other_formats(suite, document)
    suite.end()


main()
