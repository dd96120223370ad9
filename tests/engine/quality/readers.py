# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the engine's outputs with third-party libraries, or directly where the format is simple."""
import collections
import datetime
import html
import html.parser
import itertools
import os
import re
import subprocess
import tempfile
import unicodedata
import xml.etree.ElementTree as ElementTree
import zipfile

W = "{http://schemas.openxmlformats.org/wordprocessingml/2006/main}"
WPS = "{http://schemas.microsoft.com/office/word/2010/wordprocessingShape}"
A = "{http://schemas.openxmlformats.org/drawingml/2006/main}"
FEWEST_EXCHANGED = 10  # characters
COVERED = 0.8  # share of the width of a word that lies on another one
FALLBACK = "{http://schemas.openxmlformats.org/markup-compatibility/2006}Fallback"


def run(*command, timeout=300):
    return subprocess.run(command, capture_output=True, check=True, timeout=timeout).stdout


def tokens(text):
    """The words of a text; compatibility forms (ligatures, presentation forms) are decomposed."""
    return re.findall(r"\w+", unicodedata.normalize("NFKC", text.replace("\u00ad", "")))


def _is_exchanged(text):
    """pdftotext relies on maps to Unicode that exchange the two bytes of every character; then no lower byte but zero
    occurs."""
    strange = [c for c in text if ord(c) > 0xff]
    return len(strange) >= FEWEST_EXCHANGED and not any(ord(c) & 0xff or ord(c) > 0xffff for c in strange)


def _upright(text):
    """The text with the bytes of its characters in order."""
    if not _is_exchanged(text):
        return text
    return "".join(chr(ord(c) >> 8) if ord(c) > 0xff else c for c in text)


def pdf_text(path, *options):
    return _upright(run("pdftotext", *options, path, "-").decode("utf-8", "replace"))


def has_exchanged_map(path, *options):
    """Whether pdftotext reads the two bytes of each character in the wrong order. Zeros are wide spaces to it then, of which
    it keeps one."""
    return _is_exchanged(run("pdftotext", *options, path, "-").decode("utf-8", "replace"))


def _letters(text):
    return re.sub(r"\W", "", text)


