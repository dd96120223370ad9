// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "sheets/sheets_writer.h"
#include "writers/sheets/cell_repairs.h"
#include "writers/sheets/cell_value.h"
#include "writers/sheets/sheet_date.h"
#include "writers/sheets/sheet_layout.h"
#include "writers/sheets/sheet_names.h"
#include "writers/sheets/sheet_plan.h"
#include "writers/sheets/sheet_tables.h"
#include "writers/sheets/tab_columns.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// Sheets made of hand-made pages: what is on them, sizes of columns and rows, places of texts in their cells, notes'
/// marks.
class OfficeSheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sheetsHoldEverythingInReadingOrder();
    void pagesWithoutTablesAreSheets();
    void longTextsSpanColumnsAndRows();
    void columnsOfNumbersAreKept();
    void picturesHaveRowsAndTheirWords();
    void namesAreValidAndUnique();
    void continuedTablesAreWhole();
    void rowsAreWholeAgain();
    void otherTablesStayOnTheirPage();
    void onlyHeadsOfSingleTablesAreRepeated();
    void rightToLeftSheetsBeginAtTheRight();
    void lineEndsWithAMeaningStay();
    void partsOfLinesAreCells();
    void numbersOfSectionsStayWithTheirText();
    void columnsBeginWherePartsDo();
    void farCurrencySignsBelongToTheNextCell();
    void countedColumnsAreNotNegative();
    void columnsHoldTheirTexts();
    void smallTablesTakeTheColumnsOfLargeOnes();
    void rowsHoldTheirLines();
    void textsKeepTheirPlaceInTheCell();
    void indentsCountFromTheColumnsTexts();
    void marksOfNotesAreNoDigits();
    void rightToLeftCellsReadSo();
    void eachParagraphKeepsItsLook();
    void datesAreReadAsTheDocumentWritesThem_data();
    void datesAreReadAsTheDocumentWritesThem();
    void languagesDecideWhatIsOpen();
    void formatsShowWhatThePageShows();
    void datesAreDays();
    void sheetsPrintOnOnePaperWidth();
};

namespace {

QString sheets(std::vector<model::Page> pages)
{
    fixture::Pictures pictures;
    const model::Document document = fixture::document(std::move(pages));
    return fixture::odf(OdfKind::Spreadsheet, [&](OdfFile &file) { writeSheets(file, document, pictures); });
}

QString sheets(const model::Table &table)
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {{table, 0}};
    return sheets(std::vector<model::Page>{page});
}

model::Paragraph withMark(const QString &text, const QString &mark)
{
    model::Paragraph paragraph = fixture::paragraph(text, {100, 100, 150, 112});
    paragraph.lines[0].words[0].separator = model::Separator::None;
    fixture::addWord(paragraph, mark, fixture::style(6));
    model::Word &raised = paragraph.lines[0].words.back();
    raised.shift = model::BaselineShift::Superscript;
    raised.baseline -= 4;
    return paragraph;
}

} // namespace

void OfficeSheetsTest::sheetsHoldEverythingInReadingOrder()
{
    model::Page page = fixture::page();
    page.header = {fixture::paragraph(QStringLiteral("header"), {72, 20, 110, 32})};
    page.footer = {fixture::paragraph(QStringLiteral("footer"), {72, 740, 110, 752})};
    page.sections[0].blocks = {
        fixture::block(fixture::paragraph(QStringLiteral("above"), {72, 80, 110, 92})),
        {fixture::table(1, {QStringLiteral("inside")}), 0},
        fixture::block(fixture::paragraph(QStringLiteral("below"), {72, 140, 110, 152}))};
    const QString text = sheets(std::vector<model::Page>{page});
    QCOMPARE(fixture::paragraphs(text).join(u' '), QStringLiteral("header above inside below footer"));
    // An empty row above and below the table keeps the texts out of it when it is sorted.
    QCOMPARE(text.count(QLatin1String("<table:table-row")), 7);
}

void OfficeSheetsTest::pagesWithoutTablesAreSheets()
{
    model::Page first = fixture::page();
    first.sections[0].blocks = {{fixture::table(1, {QStringLiteral("inside")}), 0}};
    model::Page second = fixture::page();
    second.number = 2;
    second.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("text"), {72, 80, 110, 92}))};
    model::Page blank = fixture::page();
    blank.number = 3;
    const QString text = sheets({first, second, blank});
    QVERIFY(text.contains(QLatin1String("table:name=\"Page 1\"")));
    QVERIFY(text.contains(QLatin1String("table:name=\"Page 2\"")));
    QVERIFY(text.contains(QLatin1String("table:name=\"Page 3\"")));
    QCOMPARE(fixture::paragraphs(text), (QStringList{QStringLiteral("inside"), QStringLiteral("text")}));
}

