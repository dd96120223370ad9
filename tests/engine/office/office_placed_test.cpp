// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "base/failure.h"
#include "convert/page_size.h"
#include "document/page_transform.h"
#include "odf/exact_lines.h"
#include "odf/font_widths.h"
#include "odf/placed_page.h"
#include "sheets/sheets_writer.h"
#include "slides/slides_writer.h"
#include "word/word_placed.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// Documents whose parts keep their places: frames, exact lines, slides and sheets made of hand-made pages.
class OfficePlacedTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void joinsCloseParagraphsIntoOneFrame();
    void framesStandWhereTheTextDoes();
    void linesKeepTheirBaselines();
    void knowsWidthsOfCommonFaces();
    void exactLinesStandOverTheBackground();
    void exactLinesKeepLinks();
    void exactLinesKeepTheirRotation();
    void oneSlideForEachPage();
    void otherPageSizesAreCentred();
    void pagesTakeTheRequestedSize();
    void pagesLargerThanPaperAreRefused();
    void coloursAreReduced();
    void sheetsHoldNumbersAsNumbers();
    void documentsWithoutTablesGiveTheirLines();
};

namespace {

model::Page pageOf(std::vector<model::Paragraph> paragraphs)
{
    model::Page page = fixture::page();
    for (model::Paragraph &paragraph : paragraphs) {
        page.sections[0].blocks.push_back(fixture::block(std::move(paragraph)));
    }
    return page;
}

model::Page threeParagraphs()
{
    return pageOf(
        {fixture::paragraph(QStringLiteral("one"), {72, 100, 200, 112}),
         fixture::paragraph(QStringLiteral("two"), {72, 114, 200, 126}),
         fixture::paragraph(QStringLiteral("far below"), {72, 300, 200, 312})});
}

} // namespace

void OfficePlacedTest::joinsCloseParagraphsIntoOneFrame()
{
    const model::Page page = threeParagraphs();
    const std::vector<TextBlock> joined = textBlocks(page, true);
    QCOMPARE(joined.size(), std::size_t(2));
    QCOMPARE(joined[0].box, (Box{72, 100, 200, 126}));
    QCOMPARE(textBlocks(page, false).size(), std::size_t(3));
}

void OfficePlacedTest::framesStandWhereTheTextDoes()
{
    fixture::Pictures pictures;
    const model::Document document = fixture::document({threeParagraphs()});
    const QString text = fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeFramed(file, document, pictures); });
    QCOMPARE(text.count(QLatin1String("<draw:text-box ")), 2);
    QVERIFY(text.contains(QLatin1String("svg:x=\"72.00pt\" svg:y=\"300.00pt\"")));
    QCOMPARE(pictures.encoded, 0);
}

void OfficePlacedTest::linesKeepTheirBaselines()
{
    const std::vector<double> baselines = {110, 122, 133, 160};
    const std::vector<double> sizes = {10, 10, 9, 10};
    const double top = baselines[0] - riseOf(sizes[0]);
    double bottom = top;
    const std::vector<LinePlace> places = placeLines(top, baselines, sizes);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const double baseline = bottom + places[i].above + 0.8 * places[i].height;
        QVERIFY2(std::abs(baseline - baselines[i]) < 0.01, qPrintable(QString::number(baseline)));
        bottom += places[i].above + places[i].height;
    }
}

void OfficePlacedTest::knowsWidthsOfCommonFaces()
{
    model::Style textStyle = fixture::style(10);
    QCOMPARE(textWidth(QStringLiteral("A"), textStyle).value_or(0), 7.22);
    textStyle.bold = true;
    QCOMPARE(textWidth(QStringLiteral("a"), textStyle).value_or(0), 5.0);
    textStyle.serif = false;
    textStyle.family = QStringLiteral("Something Sans");
    QCOMPARE(measuredFamily(textStyle), QStringLiteral("Arial"));
    QCOMPARE(textWidth(QStringLiteral("a "), textStyle).value_or(0), 8.34);
    textStyle.fixedPitch = true;
    QCOMPARE(textWidth(QStringLiteral("iiii"), textStyle).value_or(0), 24.0);
    QVERIFY(!textWidth(QStringLiteral("\u4e2d"), textStyle));
}