def _overprinted(path, *options):
    """The words that pdftotext finds mostly inside the box of another word, which are parts of it drawn a second time."""
    found = []
    for page in run("pdftotext", "-bbox", *options, path, "-").decode("utf-8", "replace").split("<page ")[1:]:
        words = [(*map(float, box), html.unescape(text)) for *box, text in re.findall(
            r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>', page)]
        words.sort(key=lambda word: word[1])
        for i, (left, top, right, bottom, text) in enumerate(words):
            if not _letters(text):
                continue
            middle, share = (top + bottom) / 2, COVERED * (right - left)
            near = itertools.chain(itertools.takewhile(lambda other: other[1] <= middle, words[i + 1:]),
                                   itertools.takewhile(lambda other: top - other[1] < bottom - top, reversed(words[:i])))
            if any(min(right, other[2]) - max(left, other[0]) > share and other[3] > middle
                   and len(other[4]) > len(text) and _letters(text) in _letters(other[4]) for other in near):
                found.append(text)
    return found


def seen_words(path, split, *options):
    """The words of a PDF file as split() divides its text, and how many more words pdftotext gives: it repeats parts of
    words that are drawn twice to be bold ("120 120.0 0"), which nobody sees."""
    repeated = collections.Counter(word for text in _overprinted(path, *options) for word in split(text))
    words, more = [], 0
    for word in split(pdf_text(path, *options)):
        if repeated[word] > 0:
            repeated[word] -= 1
            more += 1
        else:
            words.append(word)
    return words, more


def pdf_pages(path, *options):
    return int(re.search(rb"Pages:\s+(\d+)", run("pdfinfo", *options, path)).group(1))


def back_to_pdf(path, folder):
    """The file as LibreOffice shows it, as a PDF file in the folder."""
    with tempfile.TemporaryDirectory() as profile:
        run("soffice", "-env:UserInstallation=file://" + profile, "--headless", "--convert-to", "pdf",
            "--outdir", folder, path)
    made = os.path.join(folder, os.path.splitext(os.path.basename(path))[0] + ".pdf")
    if not os.path.exists(made):
        raise AssertionError("LibreOffice cannot open " + path)
    return made


def _shown(element):
    """All elements below, without the second copy of each text box that exists for old readers."""
    for child in element:
        if child.tag != FALLBACK:
            yield child
            yield from _shown(child)


def _own_text(paragraph):
    """The text of a paragraph without that of text boxes inside it."""
    parts = []

    def walk(element):
        for child in element:
            if child.tag in (FALLBACK, W + "txbxContent"):
                continue
            if child.tag == W + "t":
                parts.append(child.text or "")
            elif child.tag in (W + "tab", W + "br", W + "cr"):
                parts.append(" ")
            walk(child)

    walk(paragraph)
    return "".join(parts)


def _pages_begun(section, number, elements):
    """How many pages begin in a section: its page breaks, and one more unless it continues in the middle of a page."""
    from docx.enum.section import WD_SECTION

    begins = number == 0 or section.start_type != WD_SECTION.CONTINUOUS
    breaks = sum(1 for element in elements for each in element.iter(W + "br") if each.get(W + "type") == "page")
    return begins + breaks + sum(1 for element in elements for _ in element.iter(W + "pageBreakBefore"))


def _is_heading(paragraph):
    style = paragraph.find(W + "pPr/" + W + "pStyle")
    return style is not None and style.get(W + "val").startswith(("Heading", "Title"))


def _is_upright_box(content):
    """Whether the text in a text box is upright. Rotated text has no other place in Word."""
    properties = content.getparent().getparent().find(WPS + "bodyPr")
    return properties is None or properties.get("vert", "horz") == "horz"


def _number_notes(body):
    """Writes the numbers that Word shows where the text refers to footnotes into the text; gives them for each id."""
    numbers = {}
    for reference in list(body.iter(W + "footnoteReference")):
        if reference.get(W + "customMarkFollows") is None:
            numbers[reference.get(W + "id")] = str(len(numbers) + 1)
            reference.tag, reference.text = W + "t", numbers[reference.get(W + "id")]
    return numbers


def _notes(path, numbers):
    """The texts of the footnotes, with their numbers."""
    with zipfile.ZipFile(path) as archive:
        if "word/footnotes.xml" not in archive.namelist():
            return []
        notes = ElementTree.fromstring(archive.read("word/footnotes.xml")).iter(W + "footnote")
        return [" ".join([numbers.get(note.get(W + "id"), "")] + [_own_text(each) for each in note.iter(W + "p")])
                for note in notes]


def _blocks(container):
    """The paragraphs, tables and section properties of the body, those within content controls included."""
    for element in container:
        if element.tag == W + "sdt":
            yield from _blocks(element.find(W + "sdtContent"))
        else:
            yield element


class WordFile:
    def __init__(self, path):
        import docx

        document = docx.Document(path)
        body = document.element.body
        self.notes = _notes(path, _number_notes(body))
        self.paragraphs = [_own_text(each) for each in _shown(body) if each.tag == W + "p"]
        # Headings are no sentences; they have a style of their own.
        self.sentences = [_own_text(each) for each in _shown(body) if each.tag == W + "p" and not _is_heading(each)]
        self.sentences += self.notes
        self.text_boxes = sum(1 for each in _shown(body) if each.tag == W + "txbxContent" and _is_upright_box(each))
        self.framed = sum(1 for each in _shown(body) if each.tag == W + "framePr")
        self.tables = len(document.tables)
        self.heads = []
        sections, open_section = [], []
        for element in _blocks(body):
            open_section.append(element)
            if element.tag == W + "sectPr" or element.find(W + "pPr/" + W + "sectPr") is not None:
                sections.append(open_section)
                open_section = []
        sides = document.settings.odd_and_even_pages_header_footer
        page = 0
        for number, (section, elements) in enumerate(zip(document.sections, sections)):
            first = section._sectPr.find(W + "pgNumType")
            if first is not None and first.get(W + "start"):
                page = int(first.get(W + "start")) - 1
            # A header or footer is shown on every page that begins in its section, or on the left or right ones of them.
            parts = {False: (section.header, section.footer)}
            parts[True] = (section.even_page_header, section.even_page_footer) if sides else parts[False]
            for _ in range(_pages_begun(section, number, elements)):
                page += 1
                for part in parts[page % 2 == 0]:
                    self.heads += [_own_text(each) for each in part._element.iter(W + "p")]
        self.page_sizes = [(each.page_width.pt, each.page_height.pt) for each in document.sections]

    def text(self):
        return "\n".join(self.paragraphs + self.heads + self.notes)


def slide_texts(path):
    """The text of each slide."""
    with zipfile.ZipFile(path) as archive:
        names = sorted((n for n in archive.namelist() if re.fullmatch(r"ppt/slides/slide\d+\.xml", n)),
                       key=lambda n: int(re.search(r"\d+", n).group()))
        slides = []
        for name in names:
            root = ElementTree.fromstring(archive.read(name))
            paragraphs = ("".join(t.text or "" if t.tag == A + "t" else " " for t in p.iter() if t.tag in (A + "t", A + "br"))
                          for p in root.iter(A + "p"))
            slides.append("\n".join(paragraphs))
        return slides


def sheet_tables(path):
    """Each sheet's cells: (row, column, last row, last column, text as shown, value)."""
    import openpyxl

    sheets = []
    for sheet in openpyxl.load_workbook(path).worksheets:
        spans = {(r.min_row, r.min_col): (r.max_row, r.max_col) for r in sheet.merged_cells.ranges}
        cells = []
        for row in sheet.iter_rows():
            for cell in row:
                if cell.value is not None:
                    last = spans.get((cell.row, cell.column), (cell.row, cell.column))
                    cells.append((cell.row, cell.column, last[0], last[1], shown(cell), cell.value))
        sheets.append(cells)
    return sheets


def first_scrolling_text(path):
    """The text of the first cell below the frozen rows of the first sheet, None if no rows are frozen."""
    import openpyxl

    sheet = openpyxl.load_workbook(path).worksheets[0]
    return sheet[sheet.freeze_panes].value if sheet.freeze_panes else None


def sheet_text(path):
    """All that is in the cells, as shown."""
    return "\n".join(cell[4] for sheet in sheet_tables(path) for cell in sheet)


def shown_moment(value, form):
    """A date or time in a number format; names in English, whatever the language of the format."""
    form = re.sub(r"\[[^\]]*\]", "", form)
    directives = {"yyyy": "%Y", "yy": "%y", "mmmm": "%B", "mmm": "%b", "dddd": "%A", "ddd": "%a", "hh": "%H", "h": "%-H",
                  "dd": "%d", "d": "%-d", "ss": "%S", "AM/PM": "%p"}
    if "AM/PM" in form:
        directives.update({"hh": "%I", "h": "%-I"})
    parts = []
    for text, part in re.findall(r'"([^"]*)"|(\\.|AM/PM|y+|m+|d+|h+|s+|.)', form):
        if part in ("m", "mm"):
            minutes = any(each in ("%H", "%-H", "%I", "%-I") for each in parts[-2:])
            part = ("%M" if minutes else "%m") if part == "mm" else "%-M" if minutes else "%-m"
        parts.append(text or directives.get(part, part.lstrip("\\")))
    return value.strftime("".join(parts))


def shown(cell):
    """The cell's text as its number format shows it, for the formats that the engine writes."""
    value, form = cell.value, cell.number_format or "General"
    if isinstance(value, str) or isinstance(value, bool):
        return str(value)
    if isinstance(value, datetime.timedelta):
        value = (datetime.datetime.min + value).time()
    if isinstance(value, (datetime.date, datetime.time)):
        return shown_moment(value, form)
    negative_part = form.split(";")[1] if value < 0 and ";" in form else None
    sections = ";" in form
    if sections:
        parts = form.split(";")
        # "[>=0]a;b" names the condition, "a;b" does not
        form = next((p for p in parts if (">=0" in p) == (value >= 0)), parts[0]) if "[" in form else (
            negative_part or parts[0])
    form = re.sub(r"\[[^\]]*\]", "", form)
    if "%" in form:
        value *= 100
    match = re.search(r"[#0][#0,]*(\.0+)?", form)
    if not match:
        return ("%g" % value)
    decimals = len(match.group(1) or ".") - 1
    negative = value < 0 and not sections
    number = ("{:,.%df}" if "," in match.group() else "{:.%df}").replace("%d", str(decimals)).format(abs(value))
    literal = lambda part: re.sub(r"[\"\\_]", "", part)
    return ("-" if negative else "") + literal(form[:match.start()]) + number + literal(form[match.end():])


class _TextOfHtml(html.parser.HTMLParser):
    """body: the text of the pages; edges: that of page headers and footers; numbers: those of the pages."""
    BLOCKS = {"p", "h1", "h2", "h3", "h4", "h5", "h6", "li", "td", "th", "div", "br", "tr", "pre", "figcaption"}
    LEFT_OUT = ("style", "script", "title", "nav")  # the outline is not on the pages

    def __init__(self):
        super().__init__()
        self.body, self.edges, self.numbers = [], [], []
        self.skipped = 0
        self.in_edge = False

    def _end_block(self, tag):
        if tag in self.BLOCKS:
            self.handle_data("\n")

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        unseen = tag == "h1" and attributes.get("class") == "unseen"
        self.skipped += tag in self.LEFT_OUT or unseen
        self.in_edge = self.in_edge or tag in ("header", "footer")
        if attributes.get("role") == "doc-pagebreak":
            self.numbers.append(attributes["title"])
        self._end_block(tag)

    def handle_endtag(self, tag):
        self.skipped -= tag in self.LEFT_OUT or (tag == "h1" and self.skipped > 0)
        self.in_edge = self.in_edge and tag not in ("header", "footer")
        self._end_block(tag)

    def handle_data(self, data):
        if not self.skipped:
            (self.edges if self.in_edge else self.body).append(data)


HtmlText = collections.namedtuple("HtmlText", "body edges numbers")


def html_text(path):
    """The texts of the pages, of page headers and footers (written once), and of page numbers (between the pages)."""
    reader = _TextOfHtml()
    with open(path, encoding="utf-8") as file:
        reader.feed(file.read())
    return HtmlText(*("".join(each) for each in (reader.body, reader.edges)), "\n".join(reader.numbers))


def add_edges(found, wanted, edges, numbers, pages):
    """Adds the words of page headers and footers to the Counter of words found: as often as they are wanted, but at most
    once a page; and page numbers, if they are wanted."""
    missing = wanted - found
    for word, count in collections.Counter(edges).items():
        found[word] += max(count, min(missing[word], count * pages))
    for number in numbers:
        found[number] += min(1, (wanted - found)[number])


def html_words(path, wanted, split):
    """The words of an HTML output as a Counter; those of page headers and page numbers as often as they are wanted, but at
    most once a page. `split` divides a text into words."""
    text = html_text(path)
    found = collections.Counter(split(text.body))
    pages = max(1, len(text.numbers.splitlines()))
    add_edges(found, collections.Counter(wanted), split(text.edges), split(text.numbers), pages)
    return found


def xml_words(path):
    """The text of the plain XML format: its leaves, one word each."""
    root = ElementTree.parse(path).getroot()
    return " ".join(each.text for each in root.iter() if len(each) == 0 and each.text)