void OfficeSheetsTest::longTextsSpanColumnsAndRows()
{
    model::Paragraph text = fixture::paragraph(QStringLiteral("a few words of text"), {72, 80, 172, 92});
    QCOMPARE(textRows(text, 300).size(), std::size_t(1));
    const double line = textRows(text, 300)[0];
    QVERIFY(textRows(text, 60)[0] > 2 * line - 5);
    text.lines.resize(50, text.lines[0]);
    text.preformatted = true;
    const std::vector<double> rows = textRows(text, 300);
    QVERIFY(rows.size() >= 2);
    QVERIFY(rows[0] <= 409 && rows[0] * static_cast<double>(rows.size()) > 600);

    model::Page page = fixture::page();
    page.sections[0].blocks = {
        fixture::block(text), {fixture::table(2, {QStringLiteral("a"), QStringLiteral("b")}), 0}};
    const QString sheet = sheets(std::vector<model::Page>{page});
    // Two columns for the table, and one for the rest of the text's width.
    QVERIFY(sheet.contains(QLatin1String("table:number-columns-spanned=\"3\" table:number-rows-spanned=\"2\"")));
    QVERIFY(sheet.contains(QLatin1String("<table:covered-table-cell table:number-columns-repeated=\"3\"/>")));
}

void OfficeSheetsTest::columnsOfNumbersAreKept()
{
    // Numbers of lines beside a transcript: one below the other, in a paragraph of their own.
    model::Paragraph numbers = fixture::paragraph(QStringLiteral("1"), {72, 80, 77, 92});
    numbers.preformatted = true;
    numbers.lines.push_back(fixture::paragraph(QStringLiteral("2"), {72, 105, 77, 117}).lines[0]);
    numbers.lines[0].words[0].separator = model::Separator::LineBreak;
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(numbers)};
    const QString text = sheets(std::vector<model::Page>{page});
    QCOMPARE(fixture::paragraphs(text), (QStringList{QStringLiteral("1"), QStringLiteral("2")}));
}

void OfficeSheetsTest::picturesHaveRowsAndTheirWords()
{
    model::Page page = fixture::page();
    model::Figure drawing = fixture::figure({72, 100, 272, 600}, model::FigureKind::Drawing);
    drawing.labels = {
        fixture::paragraph(QStringLiteral("first label"), {80, 110, 135, 122}),
        fixture::paragraph(QStringLiteral("second"), {80, 210, 110, 222})};
    model::Figure beside = fixture::figure({300, 100, 400, 200}, model::FigureKind::Image);
    page.sections[0].blocks = {{beside, 0}, {drawing, 0}};
    const model::Document document = fixture::document({page});
    const SheetPlan plan = SheetPlanner(document).plan(document.pages[0]);
    QCOMPARE(plan.bands.size(), std::size_t(3)); // pictures, gap, labels
    const auto &pictures = std::get<PictureBand>(plan.bands[0]);
    QCOMPARE(pictures.figures.size(), std::size_t(2));
    QCOMPARE(pictures.rowHeights.size(), std::size_t(2)); // no row is as high as the drawing
    const QString text = sheets(std::vector<model::Page>{page});
    QCOMPARE(fixture::paragraphs(text), QStringList{QStringLiteral("first label second")});
    QVERIFY(text.contains(QLatin1String("svg:x=\"228.00pt\" svg:y=\"0.00pt\"")));
}

void OfficeSheetsTest::namesAreValidAndUnique()
{
    const auto pageWith = [](int number, const QString &label, const QString &heading) {
        model::Page page = fixture::page();
        page.number = number;
        page.label = label;
        if (!heading.isEmpty()) {
            model::Paragraph paragraph = fixture::paragraph(heading, {72, 80, 500, 92});
            paragraph.role = model::Role::Heading;
            page.sections[0].blocks = {fixture::block(paragraph)};
        }
        return page;
    };
    const std::vector<QString> names = sheetNames(
        {pageWith(1, QStringLiteral("iv"), {}), pageWith(2, {}, QStringLiteral("Income [net] and/or: what?")),
         pageWith(3, QStringLiteral("2"), QStringLiteral("INCOME net and or what")),
         pageWith(4, {}, QStringLiteral("A heading that is far too long for the name of a sheet")),
         pageWith(5, QStringLiteral("'"), QStringLiteral("'quoted'"))});
    QCOMPARE(names[0], QStringLiteral("Page iv"));
    QCOMPARE(names[1], QStringLiteral("2 - Income net and or what"));
    QCOMPARE(names[2], QStringLiteral("2 - INCOME net and or what (2)"));
    QCOMPARE(names[3], QStringLiteral("4 - A heading that is far too"));
    QCOMPARE(names[4], QStringLiteral("- 'quoted"));
}

