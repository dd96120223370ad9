# SPDX-License-Identifier: GPL-3.0-or-later
"""Scanned pages become text in every output: which pages are recognised, in which language, what becomes of tables and
photographs, and what happens without recognition.

    scanned_pages.py ENGINE SAMPLES

Skipped without recognition data for English.
"""
import base64
import io
import os
import pathlib
import re
import subprocess
import sys
import time
import xml.etree.ElementTree as ElementTree

from PIL import Image
from reportlab.lib.pagesizes import A4
from reportlab.lib.utils import ImageReader
from reportlab.pdfgen.canvas import Canvas

import core_support
from core_support import SKIPPED, words

USAGE = 1
MOST_MEGABYTES = 400
LEAST_WORDS = 0.97  # share of the words of the page that are read, and of the read words that are on the page
WIDTH, HEIGHT = A4
FORMAT_NS = "{urn:oasis:names:tc:opendocument:xmlns:%s:1.0}"
# Stands in for LibreOffice: keeps the flat document and fails.
KEEP = "#!/bin/sh\ncp document.xml '%s'\nexit 1\n"


def installed_languages(suite):
    line = suite.run("-ocrlang", "no_such", "-call", "none.pdf", str(suite.folder / "none.txt")).line
    return line.partition("installed are")[2].split()


def expected_text(suite):
    sys.path.insert(0, str(suite.samples))
    import sample_texts as texts
    cells = "Press Sheets Power Alder 9,000 14.5 Birch 12,500 11.0 Drake 4,100 7.25"
    return " ".join([texts.SCAN_TITLE, *texts.SCAN_TEXT, cells, texts.SCAN_CAPTION])


def text_of(suite, document, *options, environment=None):
    path = suite.folder / "out.txt"
    result = suite.run(*options, "-call", str(document), str(path), environment=environment)
    suite.check(result.status == 0 and result.line == "", document, options, result)
    suite.check(result.megabytes <= MOST_MEGABYTES or core_support.SANITIZED, "memory:", result.megabytes)
    return path.read_text()


def picture_of(draw):
    """A page drawn by draw(canvas), as a grey picture of 200 dots per inch."""
    page = io.BytesIO()
    canvas = Canvas(page, pagesize=A4)
    draw(canvas)
    canvas.save()
    grey = subprocess.run(["pdftoppm", "-r", "200", "-gray", "-"], input=page.getvalue(), stdout=subprocess.PIPE,
                          check=True).stdout
    return ImageReader(Image.open(io.BytesIO(grey)))


def lines(canvas, *texts, font="Times-Roman", size=14):
    canvas.setFont(font, size)
    for number, text in enumerate(texts):
        canvas.drawString(72, HEIGHT - 100 - 2 * size * number, text)


def sample(suite):
    scan = suite.samples / "scanned.pdf"
    text = text_of(suite, scan)
    expected, found = words(expected_text(suite)), words(text)
    common = sum((expected & found).values())
    recall, precision = common / sum(expected.values()), common / max(1, sum(found.values()))
    suite.check(min(recall, precision) >= LEAST_WORDS, f"recall {recall:.3f} precision {precision:.3f}:", text)
    order = [text.find(part) for part in ("Notice", "weekdays", "Photographs", "Birch", "hills")]
    suite.check(order == sorted(order) and order[0] >= 0, "order of the text:", order)
    suite.check(text_of(suite, scan, "-noocr") == "\f", "-noocr reads the page")


