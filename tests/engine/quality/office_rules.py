# SPDX-License-Identifier: GPL-3.0-or-later
"""Checks .docx, .xlsx and .pptx files against a stated subset of the rules of ECMA-376.

Packages (Part 2): no part twice; every part has a content type and is related to the package; every relationship and
every override of a type has its part; identities of relationships are unique, and those that a part uses exist.
Documents (Part 1): the tables and functions below, one rule each.

Not reported, because LibreOffice writes it, the usual programs read it, and nothing in the engine decides it: a
section's properties at the beginning of a paragraph's, and a shape of a slide master with the number of the tree of
shapes. The second form of a drawing, for programs that do not know the first, repeats the first and is not read.

    office_rules.py FILE...     prints the violations; the exit status is 1 if there are any
"""
import collections
import posixpath
import re
import sys
import xml.etree.ElementTree as ElementTree
import zipfile

import package

CONTENT_TYPES = "[Content_Types].xml"

# The order of children where the schema gives one and programs refuse others. Children that are not listed here may
# be anywhere.
WORD_ORDER = {
    "p": ("pPr",),
    "r": ("rPr",),
    "tbl": ("tblPr", "tblGrid", "tr"),
    "tr": ("tblPrEx", "trPr", "tc"),
    "tc": ("tcPr",),
}
WORD_PROPERTIES = {
    "pPr": ("pStyle", "keepNext", "keepLines", "pageBreakBefore", "framePr", "widowControl", "numPr", "suppressLineNumbers",
            "pBdr", "shd", "tabs", "suppressAutoHyphens", "bidi", "spacing", "ind", "contextualSpacing", "jc",
            "textDirection", "textAlignment", "outlineLvl", "rPr", "pPrChange"),
    "tcPr": ("cnfStyle", "tcW", "gridSpan", "hMerge", "vMerge", "tcBorders", "shd", "noWrap", "tcMar", "textDirection",
             "tcFitText", "vAlign", "hideMark"),
}
SHEET_ORDER = {
    "worksheet": ("sheetPr", "dimension", "sheetViews", "sheetFormatPr", "cols", "sheetData", "sheetCalcPr",
                  "sheetProtection", "protectedRanges", "scenarios", "autoFilter", "sortState", "dataConsolidate",
                  "customSheetViews", "mergeCells", "phoneticPr", "conditionalFormatting", "dataValidations", "hyperlinks",
                  "printOptions", "pageMargins", "pageSetup", "headerFooter", "rowBreaks", "colBreaks", "customProperties",
                  "cellWatches", "ignoredErrors", "smartTags", "drawing", "legacyDrawing", "tableParts", "extLst"),
}
SLIDE_ORDER = {
    "txBody": ("bodyPr", "lstStyle", "p"),
    "sp": ("nvSpPr", "spPr", "style", "txBody"),
    "pic": ("nvPicPr", "blipFill", "spPr", "style"),
    "tbl": ("tblPr", "tblGrid", "tr"),
    "tc": ("txBody", "tcPr"),
}
LARGEST_LIST_LEVEL = 8
LONGEST_BOOKMARK = 40  # characters
LONGEST_SHEET_NAME = 31  # characters
LONGEST_CELL = 32767  # characters
SMALLEST_SLIDE = 256
SMALLEST_MASTER = 2 ** 31


def check_package(path):
    """What is wrong with the container: its parts, types and relationships."""
    with zipfile.ZipFile(path) as archive:
        if archive.testzip():
            yield "damaged: " + archive.testzip()
        names = [name for name in archive.namelist() if not name.endswith("/")]
        for name, number in collections.Counter(name.lower() for name in names).items():
            if number > 1:
                yield "part twice: " + name
        trees = {}
        for name in names:
            if name.endswith((".xml", ".rels")):
                try:
                    trees[name] = ElementTree.fromstring(archive.read(name))
                except ElementTree.ParseError as error:
                    yield "not well-formed: %s: %s" % (name, error)
    types = trees.get(CONTENT_TYPES)
    if types is None:
        yield "no content types"
        return
    overrides = [each.get("PartName", "").lstrip("/") for each in types if each.tag.endswith("}Override")]
    defaults = {each.get("Extension", "").lower() for each in types if each.tag.endswith("}Default")}
    yield from ("type twice: " + name for name, number in collections.Counter(overrides).items() if number > 1)
    yield from ("type without part: " + name for name in overrides if name not in names)
    parts = [name for name in names if name != CONTENT_TYPES]
    yield from ("part without type: " + name for name in parts
                if name not in overrides and name.rpartition(".")[2].lower() not in defaults)
    yield from check_relationships(parts, trees)