void OfficePlacedTest::exactLinesStandOverTheBackground()
{
    fixture::Pictures pictures;
    model::Document document = fixture::document({threeParagraphs()});
    const auto exact = [&] {
        return fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeExact(file, document, pictures); });
    };
    QVERIFY(exact().contains(QLatin1String(">far<")));
    QCOMPARE(pictures.backgrounds, 0); // nothing but text: no picture behind it
    document.pages[0].rules = {{72, 120, 540, 120, 1, black}};
    QVERIFY(exact().contains(QLatin1String("svg:width=\"612.00pt\" svg:height=\"792.00pt\"")));
    QCOMPARE(pictures.backgrounds, 1);
}

void OfficePlacedTest::exactLinesKeepLinks()
{
    fixture::Pictures pictures;
    model::Document document = fixture::document({threeParagraphs()});
    std::vector<model::Word> &words = document.pages[0].sections[0].blocks[2].paragraph()->lines[0].words;
    words[0].link = QStringLiteral("https://example.org/");
    words[1].link = QStringLiteral("file:///etc/passwd");
    const QString text = fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeExact(file, document, pictures); });
    QCOMPARE(text.count(QLatin1String("<text:a ")), 1);
    QVERIFY(text.contains(QLatin1String("xlink:href=\"https://example.org/\"><text:span ")));
    QVERIFY(fixture::paragraphs(text).join(u' ').contains(QLatin1String("far below")));
}

void OfficePlacedTest::exactLinesKeepTheirRotation()
{
    fixture::Pictures pictures;
    model::Paragraph rotated = fixture::paragraph(QStringLiteral("up"), {72, 300, 82, 310});
    rotated.rotation = 270;
    rotated.lines[0].rotation = 270;
    rotated.lines[0].baseline = 80;
    rotated.lines[0].words[0].rotation = 270;
    rotated.lines[0].words[0].baseline = 80;
    const auto exact = [&] {
        const model::Document document = fixture::document({pageOf({rotated})});
        return fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeExact(file, document, pictures); });
    };
    const QString up = exact();
    QVERIFY(up.contains(QLatin1String("loext:writing-mode=\"bt-lr\"")));
    // The tops of the characters are left of the baseline, and the line begins at the bottom.
    QVERIFY(up.contains(QLatin1String("svg:x=\"70.40pt\" svg:y=\"276.00pt\" svg:width=\"12.00pt\"")));
    rotated.lines[0].rotation = 90;
    const QString down = exact();
    QVERIFY(down.contains(QLatin1String("style:writing-mode=\"tb-rl\"")));
    QVERIFY(down.contains(QLatin1String("svg:x=\"77.60pt\" svg:y=\"300.00pt\" svg:width=\"12.00pt\"")));
}

void OfficePlacedTest::oneSlideForEachPage()
{
    fixture::Pictures pictures;
    model::Page page = threeParagraphs();
    page.sections[0].blocks.push_back({fixture::table(2, {QStringLiteral("a"), QStringLiteral("b")}), 0});
    page.rules = {{72, 400, 540, 400, 1, 0xff0000}};
    const model::Document document = fixture::document({page, threeParagraphs()});
    const QString text =
        fixture::odf(OdfKind::Presentation, [&](OdfFile &file) { writeSlides(file, document, pictures); });
    QCOMPARE(text.count(QLatin1String("<draw:page ")), 2);
    QCOMPARE(text.count(QLatin1String("<draw:text-box>")), 4); // two of the three paragraphs share one
    QCOMPARE(text.count(QLatin1String("<table:table>")), 1);
    QCOMPARE(text.count(QLatin1String("<draw:line ")), 1);
}

void OfficePlacedTest::otherPageSizesAreCentred()
{
    model::Page wide = pageOf({fixture::paragraph(QStringLiteral("x"), {0, 0, 100, 10})});
    wide.number = 2;
    wide.width = 1224;
    wide.height = 792;
    model::Document document = fixture::document({threeParagraphs(), wide});
    unifyPages(document);
    QCOMPARE(document.pages[1].width, 612.0);
    QCOMPARE(document.pages[1].sections[0].blocks[0].box(), (Box{0, 198, 50, 203}));
}

