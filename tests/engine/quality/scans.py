# SPDX-License-Identifier: GPL-3.0-or-later
"""Documents as scans: what recognition leaves of their tables.

    scans.py make SOURCE.pdf TARGET.pdf [DOTS_PER_INCH]    pictures of the pages, without text
    scans.py tables ENGINE                                 F1 of neighbouring cells of the opened documents with marked
                                                           tables (see corpora.py), as text and as scans

Requires Debian's Python, which draws documents.
"""
import io
import os
import pathlib
import subprocess
import sys
import tempfile

from PIL import Image
from reportlab.lib.utils import ImageReader
from reportlab.pdfgen.canvas import Canvas

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import corpora
import table_score

USUAL = 300  # dots per inch


def make_scan(source, target, resolution=USUAL, options=()):
    """Writes a file whose pages are grey pictures of the pages of another one."""
    with tempfile.TemporaryDirectory(prefix="quorra-scan-") as folder:
        subprocess.run(["pdftoppm", "-cropbox", "-gray", "-r", str(resolution), *options, str(source), folder + "/page"],
                       check=True, stderr=subprocess.DEVNULL)
        canvas = Canvas(str(target))
        for page in sorted(pathlib.Path(folder).iterdir()):
            image = Image.open(page)
            size = [side * 72 / resolution for side in image.size]
            data = io.BytesIO()
            image.save(data, "PNG")
            data.seek(0)
            canvas.setPageSize(size)
            canvas.drawImage(ImageReader(data), 0, 0, *size)
            canvas.showPage()
        canvas.save()


def score(engine, document, path, folder):
    html = str(folder / "out.html")
    subprocess.run([engine, *document.options, "-call", str(path), html], check=True)
    return table_score.score(str(document.truth), html)[2]


def measure_tables(engine):
    figures = []
    with tempfile.TemporaryDirectory(prefix="quorra-scan-") as name:
        folder = pathlib.Path(name)
        for document in corpora.documents((corpora.OPENED,)):
            if document.truth is None or document.truth.suffix != ".xml":
                continue
            scan = folder / "scan.pdf"
            make_scan(document.path, scan, options=document.options)
            figures.append((score(engine, document, document.path, folder), score(engine, document, scan, folder)))
            print("%-30s text %.3f  scan %.3f" % (document.name, *figures[-1]), flush=True)
    if figures:
        print("%-30s text %.3f  scan %.3f" % ("mean", *(sum(column) / len(figures) for column in zip(*figures))))


def main(arguments):
    if len(arguments) in (3, 4) and arguments[0] == "make":
        make_scan(arguments[1], arguments[2], *map(int, arguments[3:]))
    elif len(arguments) == 2 and arguments[0] == "tables":
        measure_tables(arguments[1])
    else:
        sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