namespace {

/// Two pages, on the second of which the table continues; it has the head again.
std::vector<model::Page> continuedPages()
{
    model::Page first = fixture::page();
    first.sections[0].blocks = {
        {fixture::table(2, {QStringLiteral("Year"), QStringLiteral("Sum"), QStringLiteral("1"), QStringLiteral("2")}),
         0}};
    first.sections[0].blocks[0].table()->headerRows = 1;
    model::Page second = fixture::page();
    second.number = 2;
    second.sections[0].blocks = {
        {fixture::table(2, {QStringLiteral("Year"), QStringLiteral("Sum"), QStringLiteral("3"), QStringLiteral("4")}),
         0}};
    second.sections[0].blocks[0].table()->headerRows = 1;
    second.sections[0].blocks[0].table()->continuesPrevious = true;
    return {first, second};
}

} // namespace

void OfficeSheetsTest::continuedTablesAreWhole()
{
    std::vector<model::Page> pages = continuedPages();
    QString text = sheets(pages);
    QCOMPARE(fixture::paragraphs(text).join(u' '), QStringLiteral("Year Sum 1 2 3 4"));
    QCOMPARE(text.count(QLatin1String("<table:table ")), 1);
    // What else is on the second page has its own sheet.
    pages[1].sections[0].blocks.push_back(
        fixture::block(fixture::paragraph(QStringLiteral("after"), {72, 300, 110, 312})));
    text = sheets(pages);
    QCOMPARE(fixture::paragraphs(text).join(u' '), QStringLiteral("Year Sum 1 2 3 4 after"));
    QCOMPARE(text.count(QLatin1String("<table:table ")), 2);
}

void OfficeSheetsTest::rowsAreWholeAgain()
{
    const auto rowsOf = [](const QString &text) { return text.count(QLatin1String("<table:table-row")); };
    std::vector<model::Page> pages = continuedPages();
    QCOMPARE(rowsOf(sheets(pages)), 3);
    pages[1].sections[0].blocks[0].table()->continuesRow = true;
    const QString text = sheets(pages);
    QCOMPARE(rowsOf(text), 2);
    QCOMPARE(fixture::paragraphs(text).join(u' '), QStringLiteral("Year Sum 1 3 2 4")); // cell by cell
}

void OfficeSheetsTest::otherTablesStayOnTheirPage()
{
    std::vector<model::Page> pages = continuedPages();
    pages[1].sections[0].blocks[0].table()->continuesPrevious = false;
    QCOMPARE(sheets(pages).count(QLatin1String("<table:table ")), 2);
    pages = continuedPages();
    pages[1].sections[0].blocks = {
        {fixture::table(1, {QStringLiteral("Year"), QStringLiteral("3")}), 0}}; // has other columns
    pages[1].sections[0].blocks[0].table()->continuesPrevious = true;
    QCOMPARE(sheets(pages).count(QLatin1String("<table:table ")), 2);
}

void OfficeSheetsTest::onlyHeadsOfSingleTablesAreRepeated()
{
    std::vector<model::Page> pages = continuedPages();
    pages.pop_back();
    pages[0].sections[0].blocks.insert(
        pages[0].sections[0].blocks.begin(),
        fixture::block(fixture::paragraph(QStringLiteral("above"), {72, 80, 110, 92})));
    model::Document document = fixture::document(pages);
    QCOMPARE(SheetPlanner(document).plan(document.pages[0]).headRows, 3); // the text, an empty row and the head
    QVERIFY(sheets(pages).contains(QLatin1String("<table:table-header-rows><table:table-row")));
    pages[0].sections[0].blocks.push_back({fixture::table(1, {QStringLiteral("other")}), 0});
    document = fixture::document(pages);
    QCOMPARE(SheetPlanner(document).plan(document.pages[0]).headRows, 0);
    QVERIFY(!sheets(pages).contains(QLatin1String("<table:table-header-rows")));
}

