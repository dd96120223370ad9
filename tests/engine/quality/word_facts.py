# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads a .docx file: paragraphs with their styles, headings, list items, tables, notes, headers and footers."""
import collections
import re
import unicodedata

import text_match
from numbering import Numbering
from package import Package, first_said, switch, value

# What only wraps content.
WRAPPERS = ("sdt", "sdtContent", "customXml", "ins", "moveTo", "smartTag")
NOT_SHOWN = ("del", "moveFrom", "pPr", "rPr", "sdtPr", "Fallback")
HOLDS_BOXES = ("drawing", "pict", "object", "AlternateContent")
RIGHT_TO_LEFT = re.compile("[\u0590-\u08ff]")
EAST_ASIAN = re.compile("[%s]" % text_match.UNSPACED)
HYPERLINK = re.compile(r'\s*HYPERLINK\s+"([^"]+)"')
PAGE_FIELD = re.compile(r"\bPAGE\b")


class Paragraph:
    """runs   (text, (bold, italic, underlined)) one after the other
    level  of a heading, from 1, or None
    item   (kind, level) of a list item, or None
    label  the number that the application shows before a numbered paragraph, or ""
    cell   whether it is in a table
    """

    def __init__(self, level, item, label, cell):
        self.level, self.item, self.label, self.cell = level, item, label, cell
        self.runs = []

    @property
    def text(self):
        return "".join(text for text, _ in self.runs)


def contents(element, *tags):
    """The children of these kinds, also where something is wrapped around them."""
    for child in element:
        if child.tag in tags:
            yield child
        elif child.tag in WRAPPERS:
            yield from contents(child, *tags)