def check_relationships(parts, trees):
    reached = set()
    for name in parts:
        folder, file = posixpath.split(name)
        if not name.endswith(".rels"):
            yield from check_used_relationships(name, trees)
            continue
        source = posixpath.normpath(posixpath.join(folder, "..", file[:-len(".rels")]))
        if name != "_rels/.rels" and source not in parts:
            yield "relationships of no part: " + name
        seen = set()
        for each in trees.get(name, ()):
            if each.get("Id") in seen:
                yield "relationship twice: %s in %s" % (each.get("Id"), name)
            seen.add(each.get("Id"))
            if each.get("TargetMode") == "External":
                continue
            target = posixpath.normpath(posixpath.join("/", posixpath.dirname(source), each.get("Target", ""))).lstrip("/")
            reached.add(target)
            if target not in parts:
                yield "relationship without part: %s in %s" % (target, name)
    yield from ("part without relationship: " + name for name in parts if not name.endswith(".rels") and name not in reached)


def check_used_relationships(name, trees):
    folder, file = posixpath.split(name)
    known = {each.get("Id") for each in trees.get(posixpath.join(folder, "_rels", file + ".rels"), ())}
    for element in trees[name].iter() if name in trees else ():
        for attribute, text in element.attrib.items():
            if attribute.startswith(package.RELATIONSHIPS) and text and text not in known:
                yield "unknown relationship: %s in %s" % (text, name)


def check_order(name, root, orders):
    """Known children stand in the schema's order."""
    for element in root.iter():
        order = orders.get(element.tag)
        if order is None:
            continue
        places = [order.index(child.tag) for child in element if child.tag in order]
        if places != sorted(places):
            yield "order of <%s> in %s: %s" % (element.tag, name, " ".join(child.tag for child in element))
        elif len(order) == 1 and places and element[0].tag != order[0]:
            yield "<%s> is not first in <%s>: %s" % (order[0], element.tag, name)


def without_fallbacks(root):
    """Removes the second forms of drawings."""
    for parent in list(root.iter("AlternateContent")):
        for fallback in parent.findall("Fallback"):
            parent.remove(fallback)
    return root


def duplicates(values):
    return [each for each, number in collections.Counter(values).items() if number > 1]