void OfficeSheetsTest::rightToLeftSheetsBeginAtTheRight()
{
    model::Page page = fixture::page();
    model::Table table = fixture::table(2, {QStringLiteral("left"), QStringLiteral("right")});
    table.cells[0].left = {2, black};
    for (model::Cell &cell : table.cells) {
        cell.paragraphs[0].rightToLeft = true;
    }
    const model::Table mirrored = mirroredTable(table);
    QCOMPARE(mirrored.cells[0].column, 1);
    QCOMPARE(mirrored.cells[0].right.width, 2.0);
    page.sections[0].blocks = {{table, 0}};
    const QString text = sheets(std::vector<model::Page>{page});
    QCOMPARE(fixture::paragraphs(text), (QStringList{QStringLiteral("right"), QStringLiteral("left")}));
    QVERIFY(text.contains(QLatin1String("table:display=\"true\" style:writing-mode=\"rl-tb\"")));
}

void OfficeSheetsTest::lineEndsWithAMeaningStay()
{
    const auto twoLines = [](const QString &first, const QString &second) {
        model::Paragraph paragraph = fixture::paragraph(first, {74, 100, 74 + 5.0 * first.size(), 108});
        model::Paragraph next = fixture::paragraph(second, {74, 110, 74 + 5.0 * second.size(), 118});
        paragraph.lines.push_back(next.lines[0]);
        return paragraph;
    };
    model::Table table = fixture::table(
        1,
        {QStringLiteral("x"), QStringLiteral("x"), QStringLiteral("a line as wide as it can be"), QStringLiteral("x")});
    table.cells[0].paragraphs = {twoLines(QStringLiteral("12"), QStringLiteral("345"))}; // not 12 345
    table.cells[1].paragraphs = {twoLines(QStringLiteral("Street 5"), QStringLiteral("Town"))};
    table.cells[3].paragraphs = {twoLines(QStringLiteral("a line that is as"), QStringLiteral("wideasthenextword"))};
    keepLineEnds(table);
    QCOMPARE(cellText(table.cells[0]), QStringLiteral("12\n345"));
    QCOMPARE(cellText(table.cells[1]), QStringLiteral("Street 5\nTown"));
    QCOMPARE(cellText(table.cells[3]), QStringLiteral("a line that is as wideasthenextword"));
    QVERIFY(!cellNumber(table.cells[0], {NumberStyle::Comma}));
    const QString text = sheets(table);
    QVERIFY(text.contains(QLatin1String("<text:p>12</text:p><text:p>345</text:p>"))); // cells have no line breaks
    QVERIFY(!text.contains(QLatin1String("office:value-type=\"float\"")));
}

namespace {

/// A line whose words are divided by tabs, each beginning at one of these places.
model::Paragraph tabbed(const QStringList &words, const std::vector<double> &lefts, double top = 80)
{
    model::Paragraph paragraph = fixture::paragraph(words.join(u' '), {lefts[0], top, 540, top + 12});
    for (std::size_t i = 0; i < lefts.size(); ++i) {
        model::Word &word = paragraph.lines[0].words[i];
        word.box = {lefts[i], top, lefts[i] + 5 * static_cast<double>(word.text.size()), top + 12};
        word.separator = model::Separator::Tab;
        paragraph.tabStops.push_back({lefts[i] - lefts[0], model::Alignment::Left, false});
    }
    return paragraph;
}

} // namespace

void OfficeSheetsTest::partsOfLinesAreCells()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {
        fixture::block(tabbed({QStringLiteral("Item"), QStringLiteral("Count")}, {72, 300})),
        fixture::block(tabbed({QStringLiteral("Nails"), QStringLiteral("1,250")}, {72, 305}, 100)),
        fixture::block(fixture::paragraph(QStringLiteral("a line without tabs"), {72, 120, 200, 132}))};
    const model::Document document = fixture::document({page});
    const SheetPlan plan = SheetPlanner(document).plan(document.pages[0]);
    QCOMPARE(plan.columnWidths, (std::vector<double>{228, 240}));
    const auto &line = std::get<TextBand>(plan.bands[1]);
    QCOMPARE(line.parts.size(), std::size_t(2));
    QCOMPARE(line.parts[1].column, 1);
    const QString text = sheets(std::vector<model::Page>{page});
    QVERIFY(text.contains(QLatin1String("office:value-type=\"float\" office:value=\"1250\"")));
    QCOMPARE(fixture::paragraphs(text).size(), 5);
}

