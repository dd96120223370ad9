# SPDX-License-Identifier: GPL-3.0-or-later
"""Four threads write the same bytes as one, whatever processors the machine has, and stay below the memory limit on the
largest pages. Built with the thread sanitizer, this also tells of races: they end a run with another status.

The engine of this script takes the number of processors as its first argument.
"""
import core_support
from core_support import page_count, password, tool

THREADS = 4
PAGES_FOR_ALL_THREADS = 16
OUTPUTS = (  # extension, options
    ("html", ()),
    ("html", ("-mono",)),
    ("txt", ()),
    ("xml", ()),
    ("png", ("-xres", "40")),
    ("jpg", ("-xres", "40")),
    ("gif", ("-xres", "40", "-gray")),
    ("tiff", ("-xres", "40")),
    ("tiff", ("-xres", "40", "-compress", "4")),
)
LARGEST_SIDE = 14400  # points
LARGE_PAGES = 4
DRAWINGS_ON_A_PAGE = 4  # 16 in all: enough for four threads


def convert(suite, processors, document, output, *options):
    """Converts and expects success."""
    result = suite.run(str(processors), *password(document), *options, "-call", str(document), str(output))
    suite.check(result.status == 0 and result.line == "", document.name, output.name, options, result)


def same_bytes(suite, document):
    for number, (extension, options) in enumerate(OUTPUTS):
        written = []
        for processors in (1, THREADS):
            folder = suite.fresh(f"{document.stem}-{number}-{processors}")
            convert(suite, processors, document, folder / f"out.{extension}", *options)
            written.append({path.name: path.read_bytes() for path in folder.iterdir()})
            for path in folder.iterdir():
                path.unlink()
        suite.check(written[0] and written[0] == written[1], document.name, extension, options,
                    "differs between one and four threads")


def long_sample(suite):
    """All pages of the samples, repeated to be enough for four threads."""
    names = ("report.pdf", "pictures.pdf", "figures.pdf", "two-columns.pdf", "rotated.pdf", "ruled-table.pdf")
    path = suite.folder / "long.pdf"
    tool("qpdf", "--empty", "--pages", *(str(suite.samples / name) for name in names * 2), "--", str(path))
    suite.check(page_count(path) >= PAGES_FOR_ALL_THREADS, "the long sample is too short")
    return path


def drawing(left, bottom, size):
    """Page content with curves that fill a square."""
    lines = ["5 w"]
    for step in range(12):
        along = left + size * step // 12
        lines.append(f"0.{step:02} 0.5 0.7 rg {along} {bottom} m {left} {bottom + size} {left + size} {bottom + size} "
                     f"{left + size - size * step // 20} {bottom + size // 3} c b")
    return "\n".join(lines)


def large_pages(path):
    """Writes a file with pages of the maximum size, covered with drawings."""
    side = LARGEST_SIDE
    size = side * 2 // 5
    content = "\n".join(drawing(side * (i % 2) // 2 + 300, side * (i // 2) // 2 + 300, size)
                        for i in range(DRAWINGS_ON_A_PAGE))
    first = 4
    pages = [f"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 {side} {side}] /Contents 3 0 R >>"] * LARGE_PAGES
    kids = " ".join(f"{first + i} 0 R" for i in range(LARGE_PAGES))
    objects = ["<< /Type /Catalog /Pages 2 0 R >>", f"<< /Type /Pages /Count {LARGE_PAGES} /Kids [{kids}] >>",
               f"<< /Length {len(content)} >>\nstream\n{content}\nendstream", *pages]
    data = "%PDF-1.4\n"
    places = []
    for number, text in enumerate(objects, 1):
        places.append(len(data))
        data += f"{number} 0 obj\n{text}\nendobj\n"
    table = len(data)
    data += f"xref\n0 {len(objects) + 1}\n0000000000 65535 f \n"
    data += "".join(f"{place:010} 00000 n \n" for place in places)
    data += f"trailer << /Size {len(objects) + 1} /Root 1 0 R >>\nstartxref\n{table}\n%%EOF\n"
    path.write_text(data, encoding="ascii")


def main():
    suite = core_support.Suite()
    if suite.corpus:
        for document in suite.documents():
            if page_count(document) >= PAGES_FOR_ALL_THREADS:
                same_bytes(suite, document)
    else:
        same_bytes(suite, long_sample(suite))
        path = suite.folder / "large.pdf"
        large_pages(path)
        convert(suite, THREADS, path, suite.folder / "large.html")
        html = (suite.folder / "large.html").read_text(encoding="utf-8")
        drawings = html.count("<img")
        suite.check(drawings >= LARGE_PAGES, "pictures of the largest pages:", drawings)
    suite.end()


main()
