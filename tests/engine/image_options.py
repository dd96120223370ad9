# SPDX-License-Identifier: GPL-3.0-or-later
"""Every picture extension with every option that reaches it, checked by programs that are not ours: gm identify, file
and tiffinfo tell format, size, depth, resolution, coding and number of pages."""
import re

import core_support
from core_support import tool

FORMATS = {"png": "PNG", "jpeg": "JPEG", "jpe": "JPEG", "jpg": "JPEG", "tga": "TGA", "gif": "GIF", "bmp": "BMP",
           "ppm": "PPM", "pbm": "PBM", "pgm": "PGM", "pnm": "PPM", "tif": "TIFF", "tiff": "TIFF"}
# The output of `file` for each depth option.
FILE_DEPTH = {
    "png": {"": "8-bit/color RGB", "-gray": "8-bit grayscale", "-mono": "1-bit grayscale"},
    "bmp": {"": " x 24,", "-gray": " x 8,", "-mono": " x 1,"},
    "tga": {"": "x 24", "-gray": "x 8", "-mono": "x 8"},
    "jpg": {"": "components 3", "-gray": "components 1", "-mono": "components 1"},
    "pnm": {"": "Netpbm image data", "-gray": "Netpbm image data", "-mono": "Netpbm image data"},
    "ppm": {"": "rawbits, pixmap", "-gray": "rawbits, pixmap", "-mono": "rawbits, pixmap"},
    "pgm": {"": "rawbits, greymap", "-gray": "rawbits, greymap", "-mono": "rawbits, greymap"},
    "pbm": {"": "rawbits, bitmap", "-gray": "rawbits, bitmap", "-mono": "rawbits, bitmap"},
}
PNM_MAGIC = {"": b"P6", "-gray": b"P5", "-mono": b"P4"}
WITH_RESOLUTION = ("png", "jpeg", "jpe", "jpg", "bmp", "tif", "tiff")
CODES = (  # -compress, tiffinfo's name, size for two columns at 100 dpi or the fax size
    ("1", "None", None), ("3", "CCITT Group 3", None), ("4", "CCITT Group 4", None), ("5", "LZW", None),
    ("32773", "PackBits", None), ("88884", "CCITT Group 3", None),
    ("88882", "CCITT Group 3", (1728, 204, 98)), ("88883", "CCITT Group 3", (1728, 204, 196)),
)


def identify(path):
    text = tool("gm", "identify", "-format", "%m %w %h %x %y\n", str(path)).decode().split()
    return text[0], int(text[1]), int(text[2]), float(text[3]), float(text[4])


def sizes(suite, document, letter):
    """letter: pixel size of the page at 100 dpi."""
    width, height = letter
    rows = (
        ((), (round(width * 1.5), round(height * 1.5)), (150, 150)),
        (("-xres", "100"), letter, (100, 100)),
        (("-yres", "100"), letter, (100, 100)),
        (("-xres", "200", "-yres", "100"), (width * 2, height), (200, 100)),
        (("-width", "300", "-height", "200"), (300, 200), None),
        (("-width", "300", "-height", "200", "-xres", "120", "-yres", "60"), (300, 200), (120, 60)),
        (("-width", str(width)), letter, (100, 100)),
        (("-height", str(height)), letter, (100, 100)),
    )
    for extension, form in FORMATS.items():
        for number, (options, (wide, high), resolution) in enumerate(rows):
            path = suite.folder / f"size{number}.{extension}"
            suite.convert(document, path, "-l", "1", *options)
            found = identify(path)
            name = f"{extension} {options}"
            suite.check(found[0] == form, name, "is", found[0])
            suite.check(abs(found[1] - wide) <= 1 and abs(found[2] - high) <= 1, name, "measures", found[1:3])
            if resolution and extension in WITH_RESOLUTION:
                tag = found[3:5]
                if re.search(r"png|bmp", extension):  # these count in centimetres there
                    tag = tuple(each * 2.54 if each < 0.6 * resolution[0] else each for each in tag)
                suite.check(all(abs(a - b) < 0.6 for a, b in zip(tag, resolution)), name, "records", tag)


def depths(suite, document):
    for extension in FORMATS:
        for option in ("", "-gray", "-mono"):
            path = suite.folder / f"depth{option}.{extension}"
            suite.convert(document, path, "-l", "1", "-xres", "40", *([option] if option else []))
            text = tool("file", "-b", str(path)).decode()
            known = FILE_DEPTH.get("jpg" if extension.startswith("jp") else extension)
            if extension == "pnm":
                suite.check(path.read_bytes()[:2] == PNM_MAGIC[option], extension, option)
            elif known:
                suite.check(known[option] in text, extension, option, "is", text)


def tiff_field(text, name):
    match = re.search(rf"^\s*{name}: (.*)$", text, re.M)
    return match.group(1).strip() if match else None


def codings(suite, document, pages):
    for extension in ("tif", "tiff"):
        for code, coding, fax in CODES:
            for depth in ("", "-gray", "-mono"):
                folder = suite.fresh(f"{extension}-{code}{depth}")
                path = folder / f"all.{extension}"
                suite.convert(document, path, "-multipage", "-compress", code, "-xres", "60",
                              *([depth] if depth else []))
                suite.check([each.name for each in folder.iterdir()] == [path.name], "files:", list(folder.iterdir()))
                check_tiff(suite, path, code, coding, fax, depth, pages)


def check_tiff(suite, path, code, coding, fax, depth, pages):
    directories = tool("tiffinfo", str(path)).decode(errors="replace").split("=== TIFF directory")[1:]
    name = f"{path.name} {code} {depth}"
    suite.check(len(directories) == pages, name, "holds", len(directories), "pages")
    bits = 1 if depth == "-mono" or coding.startswith("CCITT") else 8
    for number, text in enumerate(directories):
        suite.check(tiff_field(text, "Compression Scheme").startswith(coding), name, text)
        suite.check(tiff_field(text, "Bits/Sample") == str(bits), name, text)
        suite.check(tiff_field(text, "Samples/Pixel") == ("3" if bits == 8 and not depth else "1"), name, text)
        wanted = f"{fax[1]}, {fax[2]} pixels/inch" if fax else "60, 60 pixels/inch"
        suite.check(tiff_field(text, "Resolution") == wanted, name, text)
        suite.check(not fax or f"Image Width: {fax[0]} " in text, name, text)
        suite.check(pages == 1 or tiff_field(text, "Page Number") == f"{number}-{pages}", name, text)
        two_d = "2-d encoding" in (tiff_field(text, "Group 3 Options") or "")
        suite.check(two_d == (code == "88884"), name, text)
    decoded = tool("gm", "identify", "-format", "%w\n", str(path)).split()
    suite.check(len(decoded) == pages, name, "cannot be decoded")


def main():
    suite = core_support.Suite()
    document = suite.samples / "report.pdf"
    text = tool("pdfinfo", str(document)).decode()
    points = re.search(r"Page size:\s+([\d.]+) x ([\d.]+)", text)
    letter = tuple(-(-int(float(each) * 100 * 1000 // 72) // 1000) for each in points.groups())
    sizes(suite, document, letter)
    depths(suite, suite.samples / "pictures.pdf")
    codings(suite, document, core_support.page_count(document))
    suite.end()


main()