void OfficeSheetsTest::numbersOfSectionsStayWithTheirText()
{
    QCOMPARE(tabParts(tabbed({QStringLiteral("2.1"), QStringLiteral("Methods")}, {72, 100})).size(), std::size_t(0));
    QCOMPARE(tabParts(tabbed({QStringLiteral("(a)"), QStringLiteral("first")}, {72, 100})).size(), std::size_t(0));
    QCOMPARE(tabParts(tabbed({QStringLiteral("Sum"), QStringLiteral("2.1")}, {72, 100})).size(), std::size_t(2));
    const QStringList three = {QStringLiteral("2"), QStringLiteral("Methods"), QStringLiteral("7")};
    QCOMPARE(tabParts(tabbed(three, {72, 100, 500})).size(), std::size_t(3));
}

void OfficeSheetsTest::columnsBeginWherePartsDo()
{
    const QStringList words = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")};
    const std::vector<model::Paragraph> parts = tabParts(tabbed(words, {72, 170, 260}));
    std::vector<double> widths = {100, 50, 50, 100};
    std::vector<PartColumns> places = columnsForParts(parts, 72, widths);
    QCOMPARE(places[0].span, 1);
    QCOMPARE(places[1].column, 1);
    QCOMPARE(places[1].span, 2);
    QCOMPARE(places[2].column, 3);
    widths = {400};
    places = columnsForParts(parts, 72, widths);
    QCOMPARE(widths.size(), std::size_t(3)); // one for each part
    QCOMPARE(places[2].column, 2);
}

void OfficeSheetsTest::farCurrencySignsBelongToTheNextCell()
{
    model::Table table = fixture::table(2, {QStringLiteral("12 $"), QStringLiteral("2,772")});
    moveCurrencySigns(table);
    QCOMPARE(cellText(table.cells[0]), QStringLiteral("12 $")); // as in "12 $" and "14 $"
    model::Word &sign = table.cells[0].paragraphs[0].lines[0].words[1];
    sign.box = {140, sign.box.top, 145, sign.box.bottom};
    moveCurrencySigns(table);
    QCOMPARE(cellText(table.cells[0]), QStringLiteral("12"));
    QCOMPARE(cellText(table.cells[1]), QStringLiteral("$ 2,772"));
    QCOMPARE(cellNumber(table.cells[1], {})->prefix, QStringLiteral("$ "));
    table = fixture::table(2, {QStringLiteral("$"), QStringLiteral("2,772")});
    moveCurrencySigns(table);
    QCOMPARE(cellText(table.cells[0]), QStringLiteral("$")); // in a column of its own
}

void OfficeSheetsTest::countedColumnsAreNotNegative()
{
    const model::Table table = fixture::table(
        3, {QStringLiteral("(1)"), QStringLiteral("(2)"), QStringLiteral("(3)"), QStringLiteral("(7)"),
            QStringLiteral("(7)"), QStringLiteral("5")});
    QCOMPARE(countingCells(table), (std::vector<bool>{true, true, true, false, false, false}));
    const QString text = sheets(table);
    QVERIFY(!text.contains(QLatin1String("office:value=\"-2\"")));
    QVERIFY(text.contains(QLatin1String("office:value=\"-7\"")));
}

void OfficeSheetsTest::columnsHoldTheirTexts()
{
    model::Table table = fixture::table(2, {QStringLiteral("a"), QStringLiteral("b")});
    const std::vector<double> usual = sheetColumns({&table});
    QCOMPARE(usual.size(), std::size_t(2));
    QVERIFY(usual[0] > 100 && usual[0] < 120);
    table.cells[1].paragraphs[0].box = {172, 100, 292, 112}; // reaches over its cell
    const std::vector<double> wide = sheetColumns({&table});
    QVERIFY(wide[1] > 125);
    QCOMPARE(wide[0], usual[0]);
    model::Paragraph &wrapped = table.cells[1].paragraphs[0];
    wrapped.lines.push_back(wrapped.lines[0]);
    QVERIFY(sheetColumns({&table})[1] <= usual[1]); // wrapped text needs no wider column
}