void OfficePlacedTest::pagesTakeTheRequestedSize()
{
    model::Document document = fixture::document({threeParagraphs()});
    Options options;
    options.width = 408; // pixels, 96 to the inch: half of the page's 612 points
    fitToOptions(document, options);
    QCOMPARE(document.pages[0].width, 306.0);
    QCOMPARE(document.pages[0].height, 396.0);
    QCOMPARE(document.pages[0].sections[0].blocks[0].paragraph()->lines[0].words[0].style->size, 5.0);
    QCOMPARE(document.pages[0].sections[0].blocks[0].paragraph()->lines[0].baseline, 55.0);
}

void OfficePlacedTest::pagesLargerThanPaperAreRefused()
{
    constexpr int mostPixels = 19200; // 200 inches
    const auto fit = [](int width) {
        model::Document document = fixture::document({threeParagraphs()});
        document.pages[0].height = document.pages[0].width;
        Options options;
        options.width = width;
        fitToOptions(document, options);
        return document.pages[0].height;
    };
    QCOMPARE(fit(mostPixels), 14400.0);
    QVERIFY_THROWS_EXCEPTION(Failure, fit(mostPixels + 1));
}

void OfficePlacedTest::coloursAreReduced()
{
    const auto firstWord = [](model::Document &document) -> model::Word & {
        return document.pages[0].sections[0].blocks[0].paragraph()->lines[0].words[0];
    };
    const auto reduced = [&](ColourDepth depth) {
        model::Document document = fixture::document({threeParagraphs()});
        model::Style red = fixture::style();
        red.colour = 0xff0000;
        firstWord(document).style = document.styles.add(red);
        document.pages[0].fills = {{{0, 0, 10, 10}, 0x0000ff}};
        reduceColours(document, depth);
        return document;
    };
    model::Document gray = reduced(ColourDepth::Gray);
    QCOMPARE(firstWord(gray).style->colour, Colour(0x4c4c4c));
    model::Document mono = reduced(ColourDepth::Mono);
    QCOMPARE(firstWord(mono).style->colour, black);
    QCOMPARE(mono.pages[0].fills[0].colour, white);
}

void OfficePlacedTest::sheetsHoldNumbersAsNumbers()
{
    fixture::Pictures pictures;
    model::Page page = fixture::page();
    page.number = 3;
    page.sections[0].blocks = {
        {fixture::table(
             2, {QStringLiteral("Name"), QStringLiteral("Sum"), QStringLiteral("00123"), QStringLiteral("(1,234.5)"),
                 QStringLiteral("share"), QStringLiteral("5%")}),
         0}};
    const model::Document document = fixture::document({page});
    const QString text =
        fixture::odf(OdfKind::Spreadsheet, [&](OdfFile &file) { writeSheets(file, document, pictures); });
    QVERIFY(text.contains(QLatin1String("table:name=\"Page 3\"")));
    QVERIFY(text.contains(QLatin1String("office:value-type=\"float\" office:value=\"-1234.5\"")));
    QVERIFY(text.contains(QLatin1String("office:value-type=\"percentage\" office:value=\"0.05\"")));
    QVERIFY(text.contains(QLatin1String("office:value-type=\"string\"><text:p>00123")));
    QVERIFY(text.contains(QLatin1String("style:condition=\"value()&gt;=0\"")));
    QVERIFY(text.contains(QLatin1String("number:grouping=\"true\"")));
}

void OfficePlacedTest::documentsWithoutTablesGiveTheirLines()
{
    fixture::Pictures pictures;
    const model::Document document = fixture::document({threeParagraphs()});
    const QString text =
        fixture::odf(OdfKind::Spreadsheet, [&](OdfFile &file) { writeSheets(file, document, pictures); });
    QCOMPARE(
        fixture::paragraphs(text),
        (QStringList{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("far below")}));
    QVERIFY(text.contains(QLatin1String("table:name=\"Page 1\"")));
}

QTEST_APPLESS_MAIN(OfficePlacedTest)
#include "office_placed_test.moc"
