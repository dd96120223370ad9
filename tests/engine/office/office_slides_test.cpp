// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "document/rotation.h"
#include "document/text.h"
#include "slides/slides_writer.h"
#include "writers/slides/slide_fit.h"
#include "writers/slides/slide_table.h"
#include "writers/slides/slide_text.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// Slides from hand-made pages: text boxes, links, rotated text and tables.
class OfficeSlidesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void singleLinesDoNotWrap();
    void linksKeepTheirText();
    void linksToMissingPagesAreDropped();
    void wideGapsPartALine();
    void marksKeepTheirDistance();
    void rotatedTextRotatesItsFrame();
    void rightToLeftLinesStandRight();
    void boxesBeginAboveTheBaseline();
    void codeKeepsItsBlanks();
    void spacesAreLimited();
    void unknownFontsGiveWayToMeasuredOnes();
    void spacingFollowsThePage();
    void tightTextBecomesSmaller();
    void tightTablesHaveSmallerText();
    void rotatedTablesAreDrawn();
    void emptyCellsStayLow();
    void cellTextKeepsItsBlankSides();
};

namespace {

model::Paragraph lineAt(const QString &text, const Box &box, const model::Style &textStyle = fixture::style())
{
    return fixture::paragraph(text, box, textStyle);
}

model::Document documentOf(std::vector<model::Paragraph> paragraphs)
{
    model::Page page = fixture::page();
    for (model::Paragraph &paragraph : paragraphs) {
        page.sections[0].blocks.push_back(fixture::block(std::move(paragraph)));
    }
    return fixture::document({page});
}

QString slides(const model::Document &document)
{
    fixture::Pictures pictures;
    return fixture::odf(OdfKind::Presentation, [&](OdfFile &file) { writeSlides(file, document, pictures); });
}

// Two lines of words, one below the other, with words of the given width per character.
model::Paragraph twoLines(double signWidth)
{
    model::Paragraph paragraph = lineAt(QStringLiteral("some words stand here"), {72, 100, 200, 110});
    paragraph.lines.push_back(paragraph.lines.front());
    for (model::Line &line : paragraph.lines) {
        double left = 72;
        for (model::Word &word : line.words) {
            word.box.left = left;
            word.box.right = left + signWidth * static_cast<double>(word.text.size());
            left = word.box.right + 3;
        }
    }
    return paragraph;
}

} // namespace

void OfficeSlidesTest::singleLinesDoNotWrap()
{
    const QString text = slides(documentOf({lineAt(QStringLiteral("A heading"), {72, 100, 117, 112})}));
    QVERIFY(text.contains(QLatin1String("draw:auto-grow-width=\"true\"")));
    QVERIFY(!text.contains(QLatin1String("draw:auto-grow-width=\"false\"")));
    QVERIFY(slides(documentOf({twoLines(5)})).contains(QLatin1String("draw:auto-grow-width=\"false\"")));
}

void OfficeSlidesTest::linksKeepTheirText()
{
    model::Paragraph paragraph = lineAt(QStringLiteral("see our page now"), {72, 100, 152, 112});
    model::Style linked = fixture::style();
    linked.colour = 0x0000ff;
    for (const std::size_t word : {std::size_t(1), std::size_t(2)}) {
        paragraph.lines[0].words[word].style = testText::styled(linked);
        paragraph.lines[0].words[word].link = QStringLiteral("https://example.org/");
    }
    const QString text = slides(documentOf({paragraph}));
    // The style is outside: a link with elements inside would be empty.
    QVERIFY(text.contains(QLatin1String("xlink:href=\"https://example.org/\">our</text:a></text:span>")));
    QVERIFY(text.contains(QLatin1String("xlink:href=\"https://example.org/\">page</text:a></text:span>")));
    QCOMPARE(fixture::paragraphs(text), QStringList{QStringLiteral("see our page now")});
}