void OfficeSheetsTest::smallTablesTakeTheColumnsOfLargeOnes()
{
    const model::Table large = fixture::table(3, QStringList(12, QStringLiteral("a")));
    model::Table small = fixture::table(2, {QStringLiteral("some words of a text"), QStringLiteral("b")});
    small.columnEdges = {72, 372, 472};
    small.cells[0].paragraphs[0].box = {72, 100, 372, 112};
    for (model::Word &word : small.cells[0].paragraphs[0].lines[0].words) {
        word.box.right = word.box.left + 60;
    }
    const std::vector<double> widths = sheetColumns({&large, &small});
    QCOMPARE(widths, sheetColumns({&large}));
    QVERIFY(!wrapsInSheet(small.cells[0]));
    QVERIFY(wrapsInSheet(small.cells[0], widths));
    QVERIFY(sheetRows(small, widths)[0] > 2 * 12);
    // Numbers do not wrap.
    small.cells[0].paragraphs = {fixture::paragraph(QStringLiteral("1234567890"), {72, 100, 272, 112})};
    QVERIFY(sheetColumns({&large, &small})[0] > 200);
}

void OfficeSheetsTest::rowsHoldTheirLines()
{
    model::Table table = fixture::table(1, {QStringLiteral("a"), QStringLiteral("b")});
    QCOMPARE(sheetRows(table), (std::vector<double>{20, 20}));
    model::Paragraph &text = table.cells[1].paragraphs[0];
    text.lines.resize(3, text.lines[0]);
    QVERIFY(sheetRows(table)[1] > 36);
    QCOMPARE(sheetRows(table)[0], 20.0);
    // A text over both rows needs the second only for what the first does not hold.
    table.cells.pop_back();
    table.cells[0].rowSpan = 2;
    table.cells[0].paragraphs[0].lines.resize(4, table.cells[0].paragraphs[0].lines[0]);
    QVERIFY(sheetRows(table)[1] > 25 && sheetRows(table)[1] < 35);
    QVERIFY(sheets(table).contains(QLatin1String("style:use-optimal-row-height=\"false\"")));
}

void OfficeSheetsTest::textsKeepTheirPlaceInTheCell()
{
    model::Table table = fixture::table(1, {QStringLiteral("5"), QStringLiteral("b")});
    model::Cell &cell = table.cells[0];
    cell.paragraphs[0].box = {110, 101, 115, 105};
    QCOMPARE(sheetVerticalAlignment(cell), QStringLiteral("top"));
    cell.paragraphs[0].box = {110, 115, 115, 119};
    QCOMPARE(sheetVerticalAlignment(cell), QStringLiteral("bottom"));
    cell.paragraphs[0].box = {110, 107, 115, 115};
    QCOMPARE(sheetVerticalAlignment(cell), QStringLiteral("middle"));
    cell.paragraphs[0].alignment = model::Alignment::Centre; // numbers too
    QVERIFY(sheets(table).contains(QLatin1String("fo:text-align=\"center\"")));
}