def check_word(file):
    main = file.main_part()
    related = file.related(main)
    styles = {(each.get("type"), each.get("styleId"))
              for each in file.part(file.first_of_kind(main, "styles")).iter("style")}
    numbering = file.part(file.first_of_kind(main, "numbering"))
    abstract = {each.get("abstractNumId") for each in numbering.findall("abstractNum")}
    lists = {each.get("numId"): package.value(each, "abstractNumId") for each in numbering.findall("num")}
    yield from ("list without levels: " + number for number, definition in lists.items() if definition not in abstract)
    notes = {kind: {each.get("id") for each in file.part(file.first_of_kind(main, kind + "s")).findall(kind)}
             for kind in ("footnote", "endnote", "comment")}
    without_fallbacks(file.part(main))
    texts = [main] + [target for kind, target in related.values() if kind in ("header", "footer", "footnotes", "endnotes")]
    marks = [mark.get("name") for name in texts for mark in file.part(name).iter("bookmarkStart")]
    yield from ("bookmark twice: " + name for name in duplicates(marks))
    yield from ("long bookmark: " + name for name in marks if len(name) > LONGEST_BOOKMARK)
    for name in texts:
        root = file.part(name)
        yield from check_order(name, root, {**WORD_ORDER, **WORD_PROPERTIES})
        for tag, kind in (("pStyle", "paragraph"), ("rStyle", "character"), ("tblStyle", "table")):
            yield from ("unknown style: %s in %s" % (each.get("val"), name) for each in root.iter(tag)
                        if (kind, each.get("val")) not in styles)
        for each in root.iter("numPr"):
            number, level = package.value(each, "numId"), package.value(each, "ilvl")
            if number not in (None, "0") and number not in lists:
                yield "unknown list: %s in %s" % (number, name)
            if level is not None and not 0 <= int(level) <= LARGEST_LIST_LEVEL:
                yield "list level: %s in %s" % (level, name)
        for kind, known in notes.items():
            yield from ("unknown %s: %s" % (kind, each.get("id")) for each in root.iter(kind + "Reference")
                        if each.get("id") not in known)
        yield from ("link to no bookmark: %s" % each.get("anchor") for each in root.iter("hyperlink")
                    if each.get("anchor") and each.get("anchor") not in marks)
        begun = [each.get("id") for each in root.iter("bookmarkStart")]
        ended = [each.get("id") for each in root.iter("bookmarkEnd")]
        if sorted(begun) != sorted(ended) or duplicates(begun):
            yield "bookmarks do not begin and end in pairs: " + name
        yield from ("drawing twice: %s in %s" % (each, name)
                    for each in duplicates(each.get("id") for each in root.iter("docPr")))
        yield from check_fields(name, root)
        yield from check_word_tables(name, root)
    body = file.part(main).find("body")
    if body is None or len(body) == 0 or body[-1].tag != "sectPr":
        yield "the body does not end with its section"


def check_fields(name, root):
    """Fields are nested properly: begin, separate at most once, end."""
    open_fields = []
    for each in root.iter("fldChar"):
        kind = each.get("fldCharType")
        if kind == "begin":
            open_fields.append(False)
        elif not open_fields or (kind == "separate" and open_fields[-1]):
            yield "field without beginning in " + name
            return
        elif kind == "separate":
            open_fields[-1] = True
        else:
            open_fields.pop()
    if open_fields:
        yield "field without end in " + name


def check_word_tables(name, root):
    for table in root.iter("tbl"):
        columns = len(table.findall("tblGrid/gridCol"))
        for row in table.findall("tr"):
            spans = [package.value(cell, "tcPr/gridSpan") or 1 for cell in row.findall("tc")]
            spans += [package.value(row, "trPr/" + side) or 0 for side in ("gridBefore", "gridAfter")]
            if sum(int(span) for span in spans) > columns:
                yield "row wider than its table in " + name
            if not row.findall("tc"):
                yield "row without cells in " + name
    for cell in root.iter("tc"):
        if len(cell) == 0 or cell[-1].tag != "p":
            yield "cell that does not end with a paragraph in " + name


def column_of(letters):
    number = 0
    for letter in letters:
        number = number * 26 + ord(letter) - ord("A") + 1
    return number


def range_of(reference):
    """The first column, first row, last column and last row of "B2:C5"."""
    corners = [re.fullmatch(r"\$?([A-Z]+)\$?(\d+)", corner) for corner in reference.split(":")]
    places = [(column_of(corner[1]), int(corner[2])) for corner in corners]
    return (*places[0], *places[-1])


def overlap(one, other):
    return one[0] <= other[2] and other[0] <= one[2] and one[1] <= other[3] and other[1] <= one[3]