class WordFacts(Package):
    """paragraphs  in order, also those of tables and text boxes, without those that are empty
    tables      for table_score.relations: lists of (row, column, last row, last column, text)
    links       addresses
    hidden      text that is not shown, such as that of a page shown as a picture
    notes       texts of footnotes and endnotes that the text refers to
    heads       distinct texts of headers and footers, without digits
    head_texts  the same with their digits
    page_field  whether one of them holds the page's number as a field
    language    the language of most characters, as its first two letters
    """

    def __init__(self, path):
        super().__init__(path)
        main = self.main_part()
        self._main = main
        styles = self.part(self.first_of_kind(main, "styles"))
        self._styles = {each.get("styleId"): each for each in styles.iter("style")}
        self._defaults = styles.find("docDefaults/rPrDefault/rPr")
        self._normal = next((name for name, each in self._styles.items()
                             if each.get("type") == "paragraph" and each.get("default") in ("1", "true")), None)
        self._numbering = Numbering(self.part(self.first_of_kind(main, "numbering")), self._styles)
        self._languages = collections.Counter()
        self._note_marks = set()
        self._tables_open = 0
        self.paragraphs, self.tables, self.links, self.hidden = [], [], set(), []
        for body in self.part(main).findall("body"):
            self._read_blocks(body)
        self.paragraphs = [each for each in self.paragraphs if text_match.normalised(each.text)]
        self.notes = list(self._read_notes())
        self._read_heads()
        most = self._languages.most_common(1)
        self.language = most[0][0].lower()[:2] if most else ""

    def words(self):
        """The words with their styles, and the positions of the last word of each paragraph."""
        found, styles, ends = [], [], set()
        for paragraph in self.paragraphs:
            characters = [(each, style) for text, style in paragraph.runs for shown in text
                          for each in unicodedata.normalize("NFKC", text_match.INVISIBLE.sub("", shown))]
            for match in text_match.WORD.finditer("".join(each for each, _ in characters)):
                found.append(match.group())
                styles.append(characters[match.start()][1])
            if found:
                ends.add(len(found) - 1)
        return found, styles, ends

    def headings(self):
        return [(text_match.without_label(each.text), each.level) for each in self.paragraphs if each.level]

    def list_items(self):
        """(text, (kind, level)); levels count from the outermost of neighbouring items."""
        items, run = [], []
        for paragraph in self.paragraphs + [None]:
            if paragraph and paragraph.item and not paragraph.level:
                run.append(paragraph)
                continue
            outermost = min((each.item[1] for each in run), default=0)
            items += [(text_match.without_label(each.text), (each.item[0], each.item[1] - outermost)) for each in run]
            run = []
        return items

    # ---- styles

    def _chain(self, style):
        """A style and those that it is based on."""
        seen = set()
        while style in self._styles and style not in seen:
            seen.add(style)
            yield self._styles[style]
            style = value(self._styles[style], "basedOn")

    def _run_properties(self, own, paragraph_style):
        """All elements that define the look of a run, the nearest first."""
        places = [own]
        for style in (value(own, "rStyle"), paragraph_style):
            places += [each.find("rPr") for each in self._chain(style)]
        return [each for each in places + [self._defaults] if each is not None]

    def _paragraph_properties(self, own, style):
        return [each for each in [own] + [each.find("pPr") for each in self._chain(style)] if each is not None]

    def _heading_level(self, own, style):
        said = value(own, "outlineLvl")
        if said is not None:
            return int(said) + 1 if int(said) < 9 else None
        for each in self._chain(style):
            name = re.fullmatch(r"heading (\d)", (value(each, "name") or "").lower())
            if name:
                return int(name.group(1))
            said = value(each, "pPr/outlineLvl")
            if said is not None:
                return int(said) + 1 if int(said) < 9 else None
        return None

    def _list_item(self, own, style):
        """((kind, level) or None, label)"""
        places = self._paragraph_properties(own, style)
        identity = first_said(value(each, "numPr/numId") for each in places)
        if self._numbering.levels(identity) is None:
            return None, ""
        level = first_said(value(each, "numPr/ilvl") for each in places)
        if level is None:
            level = self._numbering.level_of_style(identity, style)
        kind = self._numbering.kind(identity, level)
        label = self._numbering.next_label(identity, level) if kind == "number" else ""
        return (kind, int(level)) if kind else None, label

    # ---- content

    def _read_blocks(self, element):
        for child in contents(element, "p", "tbl"):
            if child.tag == "p":
                self._read_paragraph(child)
            else:
                self._read_table(child)

    def _read_table(self, table):
        cells, above = [], {}
        self._tables_open += 1
        for row, line in enumerate(contents(table, "tr")):
            column = int(value(line, "trPr/gridBefore") or 0)
            for cell in contents(line, "tc"):
                first = len(self.paragraphs)
                self._read_blocks(cell)
                text = "".join(text_match.squeezed(each.text) for each in self.paragraphs[first:])
                last = column + int(value(cell, "tcPr/gridSpan") or 1) - 1
                merge = cell.find("tcPr/vMerge")
                upper = above.get(column)
                if merge is not None and merge.get("val") != "restart" and not text and upper:
                    upper[2] = row
                    place = upper
                else:
                    place = [row, column, row, last, text]
                    cells.append(place)
                for each in range(column, last + 1):
                    above[each] = place
                column = last + 1
        self._tables_open -= 1
        self.tables.append(cells)

    def _read_paragraph(self, element):
        own = element.find("pPr")
        style = value(own, "pStyle") or self._normal
        item, label = self._list_item(own, style)
        paragraph = Paragraph(self._heading_level(own, style), item, label, self._tables_open > 0)
        self.paragraphs.append(paragraph)
        boxes = []
        self._read_inline(element, paragraph, style, boxes, [])
        for box in boxes:
            self._read_boxes(box)

    def _read_boxes(self, element):
        for child in element:
            if child.tag == "txbxContent":
                self._read_blocks(child)
            elif child.tag != "Fallback":
                self._read_boxes(child)

    def _read_inline(self, element, paragraph, style, boxes, fields):
        for child in element:
            if child.tag == "r":
                self._read_run(child, paragraph, style, boxes, fields)
            elif child.tag == "t":  # of a formula
                paragraph.runs.append((child.text or "", (False, False, False)))
            elif child.tag not in NOT_SHOWN:
                if child.tag == "hyperlink":
                    self.links.add(self.target(self._main, child.get("r:id")) or "#")
                self._read_inline(child, paragraph, style, boxes, fields)

    def _read_run(self, run, paragraph, style, boxes, fields):
        text = ""
        for child in run:
            if child.tag == "t":
                text += child.text or ""
            elif child.tag in ("tab", "br", "cr", "ptab"):
                text += " "
            elif child.tag == "noBreakHyphen":
                text += "-"
            elif child.tag in ("footnoteReference", "endnoteReference"):
                self._note_marks.add((child.tag.replace("Reference", ""), child.get("id")))
            elif child.tag == "fldChar" and child.get("fldCharType") == "begin":
                fields.append("")
            elif child.tag == "fldChar" and child.get("fldCharType") == "end" and fields:
                fields.pop()
            elif child.tag == "instrText" and fields:
                fields[-1] += child.text or ""
                link = HYPERLINK.match(fields[-1])
                if link:
                    self.links.add(link.group(1))
            elif child.tag in HOLDS_BOXES:
                boxes.append(child)
        if not text:
            return
        places = self._run_properties(run.find("rPr"), style)
        script = "bidi" if RIGHT_TO_LEFT.search(text) else "eastAsia" if EAST_ASIAN.search(text) else "val"
        complex_script = "Cs" if script == "bidi" else ""
        bold, italic, underlined, hidden, capitals = (
            bool(first_said(switch(each, name) for each in places))
            for name in ("b" + complex_script, "i" + complex_script, "u", "vanish", "caps"))
        if hidden:
            self.hidden.append(text)
            return
        paragraph.runs.append((text.upper() if capitals else text, (bold, italic, underlined)))
        said = (each.find("lang") for each in places)
        self._languages[first_said(each.get(script) for each in said if each is not None) or ""] += len(text)

    def _read_notes(self):
        for kind in ("footnote", "endnote"):
            for note in self.part(self.first_of_kind(self._main, kind + "s")):
                if (kind, note.get("id")) in self._note_marks:
                    text = text_match.normalised(" ".join(each.text or "" for each in note.iter("t")))
                    text = re.sub(r"^\d+\s*", "", text)  # the note's own mark
                    if text:
                        yield text

    def _read_heads(self):
        self.heads, self.head_texts, self.page_field = [], [], False
        even = switch(self.part(self.first_of_kind(self._main, "settings")), "evenAndOddHeaders")
        for section in self.part(self._main).iter("sectPr"):
            for reference in section.findall("headerReference") + section.findall("footerReference"):
                kind = reference.get("type")
                if kind == "first" and not switch(section, "titlePg") or kind == "even" and not even:
                    continue
                self._read_head(self.part(self.target(self._main, reference.get("r:id"))))

    def _read_head(self, part):
        for paragraph in part.iter("p"):
            text = "".join(each.text or "" if each.tag == "t" else " " for each in paragraph.iter()
                           if each.tag in ("t", "tab", "br"))
            if text_match.normalised(text):
                self.head_texts.append(text_match.normalised(text))
            text = text_match.normalised(re.sub(r"\d+", " ", text))
            if text and text not in self.heads:
                self.heads.append(text)
        codes = [each.text or "" for each in part.iter("instrText")] + [each.get("instr", "") for each in part.iter("fldSimple")]
        self.page_field |= bool(PAGE_FIELD.search(" ".join(codes))) or part.find(".//pgNum") is not None