void OfficeSheetsTest::indentsCountFromTheColumnsTexts()
{
    model::Table table = fixture::table(
        1, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d"), QStringLiteral("e")});
    const std::vector<double> lefts = {80, 92, 80.4, 92, 74};
    for (std::size_t i = 0; i < lefts.size(); ++i) {
        table.cells[i].paragraphs[0].box.left = lefts[i];
    }
    // The last one sticks out alone: it does not indent the others.
    QCOMPARE(sheetIndents(table), (std::vector<double>{0, 12, 0, 12, 0}));
    QVERIFY(sheets(table).contains(QLatin1String("fo:margin-left=\"12.00pt\"")));
}

void OfficeSheetsTest::marksOfNotesAreNoDigits()
{
    model::Cell cell;
    cell.paragraphs = {withMark(QStringLiteral("8,935,112"), QStringLiteral("3"))};
    const std::optional<Number> number = cellNumber(cell, {NumberStyle::Point});
    QVERIFY(number);
    QCOMPARE(number->value, 8935112.0);
    QCOMPARE(number->suffix, QStringLiteral("\u00b3"));
    cell.paragraphs = {withMark(QStringLiteral("word"), QStringLiteral("3"))};
    QVERIFY(!cellNumber(cell, {NumberStyle::Point}));
    cell.paragraphs = {fixture::paragraph(QStringLiteral("1,234"), {100, 100, 150, 112})};
    QCOMPARE(cellNumber(cell, {NumberStyle::Point})->value, 1234.0);
}

void OfficeSheetsTest::rightToLeftCellsReadSo()
{
    model::Table table = fixture::table(1, {QStringLiteral("\u05e9\u05dc\u05d5\u05dd abc")});
    table.cells[0].paragraphs[0].rightToLeft = true;
    const QString text = sheets(table);
    QVERIFY(text.contains(QLatin1String("style:writing-mode=\"rl-tb\"")));
    QVERIFY(text.contains(QLatin1String("fo:text-align=\"end\"")));
}

void OfficeSheetsTest::eachParagraphKeepsItsLook()
{
    model::Table table = fixture::table(1, {QStringLiteral("a long first line")});
    model::Style red = fixture::style();
    red.colour = 0xff0000;
    table.cells[0].paragraphs.push_back(fixture::paragraph(QStringLiteral("red"), {72, 112, 87, 120}, red));
    const QString text = sheets(table);
    QVERIFY(text.contains(QLatin1String("fo:color=\"#ff0000\"")));
}

void OfficeSheetsTest::datesAreReadAsTheDocumentWritesThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("others"); // in the same document, separated by "|"
    QTest::addColumn<QString>("moment"); // as in ISO 8601; empty for text
    const auto row = [](const char *name, const char *text, const char *others, const char *moment) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(others) << QString::fromUtf8(moment);
    };
    row("month first", "8/9/2012", "10/31/2012", "2012-08-09");
    row("day first", "8/9/2012", "31/10/2012", "2012-09-08");
    row("either way", "8/9/2012", "1/2/2012", "");
    row("both ways", "8/9/2012", "31/10/2012|10/31/2012", "");
    row("year first", "2012-08-09", "", "2012-08-09");
    row("points", "8.9.2012", "", "2012-09-08");
    row("points and spaces", "8. 9. 2012", "", "2012-09-08");
    row("no such day", "31/2/2012", "31/10/2012", "");
    row("short year", "8/9/12", "10/31/12", "2012-08-09");
    row("short year of the last century", "8/9/98", "", "");
    row("short year like long ones", "8/9/12", "31/10/2012", "2012-09-08");
    row("short year, order unknown", "8/9/12", "1/2/12", "");
    row("short year, day of a long one", "8/31/12", "10/31/2012", "2012-08-31");
    row("short year with points", "10.11.12", "25.12.99", "2012-11-10");
    row("chapters", "10.11.12", "1.2.3", "");
    row("a range", "2012-13", "", "");
    row("a version", "1.2.3", "", "");
    row("month by name", "8 March 2012", "", "2012-03-08");
    row("month before the day", "March 8, 2012", "", "2012-03-08");
    row("short month", "8-Mar-12", "", "2012-03-08");
    row("ordinal number", "8th March 2012", "", "2012-03-08");
    row("German", "8. M\u00e4rz 2012", "", "2012-03-08");
    row("Spanish", "8 de marzo de 2012", "", "2012-03-08");
    row("Polish", "8 lutego 2012", "", "2012-02-08");
    row("Japanese", "2012\u5e743\u67088\u65e5", "", "2012-03-08");
    row("day of the week", "Thursday, March 8, 2012", "", "2012-03-08");
    row("another day of the week", "Friday, March 8, 2012", "", "");
    row("month of a year", "Mar 2012", "", "2012-03-01");
    row("month of a short year", "Mar-12", "Dec-98", "2012-03-01");
    row("month and day", "Mar-12", "Dec-24", "");
    row("no such month", "8 Marchember 2012", "", "");
    row("different months", "8 listopad 2012", "", "");
    row("sentence", "in March 2012", "", "");
    row("time", "9:05", "", "09:05:00");
    row("seconds", "23:59:58", "", "23:59:58");
    row("afternoon", "2:30 PM", "", "14:30:00");
    row("midnight", "12:05 a.m.", "", "00:05:00");
    row("no such time", "24:00", "", "");
    row("no such minute", "2:75", "", "");
    row("ratio", "2:1", "", "");
    row("thirteen in the afternoon", "13:00 PM", "", "");
    row("date and time", "2012-08-09 14:30", "", "2012-08-09T14:30:00");
    row("two lines", "2012-08-09\n14:30", "", "");
    row("before the first day", "1/31/1850", "", "");
}

void OfficeSheetsTest::datesAreReadAsTheDocumentWritesThem()
{
    QFETCH(const QString, text);
    QFETCH(const QString, others);
    QFETCH(const QString, moment);
    const std::optional<SheetDate> date = readDate(text, dateHabitsOf(others.split(u'|') + QStringList{text}, {}));
    QString found;
    if (date) {
        const QString day = date->day.isValid() ? date->day.toString(Qt::ISODate) : QString();
        const QString time = date->time.isValid() ? date->time.toString(Qt::ISODate) : QString();
        found = day + (day.isEmpty() || time.isEmpty() ? QString() : QStringLiteral("T")) + time;
    }
    QCOMPARE(found, moment);
}