def structure(suite):
    path = suite.folder / "out.xml"
    suite.convert(suite.samples / "scanned.pdf", path)
    page = ElementTree.parse(path).getroot().find("page")
    suite.check(page.get("recognised") == "yes" and page.get("scanned") is None, page.attrib)
    table = page.find(".//table")
    suite.check(table is not None and (table.get("rows"), table.get("columns")) == ("4", "3"), "table:",
                table is not None and table.attrib)
    all_words = page.findall(".//word")
    sure = [float(word.get("confidence", -1)) for word in all_words]
    suite.check(sure and min(sure) >= 0 and sum(sure) / len(sure) > 0.8, "confidence:", sure)
    pictures = page.findall(".//picture")
    sides = [float(each.get("right")) - float(each.get("left")) for each in pictures]
    suite.check(len(sides) == 1 and 200 < sides[0] < 245, "the photograph is 220 points wide:", sides)
    for picture in pictures[:1]:
        data = base64.b64decode(picture.get("source").partition(",")[2])
        wide, high = Image.open(io.BytesIO(data)).size
        suite.check(abs(wide / high - 1) < 0.1, "the photograph is square:", wide, high)
    schema = pathlib.Path(__file__).resolve().parents[2] / "docs/xml-format.xsd"
    lint = subprocess.run(["xmllint", "--noout", "--nonet", "--huge", "--schema", str(schema), str(path)],
                          capture_output=True, check=False)
    suite.check(lint.returncode == 0, lint.stderr[:500])
    html = suite.folder / "out.html"
    suite.convert(suite.samples / "scanned.pdf", html)
    text = html.read_text()
    suite.check(text.count("<img") == 1 and "<table" in text and "ear protection" in text, "HTML without its parts")


def through_office(suite):
    """What LibreOffice would get."""
    folder = suite.fresh("office")
    kept = folder / "kept.xml"
    program = folder / "soffice"
    program.write_text(KEEP % kept)
    program.chmod(0o755)
    for extension, options in (("docx", []), ("docx", ["-wordmode", "2"]), ("pptx", []), ("xlsx", [])):
        suite.run(*options, "-call", str(suite.samples / "scanned.pdf"), str(folder / f"out.{extension}"),
                  environment={"QUORRA_SOFFICE": str(program)})
        if not suite.check(kept.exists(), extension, "made no document"):
            continue
        root = ElementTree.parse(kept).getroot()
        text = " ".join("".join(root.itertext()).split())
        suite.check("ear protection" in text and "12,500" in text, extension, options, "lacks text")
        images = root.findall(f".//{FORMAT_NS % 'drawing'}image")
        suite.check(len(images) == 1, extension, options, "has", len(images), "pictures")
        tables = root.findall(f".//{FORMAT_NS % 'table'}table")
        suite.check(options or extension == "xlsx" or tables, extension, "has no table")
        kept.unlink()


def each_page_for_itself(suite):
    path = suite.folder / "mixed.pdf"
    scan = picture_of(lambda canvas: lines(canvas, "Only a picture of words"))
    searchable = picture_of(lambda canvas: lines(canvas, "These words are in the picture"))
    canvas = Canvas(str(path), pagesize=A4)
    lines(canvas, "Real text of a page")
    canvas.showPage()
    canvas.drawImage(scan, 0, 0, WIDTH, HEIGHT)
    lines(canvas, "", size=8)
    canvas.drawString(500, 20, "Page 7")
    canvas.showPage()
    canvas.drawImage(searchable, 0, 0, WIDTH, HEIGHT)
    hidden = canvas.beginText(72, HEIGHT - 100)
    hidden.setTextRenderMode(3)
    hidden.setFont("Times-Roman", 14)
    hidden.textLine("The hidden layer says so")
    canvas.drawText(hidden)
    canvas.showPage()
    canvas.drawImage(scan, 0, 0, WIDTH, HEIGHT)
    hidden = canvas.beginText(72, HEIGHT - 100)
    hidden.setTextRenderMode(3)
    hidden.setFont("Times-Roman", 14)
    shifted = "".join(c if c == " " else chr(max(33, ord(c) - 29)) for c in "words of a font without a map to letters")
    for _ in range(5):
        hidden.textLine(shifted)
    canvas.drawText(hidden)
    canvas.showPage()
    canvas.save()
    pages = [" ".join(page.split()) for page in text_of(suite, path).split("\f")]
    expected = ["Real text of a page", "Only a picture of words Page 7", "The hidden layer says so"]
    suite.check(pages[:3] == expected, "pages:", pages)
    suite.check(len(pages) == 5, "pages:", pages)