void OfficeSlidesTest::linksToMissingPagesAreDropped()
{
    QCOMPARE(slideTarget(QStringLiteral("#page=3")), QStringLiteral("#Page 3"));
    QCOMPARE(slideTarget(QStringLiteral("file:///etc/passwd")), QString());
    model::Paragraph paragraph = lineAt(QStringLiteral("one two"), {72, 100, 152, 112});
    paragraph.lines[0].words[0].link = QStringLiteral("#page=1");
    paragraph.lines[0].words[1].link = QStringLiteral("#page=2");
    model::Document document = documentOf({paragraph});
    dropDeadLinks(document);
    const model::Paragraph &kept = *document.pages[0].sections[0].blocks[0].paragraph();
    QCOMPARE(kept.lines[0].words[0].link, QStringLiteral("#page=1"));
    QVERIFY(kept.lines[0].words[1].link.isEmpty());
    QVERIFY(model::runsOf(kept)[1].link.isEmpty());
}

void OfficeSlidesTest::wideGapsPartALine()
{
    model::Paragraph paragraph = lineAt(QStringLiteral("Appendix B 200"), {72, 100, 400, 112});
    paragraph.lines[0].words[2].box.left = 380;
    paragraph.lines[0].words[2].box.right = 395;
    const std::vector<model::Paragraph> pieces = paragraphPieces(paragraph, false);
    QCOMPARE(pieces.size(), std::size_t(2));
    QCOMPARE(model::plainText(pieces[0]), QStringLiteral("Appendix B"));
    QCOMPARE(model::plainText(pieces[1]), QStringLiteral("200"));
    QCOMPARE(pieces[1].box.left, 380.0);
    paragraph.lines[0].words[2].box = {130, 100, 145, 112};
    QCOMPARE(paragraphPieces(paragraph, false).size(), std::size_t(1));
    // Narrower gaps stay in the line: from 122 to 136, with 2.5 points per space.
    paragraph.lines[0].words[2].box = {136, 100, 151, 112};
    QCOMPARE(paragraphPieces(paragraph, false).size(), std::size_t(1));
    QCOMPARE(runsByLine(paragraph)[0].text, QStringLiteral("Appendix B      200"));
}

void OfficeSlidesTest::marksKeepTheirDistance()
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("[10] Financing"), {72, 100, 200, 112});
    paragraph.listItem = model::ListItem{QStringLiteral("[10]"), false, 0};
    paragraph.lines[0].words[1].box.left = paragraph.lines[0].words[0].box.right + 15;
    QCOMPARE(fixture::paragraphs(slides(documentOf({paragraph}))), QStringList{QStringLiteral("[10]      Financing")});
}

void OfficeSlidesTest::rotatedTextRotatesItsFrame()
{
    // Upright it is at 100, 50 on a page of 792 x 612; rotated by 90 degrees, this is 612 - 50 from the left.
    model::Paragraph paragraph = lineAt(QStringLiteral("rotated"), {100, 50, 130, 62});
    const SlideOrientation orientation{90, 612, 792};
    const Box box = onSlide(Box{100, 50, 130, 62}, orientation);
    QCOMPARE(box, (Box{550, 100, 562, 130}));
    paragraph.rotation = 90;
    paragraph.box = box;
    paragraph.lines[0].rotation = 90;
    paragraph.lines[0].box = box;
    paragraph.lines[0].baseline = 612 - 60;
    paragraph.lines[0].words[0].box = box;
    paragraph.lines[0].words[0].rotation = 90;
    paragraph.lines[0].words[0].baseline = 612 - 60;
    const model::Paragraph upright = model::uprightParagraph(paragraph, 612, 792);
    QCOMPARE(upright.box, (Box{100, 50, 130, 62}));
    QCOMPARE(upright.rotation, 0);
    const QString text = slides(documentOf({paragraph}));
    QVERIFY(text.contains(QLatin1String("draw:transform=\"rotate (-1.570796) translate (")));
    QVERIFY(text.contains(QLatin1String(" 100.00pt)\"")));
}

