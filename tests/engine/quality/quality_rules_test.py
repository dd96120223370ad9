# SPDX-License-Identifier: GPL-3.0-or-later
"""Unit tests of the modules in this folder: floors, halves, text comparison, numbering, round
trip, rules of office packages."""
import os
import sys
import tempfile
import unittest
import zipfile

sys.path[:0] = [os.path.dirname(os.path.abspath(__file__)), os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")]
import corpora
import floors
import numbering
import office_rules
import outputs
import round_trip
import sheet_facts
import slide_facts
import text_match
import word_facts


class Floors(unittest.TestCase):
    MEAN = ("words, recall", ".txt", "mean of opened")
    CLOSED = ("words, recall", ".txt", "mean of closed")
    ONE = ("words, recall", ".txt", "pdfs/one")
    COUNTS = {("documents", ".txt", "opened"): 2, ("documents", ".txt", "closed"): 1}

    def table(self, **values):
        rows = dict(self.COUNTS)
        rows.update({getattr(self, name): value for name, value in values.items()})
        return rows

    def fallen(self, table, measured, halves=("opened", "closed")):
        return [key for key, _, _ in floors.falls(table, measured, halves)]

    def test_mean_may_fall_a_little(self):
        table = self.table(MEAN=0.9)
        self.assertEqual(self.fallen(table, self.table(MEAN=0.895)), [])
        self.assertEqual(self.fallen(table, self.table(MEAN=0.8949)), [self.MEAN])

    def test_document_may_fall_more_than_a_mean(self):
        table = self.table(ONE=0.9)
        self.assertEqual(self.fallen(table, self.table(ONE=0.85)), [])
        self.assertEqual(self.fallen(table, self.table(ONE=0.8499)), [self.ONE])

    def test_mean_that_is_not_measured_fails(self):
        self.assertEqual(self.fallen(self.table(MEAN=0.9), self.table()), [self.MEAN])

    def test_document_that_is_not_at_hand_is_skipped(self):
        self.assertEqual(self.fallen(self.table(ONE=0.9), self.table()), [])

    def test_means_of_other_documents_are_not_compared(self):
        measured = self.table(MEAN=0.1, CLOSED=0.1)
        measured["documents", ".txt", "opened"] = 3
        self.assertEqual(self.fallen(self.table(MEAN=0.9, CLOSED=0.9), measured), [self.CLOSED])

    def test_half_that_was_not_asked_for_is_not_compared(self):
        self.assertEqual(self.fallen(self.table(MEAN=0.9, CLOSED=0.9), self.table(MEAN=0.9), ("opened",)), [])

    def test_floors_only_rise_unless_told_otherwise(self):
        table, measured = self.table(ONE=0.9, MEAN=0.5), self.table(ONE=0.8, MEAN=0.6)
        self.assertEqual(floors.raised(table, measured), self.table(ONE=0.9, MEAN=0.6))
        self.assertEqual(floors.raised(table, measured, lower=True), measured)

    def test_means_of_other_documents_replace_the_old_ones(self):
        measured = self.table(MEAN=0.4)
        measured["documents", ".txt", "opened"] = 3
        self.assertEqual(floors.raised(self.table(MEAN=0.9), measured), measured)

    def test_text_comes_back_with_values_never_rounded_up(self):
        text = floors.text_of(self.table(ONE=0.8999, MEAN=0.57), "why\nand how")
        self.assertEqual(floors.parse(text), self.table(ONE=0.899, MEAN=0.57))

    def test_line_that_is_no_row_is_refused(self):
        with self.assertRaises(ValueError):
            floors.parse("words\t.txt\tone\n")
        with self.assertRaises(ValueError):
            floors.parse("words\t.txt\tone\t0.5\nwords\t.txt\tone\t0.6\n")


class Halves(unittest.TestCase):
    def test_odd_lines_are_opened(self):
        with tempfile.TemporaryDirectory() as folder:
            path = corpora.pathlib.Path(folder)
            (path / "MANIFEST.tsv").write_text("folder\tfile\tshows\nreal\ta.pdf\tx\nhostile\tb.pdf\tx\n"
                                               "tables\tc.pdf\tuser password: two, RC4\n", encoding="utf-8")
            os.environ["QUORRA_PDF_CORPUS2"] = folder
            for name in ("QUORRA_PDF_CORPUS", "QUORRA_ROUNDTRIP"):
                os.environ.pop(name, None)
            found = corpora.documents()
            self.assertEqual([(each.name, each.half, each.options) for each in found],
                             [("real/a", "opened", ()), ("tables/c", "opened", ("-upw", "two"))])
            self.assertEqual(corpora.documents(("closed",)), [])


class Texts(unittest.TestCase):
    def test_words_without_spaces_are_characters(self):
        self.assertEqual(text_match.words("Figure 3.5: \ufb01ne soft\u00adhyphen 日本x"),
                         ["Figure", "3", "5", "fine", "softhyphen", "日", "本", "x"])

    def test_labels_are_no_text(self):
        for label in ("•", "1.", "(a)", "iv)", "2.3", "–"):
            self.assertEqual(text_match.without_label(label + "  Some text"), "Some text", label)
        self.assertEqual(text_match.without_label("A dog"), "A dog")

    def test_alignment_finds_moved_words(self):
        first, second = "a b c d e f g h".split(), "one two three four five six".split()
        order = text_match.Alignment(first + second, second + first)
        self.assertEqual(order.order, 6 / 10)
        self.assertEqual(order.pairs[0], 6)
        self.assertEqual(text_match.Alignment(first, first).order, 1)
        self.assertEqual(text_match.Alignment(first, ["x"] * 8).order, 0)
        self.assertIsNone(text_match.Alignment(["a"], ["b"]).order)

    def test_alignment_joins_words_between_anchors(self):
        pairs = text_match.Alignment("a b c x y a b d e f".split(), "a b c y z a b d e f".split()).pairs
        self.assertEqual((pairs[4], pairs[9]), (3, 9))
        self.assertNotIn(3, pairs)

    def test_same_texts_are_joined_in_order(self):
        self.assertEqual(text_match.pairs_in_order([("a", 1), ("a", 2), ("b", 3)], [("a", 4), ("b", 5), ("a", 6)]),
                         [(1, 4), (2, 6), (3, 5)])


def package_of(folder, parts):
    """A zipped office file of these parts: {name: text}."""
    path = os.path.join(folder, "file.zip")
    with zipfile.ZipFile(path, "w") as archive:
        for name, text in parts.items():
            archive.writestr(name, text)
    return path


RELATIONS = '<R xmlns="x">%s</R>'
RELATION = '<Relationship Id="%s" Type="t/%s" Target="%s"/>'
NUMBERING = """<w:numbering xmlns:w="w">
  <w:abstractNum w:abstractNumId="0">
    <w:lvl w:ilvl="0"><w:start w:val="3"/><w:numFmt w:val="decimal"/><w:lvlText w:val="%1."/></w:lvl>
    <w:lvl w:ilvl="1"><w:numFmt w:val="lowerLetter"/><w:lvlText w:val="%1.%2)"/></w:lvl>
  </w:abstractNum>
  <w:abstractNum w:abstractNumId="1"><w:lvl w:ilvl="0"><w:numFmt w:val="bullet"/><w:lvlText w:val="o"/></w:lvl></w:abstractNum>
  <w:num w:numId="1"><w:abstractNumId w:val="0"/></w:num>
  <w:num w:numId="2"><w:abstractNumId w:val="1"/></w:num>
</w:numbering>"""


def word_file(folder, body, styles=""):
    return word_facts.WordFacts(package_of(folder, {
        "_rels/.rels": RELATIONS % RELATION % ("m", "officeDocument", "word/document.xml"),
        "word/document.xml": '<w:document xmlns:w="w"><w:body>%s</w:body></w:document>' % body,
        "word/_rels/document.xml.rels": RELATIONS % (RELATION % ("n", "numbering", "numbering.xml")
                                                     + RELATION % ("s", "styles", "styles.xml")),
        "word/numbering.xml": NUMBERING,
        "word/styles.xml": '<w:styles xmlns:w="w">%s</w:styles>' % styles}))


def item(text, identity, level):
    return ('<w:p><w:pPr><w:numPr><w:ilvl w:val="%d"/><w:numId w:val="%d"/></w:numPr></w:pPr><w:r><w:t>%s</w:t></w:r></w:p>'
            % (level, identity, text))


class Word(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def test_numbers_count_and_restart_under_a_new_parent(self):
        facts = word_file(self.folder, item("a", 1, 0) + item("b", 1, 1) + item("c", 1, 1) + item("d", 1, 0) + item("e", 1, 1)
                          + item("f", 2, 0))
        self.assertEqual([each.label for each in facts.paragraphs], ["3.", "3.a)", "3.b)", "4.", "4.a)", ""])
        self.assertEqual(facts.list_items()[1], ("b", ("number", 1)))
        self.assertEqual(facts.list_items()[5], ("f", ("bullet", 0)))

    def test_roman_numbers_and_letters(self):
        self.assertEqual([numbering.roman(n) for n in (1, 4, 9, 14, 1994)], ["i", "iv", "ix", "xiv", "mcmxciv"])
        self.assertEqual([numbering.letters(n) for n in (1, 26, 27)], ["a", "z", "aa"])

    def test_heading_and_bold_come_from_styles(self):
        styles = ('<w:style w:type="paragraph" w:styleId="H"><w:name w:val="heading 2"/></w:style>'
                  '<w:style w:type="paragraph" w:styleId="X"><w:basedOn w:val="H"/><w:rPr><w:b/></w:rPr></w:style>')
        facts = word_file(self.folder, '<w:p><w:pPr><w:pStyle w:val="X"/></w:pPr><w:r><w:t>Head</w:t></w:r>'
                          '<w:r><w:rPr><w:b w:val="0"/></w:rPr><w:t> line</w:t></w:r></w:p>', styles)
        self.assertEqual(facts.headings(), [("Head line", 2)])
        self.assertEqual([style[0] for style in facts.words()[1]], [True, False])

    def test_merged_cells_are_one(self):
        cell = "<w:tc><w:tcPr>%s</w:tcPr><w:p><w:r><w:t>%s</w:t></w:r></w:p></w:tc>"
        facts = word_file(self.folder, "<w:tbl><w:tr>" + cell % ('<w:gridSpan w:val="2"/>', "head") + "</w:tr><w:tr>"
                          + cell % ('<w:vMerge w:val="restart"/>', "side") + cell % ("", "one") + "</w:tr><w:tr>"
                          + cell % ("<w:vMerge/>", "") + cell % ("", "two") + "</w:tr></w:tbl>")
        self.assertEqual([tuple(each) for each in facts.tables[0]],
                         [(0, 0, 0, 1, "head"), (1, 0, 2, 0, "side"), (1, 1, 1, 1, "one"), (2, 1, 2, 1, "two")])

    def test_words_kept_counts_a_header_once_a_page(self):
        counted = word_facts.WordFacts
        head = type("Facts", (), {"paragraphs": [], "hidden": [], "notes": ["body"], "head_texts": ["Top 1"], "page_field": True})
        outputs.WordFacts = lambda path: head
        self.addCleanup(setattr, outputs, "WordFacts", counted)
        words = outputs.words_of("x.docx", "Top 1 body Top 2 Top 3".split(), 3)
        self.assertEqual(sorted(words), ["1", "2", "3", "Top", "Top", "Top", "body"])
        self.assertEqual(sorted(outputs.words_of("x.docx", ["body"], 3)), ["1", "Top", "body"])


class RoundTrip(unittest.TestCase):
    def test_items_with_another_level_count_half(self):
        self.assertEqual(round_trip.items_f1([("a", 0), ("b", 1)], [("a", 0), ("b", 0)]), 0.75)
        self.assertEqual(round_trip.items_f1([("a", 0)], []), 0)

    def test_numbers_are_as_exact_as_their_digits(self):
        same = round_trip.SameNumbers([2.4567, 1000])
        self.assertEqual(same.canonical(2.46), 2.4567)
        self.assertEqual(same.canonical(2.5), 2.4567)
        self.assertIsNone(same.canonical(2.47))

    def test_numbers_in_text(self):
        self.assertEqual(sheet_facts.numbers_in("(1,234.50)"), [-1234.5])
        self.assertEqual(sheet_facts.numbers_in("12,5 %"), [1.25, 0.125])
        self.assertEqual(sheet_facts.numbers_in("Chapter 3"), [])

    def test_sheets(self):
        facts = [type("Facts", (), {"sheets": [cells], "cells": sheet_facts.SheetFacts.cells})() for cells in (
            {(1, 1): ("text", "Sum"), (1, 2): ("number", 1234.5), (1, 3): ("date", "2024-05-01")},
            {(1, 1): ("text", "Sum"), (1, 2): ("text", "1,234.50"), (1, 3): ("date", "2024-05-02")})]
        figures = round_trip.compare_sheets(*facts, 0)
        self.assertEqual((figures["text"], figures["text cells"], figures["numbers"], figures["dates"]), (1, 1, 0, 0))
        self.assertEqual(round_trip.compare_sheets(*facts, 1)["dates"], None)
        self.assertEqual(set(round_trip.compare_sheets(facts[0], facts[0], 0).values()), {1})

    def test_pictures_of_backgrounds_may_be_missing(self):
        slide = slide_facts.Slide()
        slide.pictures, slide.drawn = 1, 3
        other = slide_facts.Slide()
        for drawn, wanted in ((0, 1), (2, 2), (5, 3)):
            other.drawn = drawn
            self.assertEqual(round_trip.picture_counts(slide, other), (wanted, drawn))

    def test_slides_that_are_missing_lose_their_words(self):
        slide = slide_facts.Slide()
        slide.title, slide.paragraphs, slide.items = ["Head"], ["Head", "one point"], [("one point", 0)]
        facts = [type("Facts", (), {"slides": slides}) for slides in ([slide, slide], [slide])]
        figures = round_trip.compare_slides(*facts)
        self.assertEqual((figures["slides"], figures["titles"], figures["text"]), (0.5, 2 / 3, 2 / 3))


class OfficeRules(unittest.TestCase):
    """Each rule is seen to be broken once, in a small package that breaks none otherwise."""
    TYPES = ('<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
             '<Default Extension="rels" ContentType="r"/><Default Extension="xml" ContentType="x"/></Types>')
    OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"

    @classmethod
    def relationships(cls, *targets):
        entries = ['<Relationship Id="r%d" Type="%s/%s" Target="%s"/>' % (number, cls.OFFICE, kind, target)
                   for number, (kind, target) in enumerate(targets, 1)]
        return "<Relationships>%s</Relationships>" % "".join(entries)

    @classmethod
    def root(cls, tag, content):
        return '<%s xmlns:r="%s">%s</%s>' % (tag, cls.OFFICE, content, tag)

    def word(self, body):
        return {"_rels/.rels": self.relationships(("officeDocument", "document.xml")),
                "document.xml": self.root("document", "<body>%s<sectPr/></body>" % body),
                "_rels/document.xml.rels": self.relationships(("styles", "styles.xml"), ("numbering", "numbering.xml")),
                "styles.xml": '<styles><style type="paragraph" styleId="Normal"/></styles>',
                "numbering.xml": '<numbering><abstractNum abstractNumId="1"/><num numId="1"><abstractNumId val="1"/></num>'
                                 "</numbering>"}

    def workbook(self, content, name="Page 1"):
        return {"_rels/.rels": self.relationships(("officeDocument", "workbook.xml")),
                "workbook.xml": self.root("workbook", '<sheets><sheet name="%s" sheetId="1" r:id="r1"/></sheets>' % name),
                "_rels/workbook.xml.rels": self.relationships(("worksheet", "sheet.xml"), ("sharedStrings", "strings.xml"),
                                                              ("styles", "styles.xml")),
                "sheet.xml": "<worksheet>%s</worksheet>" % content,
                "strings.xml": "<sst><si><t>one</t></si></sst>",
                "styles.xml": "<styleSheet><cellXfs><xf/></cellXfs></styleSheet>"}

    def slides(self, content, identity=256):
        return {"_rels/.rels": self.relationships(("officeDocument", "presentation.xml")),
                "presentation.xml": self.root("presentation", '<sldMasterIdLst><sldMasterId id="2147483648" r:id="r2"/>'
                                              '</sldMasterIdLst><sldIdLst><sldId id="%d" r:id="r1"/></sldIdLst>' % identity),
                "_rels/presentation.xml.rels": self.relationships(("slide", "slide.xml"), ("slideMaster", "master.xml")),
                "slide.xml": self.root("sld", content),
                "_rels/slide.xml.rels": self.relationships(("slideLayout", "layout.xml")),
                "layout.xml": "<sldLayout/>",
                "_rels/layout.xml.rels": self.relationships(("slideMaster", "master.xml")),
                "master.xml": "<sldMaster/>"}

    def found(self, parts, types=None):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "file")
            with zipfile.ZipFile(path, "w") as archive:
                archive.writestr("[Content_Types].xml", types or self.TYPES)
                for name, content in parts.items():
                    archive.writestr(name, content)
            return list(office_rules.violations(path))

    def assert_broken(self, expected, parts, types=None):
        found = self.found(parts, types)
        self.assertEqual(len(found), 1, found)
        self.assertIn(expected, found[0])

    def test_sound_files(self):
        self.assertEqual(self.found(self.word('<p><pPr><pStyle val="Normal"/></pPr></p>')), [])
        self.assertEqual(self.found(self.workbook('<sheetData><row r="1"><c r="A1" t="s"><v>0</v></c></row></sheetData>')), [])
        self.assertEqual(self.found(self.slides("<txBody><bodyPr/><p/></txBody>")), [])

    def test_package(self):
        sound = self.word("<p/>")
        self.assert_broken("type without part", sound, self.TYPES.replace("</Types>", '<Override PartName="/a.xml"/></Types>'))
        self.assert_broken("part without type: a.bin", {**sound, "a.bin": "", "_rels/styles.xml.rels":
                                                         self.relationships(("image", "a.bin"))})
        self.assert_broken("part without relationship: a.xml", {**sound, "a.xml": "<a/>"})
        self.assert_broken("relationship without part: a.xml", {**sound, "_rels/styles.xml.rels":
                                                                 self.relationships(("image", "a.xml"))})
        self.assert_broken("relationships of no part", {**sound, "_rels/a.xml.rels": self.relationships()})
        self.assert_broken("unknown relationship: r9", self.word('<p><drawing r:embed="r9"/></p>'))
        self.assert_broken("not well-formed", {**sound, "styles.xml": "<styles>"})

    def test_word(self):
        cell = "<tc><tcPr>%s</tcPr><p/></tc>"
        table = "<tbl><tblPr/><tblGrid><gridCol/></tblGrid><tr>%s</tr></tbl>"
        for expected, body in (
                ("order of <pPr>", '<p><pPr><jc/><pStyle val="Normal"/></pPr></p>'),
                ("not first in <p>", "<p><r/><pPr/></p>"),
                ("unknown style", '<p><pPr><pStyle val="None"/></pPr></p>'),
                ("unknown list", '<p><pPr><numPr><ilvl val="0"/><numId val="2"/></numPr></pPr></p>'),
                ("list level", '<p><pPr><numPr><ilvl val="9"/><numId val="1"/></numPr></pPr></p>'),
                ("unknown footnote", '<p><r><footnoteReference id="1"/></r></p>'),
                ("link to no bookmark", '<p><hyperlink anchor="a"/></p>'),
                ("bookmarks do not begin", '<p><bookmarkStart id="1" name="a"/></p>'),
                ("bookmark twice", '<p><bookmarkStart id="1" name="a"/><bookmarkEnd id="1"/>'
                                   '<bookmarkStart id="2" name="a"/><bookmarkEnd id="2"/></p>'),
                ("field without end", '<p><r><fldChar fldCharType="begin"/></r></p>'),
                ("field without beginning", '<p><r><fldChar fldCharType="end"/></r></p>'),
                ("drawing twice", '<p><docPr id="1"/><docPr id="1"/></p>'),
                ("row wider", table % (cell % '<gridSpan val="2"/>')),
                ("row without cells", table % ""),
                ("does not end with a paragraph", table % "<tc/>")):
            with self.subTest(expected):
                self.assert_broken(expected, self.word(body))

    def test_word_reads_the_first_form_of_drawings(self):
        drawing = '<docPr id="1"/>'
        self.assertEqual(self.found(self.word("<AlternateContent><Choice>%s</Choice><Fallback>%s</Fallback>"
                                              "</AlternateContent>" % (drawing, drawing))), [])

    def test_workbook(self):
        row = '<sheetData><row r="1">%s</row></sheetData>'
        for expected, content in (
                ("order of <worksheet>", "<mergeCells/><sheetData/>"),
                ("place of cell", row % '<c r="B1"/><c r="A1"/>'),
                ("text of cell", row % '<c r="A1" t="s"><v>1</v></c>'),
                ("number of cell", row % '<c r="A1"><v>one</v></c>'),
                ("format of cell", row % '<c r="A1" s="1"/>'),
                ("order of rows", '<sheetData><row r="2"/><row r="1"/></sheetData>'),
                ("merged cells overlap", '<mergeCells><mergeCell ref="A1:B2"/><mergeCell ref="B2:C2"/></mergeCells>'),
                ("columns overlap", '<cols><col min="1" max="2"/><col min="2" max="3"/></cols>')):
            with self.subTest(expected):
                self.assert_broken(expected, self.workbook(content))
        for name in ("a" * 32, "a/b", "'a", ""):
            with self.subTest(name):
                self.assert_broken("name of a sheet", self.workbook("<sheetData/>", name))

    def test_slides(self):
        for expected, content in (
                ("order of <sp>", "<sp><txBody><p/></txBody><spPr/></sp>"),
                ("shape twice", '<cNvPr id="2"/><cNvPr id="2"/>'),
                ("text without paragraph", "<txBody><bodyPr/></txBody>"),
                ("order of <p>", "<txBody><p><r/><pPr/></p></txBody>"),
                ("row of 1 cells in 2 columns", "<tbl><tblGrid><gridCol/><gridCol/></tblGrid><tr><tc/></tr></tbl>")):
            with self.subTest(expected):
                self.assert_broken(expected, self.slides(content))
        self.assert_broken("identity below", self.slides("", 255))
        self.assert_broken("slide without layout", {**self.slides(""), "_rels/slide.xml.rels": self.relationships(
            ("image", "layout.xml"))})


if __name__ == "__main__":
    unittest.main()
