# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads a .pptx file: titles, list items, tables, paragraphs and pictures of each slide that is shown."""
import text_match
from package import Package

TITLES = ("title", "ctrTitle")
NOT_CONTENT = ("sldNum", "dt")
BULLETS = ("buChar", "buAutoNum", "buBlip")
PICTURES = ("blip", "chart", "relIds")


class Slide:
    """title       paragraphs of the title
    paragraphs  all, in order
    items       (text, level) of list items
    tables      for table_score.relations
    pictures    shapes that are pictures
    drawn       those, the charts and the backgrounds, also of the layout and the master: a page shows all of them
    """

    def __init__(self):
        self.title, self.paragraphs, self.items, self.tables = [], [], [], []
        self.pictures = self.drawn = 0

    def words(self):
        return [word for each in self.paragraphs for word in text_match.words(each)]


def paragraph_text(paragraph):
    return text_match.normalised("".join((each.text or "") if each.tag == "t" else " "
                                         for each in paragraph.iter() if each.tag in ("t", "br")))


def kind_of(placeholder):
    return None if placeholder is None else placeholder.get("type", "body")


class SlideFacts(Package):
    """slides: those that are not hidden, in order."""

    def __init__(self, path):
        super().__init__(path)
        main = self.main_part()
        self.slides = []
        for each in self.part(main).iter("sldId"):
            name = self.target(main, each.get("r:id"))
            if self.part(name).get("show") in ("0", "false"):
                continue
            layout = self.first_of_kind(name, "slideLayout")
            parts = [self.part(part) for part in (name, layout, self.first_of_kind(layout, "slideMaster"))]
            slide = Slide()
            self._read_shapes(parts[0].find("cSld/spTree"), slide, parts)
            drawn = sum(1 for part in parts for element in part.iter() if element.tag in PICTURES)
            slide.drawn = max(slide.pictures, drawn)
            self.slides.append(slide)

    def _read_shapes(self, tree, slide, parts):
        for shape in tree if tree is not None else []:
            if shape.tag in ("grpSp", "AlternateContent", "Choice"):
                self._read_shapes(shape, slide, parts)
            elif shape.tag == "pic":
                slide.pictures += 1
            elif shape.tag == "graphicFrame":
                for table in shape.iter("tbl"):
                    self._read_table(table, slide)
            elif shape.tag == "sp" and shape.find("txBody") is not None:
                self._read_text(shape, slide, parts)

    def _read_text(self, shape, slide, parts):
        placeholder = shape.find("nvSpPr/nvPr/ph")
        kind = kind_of(placeholder)
        if kind in NOT_CONTENT:
            return
        for paragraph in shape.find("txBody").findall("p"):
            text = paragraph_text(paragraph)
            if not text:
                continue
            slide.paragraphs.append(text)
            own = paragraph.find("pPr")
            level = int(own.get("lvl", 0)) if own is not None else 0
            if kind in TITLES:
                slide.title.append(text)
            elif self._has_bullet(shape, own, level, placeholder, parts):
                slide.items.append((text_match.without_label(text), level))

    def _has_bullet(self, shape, own, level, placeholder, parts):
        """Looks at the paragraph itself, then at its shape, the placeholder of layout and master, and the master's style."""
        name = "lvl%dpPr" % (level + 1)
        places = [own, shape.find("txBody/lstStyle/" + name)]
        _, layout, master = parts
        kind = kind_of(placeholder)
        if placeholder is not None:
            for part in (layout, master):
                places.append(self._inherited(part, placeholder, part is layout, name))
        style = "otherStyle" if kind in (None, "ftr") else "titleStyle" if kind in TITLES else "bodyStyle"
        places.append(master.find("txStyles/%s/%s" % (style, name)))
        for place in places:
            for said in place if place is not None else []:
                if said.tag == "buNone":
                    return False
                if said.tag in BULLETS:
                    return True
        return False

    @staticmethod
    def _inherited(part, placeholder, by_index, name):
        """The properties of the level in the first placeholder of that index or kind of a layout or master."""
        for shape in part.iter("sp"):
            other = shape.find("nvSpPr/nvPr/ph")
            if other is None:
                continue
            if by_index and placeholder.get("idx") is not None:
                same = other.get("idx") == placeholder.get("idx")
            else:
                same = kind_of(other) == kind_of(placeholder)
            if same:
                return shape.find("txBody/lstStyle/" + name)
        return None

    @staticmethod
    def _read_table(table, slide):
        cells = []
        for row, line in enumerate(table.findall("tr")):
            for column, cell in enumerate(line.findall("tc")):
                texts = [text for text in map(paragraph_text, cell.iter("p")) if text]
                slide.paragraphs += texts
                if texts and not cell.get("hMerge") and not cell.get("vMerge"):
                    cells.append((row, column, row + int(cell.get("rowSpan", 1)) - 1,
                                  column + int(cell.get("gridSpan", 1)) - 1, "".join(map(text_match.squeezed, texts))))
        slide.tables.append(cells)