def senseless_layer(suite):
    """Hidden letters that make no sense are replaced by what the picture shows."""
    path = suite.folder / "senseless.pdf"
    true = ["The committee shall report on the results", "of its work in the first week of every year,",
            "and on what remains to be done after that.", "The members of the committee are elected for two years."]
    canvas = Canvas(str(path), pagesize=A4)
    canvas.drawImage(picture_of(lambda inner: lines(inner, *true)), 0, 0, WIDTH, HEIGHT)
    hidden = canvas.beginText(72, HEIGHT - 100)
    hidden.setTextRenderMode(3)
    hidden.setFont("Courier", 14)
    for line in true:
        hidden.textLine("".join(c if c == " " else chr(max(33, ord(c) - 29)) for c in line))
    canvas.drawText(hidden)
    canvas.save()
    suite.check(text_of(suite, path).split() == " ".join(true).split(), text_of(suite, path))


def languages(suite, installed):
    result = suite.run("-ocrlang", "no_such+eng", "-call", str(suite.samples / "scanned.pdf"),
                       str(suite.folder / "none.txt"))
    suite.check(result.status == USAGE and result.line.count("\n") == 1 and "no_such" in result.line, result)
    suite.check(not (suite.folder / "none.txt").exists(), "an output in spite of the failure")
    result = suite.run("-ocrlang", "eng;deu", "-call", str(suite.samples / "scanned.pdf"), str(suite.folder / "none.txt"))
    suite.check(result.status == USAGE and result.line.count("\n") == 1, result)
    if "deu" not in installed:
        print("not run: no recognition data for German")
        return
    german = "Die Größe der Übungsräume übertrifft das Maß"
    path = suite.folder / "german.pdf"
    canvas = Canvas(str(path), pagesize=A4)
    canvas.drawImage(picture_of(lambda inner: lines(inner, german, german)), 0, 0, WIDTH, HEIGHT)
    canvas.save()
    neutral = {"LC_ALL": "", "LC_MESSAGES": "", "LANG": "C.UTF-8"}
    for options, environment in (([], {**neutral, "LANG": "de_DE.UTF-8"}), (["-ocrlang", "deu"], neutral)):
        text = text_of(suite, path, *options, environment=environment)
        suite.check(text.count("Größe") == 2 and text.count("Maß") == 2, options, environment, text)


def without_data(suite):
    empty = suite.fresh("no-data")
    text = text_of(suite, suite.samples / "scanned.pdf", environment={"TESSDATA_PREFIX": str(empty)})
    suite.check(text == "\f", "text without data:", text)


def several_pages(suite):
    """The same text whatever the number of processors; a killed run leaves no output."""
    path = suite.folder / "pages.pdf"
    subprocess.run(["qpdf", "--empty", "--pages", *[str(suite.samples / "scanned.pdf")] * 4, "--", str(path)], check=True)
    parallel = text_of(suite, path)
    suite.check(parallel.count("Notice to all visitors") == 4, "pages are missing")
    os.sched_setaffinity(0, {min(os.sched_getaffinity(0))})
    suite.check(text_of(suite, path) == parallel, "another text with one processor")
    folder = suite.fresh("killed")
    process = subprocess.Popen([suite.engine, "-call", str(path), str(folder / "out.txt")],
                               env=dict(os.environ, TMPDIR=str(suite.temp)))
    deadline = time.monotonic() + core_support.WAIT
    maps = pathlib.Path("/proc", str(process.pid), "maps")
    while "tesseract" not in maps.read_text() and process.poll() is None and time.monotonic() < deadline:
        time.sleep(0.005)
    process.kill()
    suite.check(process.wait() == -9, "ended before it was killed:", process.returncode)
    suite.check(not (folder / "out.txt").exists(), "an incomplete output has the final name")
    suite.convert(suite.samples / "report.pdf", folder / "next.txt")
    suite.check([each.name for each in folder.iterdir()] == ["next.txt"], "left:", list(folder.iterdir()))


def cost(suite):
    """Documents with text do not load the library."""
    trace = subprocess.run(["ldd", suite.engine], capture_output=True, text=True, check=True).stdout
    suite.check(not re.search("tesseract|leptonica|lept", trace), "the engine is linked to the library")


def main():
    suite = core_support.Suite()
    installed = installed_languages(suite)
    if "eng" not in installed:
        print("not run: no recognition data for English")
        sys.exit(SKIPPED)
    sample(suite)
    structure(suite)
    through_office(suite)
    each_page_for_itself(suite)
    senseless_layer(suite)
    languages(suite, installed)
    without_data(suite)
    cost(suite)
    several_pages(suite)
    suite.end()


main()