def check_workbook(file):
    main = file.main_part()
    sheets = file.part(main).findall("sheets/sheet")
    names = [each.get("name", "") for each in sheets]
    yield from ("sheet twice: " + name for name in duplicates(name.lower() for name in names))
    yield from ("sheet number twice: " + each for each in duplicates(each.get("sheetId") for each in sheets))
    for name in names:
        if not 0 < len(name) <= LONGEST_SHEET_NAME or re.search(r"[\[\]:*?/\\]|^'|'$", name):
            yield "name of a sheet: " + name
    shared = file.part(file.first_of_kind(main, "sharedStrings"))
    strings = len(shared.findall("si"))
    yield from ("cell of %d characters" % len(text) for text in map(lambda si: "".join(si.itertext()), shared.findall("si"))
                if len(text) > LONGEST_CELL)
    formats = len(file.part(file.first_of_kind(main, "styles")).findall("cellXfs/xf"))
    for sheet in sheets:
        name = file.target(main, sheet.get("r:id"))
        root = file.part(name)
        if root.tag != "worksheet":
            yield "no worksheet: " + name
            continue
        yield from check_order(name, root, SHEET_ORDER)
        yield from check_cells(name, root, strings, formats)
        merged = [range_of(each.get("ref")) for each in root.iter("mergeCell")]
        yield from ("merged cells overlap in " + name for index, one in enumerate(merged)
                    for other in merged[:index] if overlap(one, other))
        columns = [(int(each.get("min")), int(each.get("max"))) for each in root.findall("cols/col")]
        if any(last >= following for (_, last), (following, _) in zip(columns, columns[1:])):
            yield "columns overlap in " + name


def check_cells(name, root, strings, formats):
    before = 0
    for row in root.findall("sheetData/row"):
        number = int(row.get("r"))
        if number <= before:
            yield "order of rows in " + name
        before = number
        last = 0
        for cell in row.findall("c"):
            column, cell_row, _, _ = range_of(cell.get("r"))
            if cell_row != number or column <= last:
                yield "place of cell %s in %s" % (cell.get("r"), name)
            last = column
            if int(cell.get("s", "0")) >= formats:
                yield "format of cell %s in %s" % (cell.get("r"), name)
            if cell.get("t") == "s" and int(cell.findtext("v", "-1")) not in range(strings):
                yield "text of cell %s in %s" % (cell.get("r"), name)
            if cell.get("t", "n") == "n" and cell.find("v") is not None:
                try:
                    float(cell.findtext("v"))
                except ValueError:
                    yield "number of cell %s in %s" % (cell.get("r"), name)


def check_slides(file):
    main = file.main_part()
    slides = file.part(main).findall("sldIdLst/sldId")
    masters = file.part(main).findall("sldMasterIdLst/sldMasterId")
    for entries, least in ((slides, SMALLEST_SLIDE), (masters, SMALLEST_MASTER)):
        identities = [int(each.get("id")) for each in entries]
        yield from ("identity twice: %d" % each for each in duplicates(identities))
        yield from ("identity below %d: %d" % (least, each) for each in identities if each < least)
    for slide in slides:
        name = file.target(main, slide.get("r:id"))
        layout = file.first_of_kind(name, "slideLayout")
        if not layout or not file.first_of_kind(layout, "slideMaster"):
            yield "slide without layout or master: " + name
    for name in [file.target(main, each.get("r:id")) for each in slides + masters]:
        root = file.part(name)
        yield from check_order(name, root, SLIDE_ORDER)
        if root.tag == "sld":
            identities = [each.get("id") for each in root.iter("cNvPr")]
            yield from ("shape twice: %s in %s" % (each, name) for each in duplicates(identities))
        yield from ("text without paragraph in " + name for each in root.iter("txBody") if each.find("p") is None)
        for paragraph in root.iter("p"):
            tags = [child.tag for child in paragraph]
            if "pPr" in tags[1:] or "endParaRPr" in tags[:-1]:
                yield "order of <p> in %s: %s" % (name, " ".join(tags))
        for table in root.iter("tbl"):
            columns = len(table.findall("tblGrid/gridCol"))
            yield from ("row of %d cells in %d columns in %s" % (len(row.findall("tc")), columns, name)
                        for row in table.findall("tr") if len(row.findall("tc")) != columns)


CHECKS = {"document": check_word, "workbook": check_workbook, "presentation": check_slides}


def violations(path):
    """The rules that a file breaks, one line of text each."""
    found = list(check_package(path))
    if found:
        return found
    file = package.Package(path)
    kind = file.part(file.main_part()).tag
    return list(CHECKS[kind](file)) if kind in CHECKS else ["no office document: " + kind]


def main():
    broken = False
    for path in sys.argv[1:]:
        for line in violations(path):
            broken = True
            print("%s: %s" % (path, line))
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