void OfficeSheetsTest::languagesDecideWhatIsOpen()
{
    const auto read = [](const QString &text, const QString &language) {
        return readDate(text, dateHabitsOf({text}, language)).value_or(SheetDate{}).day;
    };
    const QString open = QStringLiteral("8/9/2012");
    QCOMPARE(read(open, QStringLiteral("fr")), QDate(2012, 9, 8));
    QCOMPARE(read(open, QStringLiteral("en-GB")), QDate(2012, 9, 8));
    QCOMPARE(read(open, QStringLiteral("en-US")), QDate()); // programs write this tag into any file
    QCOMPARE(read(QStringLiteral("8/31/2012"), QStringLiteral("fr")), QDate(2012, 8, 31));
    QCOMPARE(read(QStringLiteral("8 listopad 2012"), QStringLiteral("hr")), QDate(2012, 10, 8));
    QCOMPARE(read(QStringLiteral("8 listopad 2012"), QStringLiteral("cs-CZ")), QDate(2012, 11, 8));
    model::Cell cell;
    cell.paragraphs = {fixture::paragraph(QStringLiteral("1,234"), {100, 100, 150, 112})};
    const auto numberIn = [&cell](const QString &language) {
        return std::get<Number>(cellValue(cell, cellHabits({}, language))).value;
    };
    QCOMPARE(numberIn(QStringLiteral("de")), 1.234);
    QCOMPARE(numberIn(QStringLiteral("en")), 1234.0);
}

void OfficeSheetsTest::formatsShowWhatThePageShows()
{
    const QString text = sheets(fixture::table(
        1, {QStringLiteral("8 mars 2012"), QStringLiteral("2:05 PM"), QStringLiteral("2012-08-09 14:30"),
            QStringLiteral("\u25b35"), QStringLiteral("7 \u2030"), QStringLiteral("1.5E+03"), QStringLiteral("3%*")}));
    QVERIFY(text.contains(QLatin1String("number:language=\"fr\" number:country=\"FR\"")));
    QVERIFY(text.contains(QLatin1String("<number:month number:style=\"long\" number:textual=\"true\"/>")));
    QVERIFY(text.contains(QLatin1String("office:value-type=\"time\" office:time-value=\"PT14H05M00S\"")));
    QVERIFY(text.contains(QLatin1String("<number:am-pm/>")));
    QVERIFY(text.contains(QLatin1String("office:date-value=\"2012-08-09T14:30:00\"")));
    QVERIFY(text.contains(QStringLiteral("<number:text>\u25b3</number:text>")));
    QVERIFY(text.contains(QLatin1String("office:value=\"7\"")));
    QVERIFY(text.contains(QLatin1String("<number:scientific-number number:decimal-places=\"1\"")));
    QVERIFY(text.contains(QLatin1String("<number:text>%*</number:text>")));
}

void OfficeSheetsTest::datesAreDays()
{
    const QString text =
        sheets(fixture::table(1, {QStringLiteral("8/9/2012"), QStringLiteral("10/31/2012"), QStringLiteral("x")}));
    QVERIFY(text.contains(QLatin1String("office:value-type=\"date\" office:date-value=\"2012-08-09\"")));
    QVERIFY(text.contains(QLatin1String("<number:month number:style=\"short\"")));
}

void OfficeSheetsTest::sheetsPrintOnOnePaperWidth()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {{fixture::table(1, {QStringLiteral("a")}), 0}};
    model::Page across = page;
    across.width = 842;
    across.height = 595;
    const QString text = sheets({page, across, across});
    QCOMPARE(text.count(QLatin1String("style:scale-to-X=\"1\"")), 2);
    QCOMPARE(text.count(QLatin1String("style:print-orientation=\"landscape\"")), 1);
    QCOMPARE(text.count(QLatin1String("<style:master-page ")), 2);
    QVERIFY(text.contains(QLatin1String("fo:page-width=\"612.00pt\"")));
    QVERIFY(text.contains(QLatin1String("fo:page-width=\"841.89pt\"")));
}

QTEST_APPLESS_MAIN(OfficeSheetsTest)
#include "office_sheets_test.moc"