void OfficeSlidesTest::rightToLeftLinesStandRight()
{
    model::Paragraph paragraph = lineAt(QStringLiteral("\u05e9\u05dc\u05d5\u05dd"), {400, 100, 540, 112});
    paragraph.rightToLeft = true;
    const QString text = slides(documentOf({paragraph}));
    QVERIFY(text.contains(QLatin1String("fo:text-align=\"end\"")));
    QVERIFY(text.contains(QLatin1String("draw:textarea-horizontal-align=\"right\"")));
    QVERIFY(text.contains(QLatin1String("svg:x=\"382.80pt\""))); // room on the left
}

void OfficeSlidesTest::boxesBeginAboveTheBaseline()
{
    // 12 points of line height above a baseline at 110, less what hangs below it.
    const QString text = slides(documentOf({lineAt(QStringLiteral("x"), {72, 100, 77, 112})}));
    QVERIFY(text.contains(QLatin1String("svg:y=\"100.10pt\"")));
}

void OfficeSlidesTest::codeKeepsItsBlanks()
{
    model::Style textStyle = fixture::style();
    textStyle.fixedPitch = true;
    model::Paragraph code = lineAt(QStringLiteral("if x"), {72, 100, 96, 112}, textStyle);
    model::Paragraph inner = lineAt(QStringLiteral("stop now"), {84, 112, 132, 124}, textStyle);
    code.lines[0].words = {code.lines[0].words[0], code.lines[0].words[1]};
    code.lines[0].words[1].box.left = 72 + 12 + 18;
    code.lines[0].words[0].box.right = 72 + 12;
    code.lines.push_back(inner.lines[0]);
    code.lines[0].words[1].separator = model::Separator::LineBreak;
    code.box = {72, 100, 132, 124};
    QVERIFY(keepsLines(code));
    QCOMPARE(runsByLine(code)[0].text, QStringLiteral("if   x\n  stop now"));
}

void OfficeSlidesTest::spacesAreLimited()
{
    for (const bool fixedPitch : {false, true}) {
        model::Style textStyle = fixture::style();
        textStyle.fixedPitch = fixedPitch;
        model::Paragraph paragraph = lineAt(QStringLiteral("far apart"), {72, 72, 300, 84}, textStyle);
        model::Word &last = paragraph.lines[0].words[1];
        last.box.left += 100000;
        last.box.right += 100000;
        QCOMPARE(
            model::plainText(runsByLine(paragraph)),
            QStringLiteral("far") + QString(80, QLatin1Char(' ')) + QStringLiteral("apart"));
    }
}

void OfficeSlidesTest::unknownFontsGiveWayToMeasuredOnes()
{
    const auto common = [](const QString &text, const QString &family) {
        model::Style textStyle = fixture::style();
        textStyle.family = family;
        model::Document document = documentOf({lineAt(text, {0, 0, 10, 10}, textStyle)});
        useCommonFonts(document);
        return document.pages[0].sections[0].blocks[0].paragraph()->lines[0].words[0].style->family;
    };
    QCOMPARE(common(QStringLiteral("x"), QStringLiteral("New Century Schlbk")), QStringLiteral("Times New Roman"));
    QCOMPARE(common(QStringLiteral("x"), QStringLiteral("Calibri")), QStringLiteral("Calibri"));
    // Nothing is known of the widths of these signs.
    QCOMPARE(common(QStringLiteral("\u65e5"), QStringLiteral("Ryumin")), QStringLiteral("Ryumin"));
}

void OfficeSlidesTest::spacingFollowsThePage()
{
    const model::Paragraph wide = twoLines(5.2);
    const model::Paragraph narrow = twoLines(4);
    QVERIFY(fittingText(wide, 300).spacing > fittingText(narrow, 300).spacing + 0.5);
    // Where the lines would break once more, letters come closer together.
    const TextFit free = fittingText(wide, 110);
    const TextFit pressed = fittingText(wide, 101);
    QCOMPARE(pressed.scale, 1.0);
    QVERIFY2(pressed.spacing < free.spacing, qPrintable(QString::number(pressed.spacing)));
    model::Paragraph foreign = wide;
    foreign.lines[0].words[0].text = QStringLiteral("\u65e5");
    QCOMPARE(fittingText(foreign, 100).spacing, 0.0);
}

void OfficeSlidesTest::tightTextBecomesSmaller()
{
    // Letters come closer together by 3 % at most; what is missing beyond that makes the type smaller.
    const TextFit natural = fittingText(twoLines(4.6), 300);
    QCOMPARE(natural.scale, 1.0);
    const TextFit tight = fittingText(twoLines(4), 300);
    QVERIFY2(tight.scale < 0.99 && tight.scale > 0.8, qPrintable(QString::number(tight.scale)));
    QVERIFY2(tight.spacing > -0.15, qPrintable(QString::number(tight.spacing)));
    const QString text = slides(documentOf({twoLines(4)}));
    QVERIFY(!text.contains(QLatin1String("fo:font-size=\"10.0pt\"")));
    QCOMPARE(scaledRuns(model::runsOf(twoLines(4)), 0.5)[0].style.size, 5.0);
}

void OfficeSlidesTest::tightTablesHaveSmallerText()
{
    model::Page page = fixture::page();
    model::Table table = fixture::table(2, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), {}});
    page.sections[0].blocks = {{table, 0}};
    const QString roomy = slides(fixture::document({page}));
    QVERIFY(roomy.contains(QLatin1String("<table:table")));
    QVERIFY(roomy.contains(QLatin1String("fo:font-size=\"10.0pt\"")));
    QVERIFY(roomy.contains(QLatin1String("fo:padding-top=\"0.30pt\"")));
    // Rows of 8.2 points leave 7.6 points for a line, the height of type of 8 points.
    table.rowEdges = {100, 108.2, 116.4};
    for (model::Cell &cell : table.cells) {
        cell.box.bottom = cell.box.top + 8.2;
    }
    page.sections[0].blocks = {{table, 0}};
    const QString tight = slides(fixture::document({page}));
    QVERIFY(tight.contains(QLatin1String("<table:table")));
    QVERIFY(tight.contains(QLatin1String("fo:font-size=\"8.0pt\"")));
    QVERIFY(tight.contains(QLatin1String("fo:line-height=\"7.60pt\"")));
    QVERIFY(!tight.contains(QLatin1String("fo:font-size=\"10.0pt\"")));
}

void OfficeSlidesTest::rotatedTablesAreDrawn()
{
    model::Page page = fixture::page();
    model::Table table = fixture::table(2, {QStringLiteral("a"), QStringLiteral("b")});
    table.cells[1].paragraphs[0].rotation = 90;
    QVERIFY(!canBeTable(table));
    page.sections[0].blocks = {{table, 0}};
    const QString text = slides(fixture::document({page}));
    QVERIFY(!text.contains(QLatin1String("<table:table")));
    QVERIFY(text.contains(QLatin1String("<draw:line")));
}

void OfficeSlidesTest::emptyCellsStayLow()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {{fixture::table(2, {QStringLiteral("a"), {}}), 0}};
    const QString text = slides(fixture::document({page}));
    QVERIFY(text.contains(QLatin1String("fo:font-size=\"1.0pt\"")));
    // Without any text, the paragraph would have the default size.
    QVERIFY(text.contains(QLatin1String("<text:s/></text:p></table:table-cell>")));
}

void OfficeSlidesTest::cellTextKeepsItsBlankSides()
{
    model::Table table = fixture::table(2, {QStringLiteral("a"), QStringLiteral("b")});
    model::Paragraph &left = table.cells[0].paragraphs[0];
    left.box = {84, 105, 89, 115};
    model::Paragraph &right = table.cells[1].paragraphs[0];
    right.box = {255, 105, 260, 115};
    right.alignment = model::Alignment::Right;
    model::Page page = fixture::page();
    page.sections[0].blocks = {{table, 0}};
    const QString text = slides(fixture::document({page}));
    QVERIFY(text.contains(QLatin1String("fo:margin-left=\"11.70pt\"")));
    QVERIFY(text.contains(QLatin1String("fo:padding-right=\"12.00pt\"")));
}

QTEST_APPLESS_MAIN(OfficeSlidesTest)
#include "office_slides_test.moc"
