// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "sheets/sheets_writer.h"
#include "writers/sheets/cell_value.h"
#include "writers/sheets/sheet_date.h"
#include "writers/sheets/sheet_layout.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// Sheets made of hand-made tables: sizes of columns and rows, places of texts in their cells, notes' marks.
class OfficeSheetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsHoldTheirTexts();
    void rowsHoldTheirLines();
    void textsKeepTheirPlaceInTheCell();
    void indentsCountFromTheColumnsTexts();
    void marksOfNotesAreNoDigits();
    void rightToLeftCellsReadSo();
    void eachParagraphKeepsItsLook();
    void datesAreReadAsTheDocumentWritesThem_data();
    void datesAreReadAsTheDocumentWritesThem();
    void datesAreDays();
    void sheetsPrintOnOnePaperWidth();
};

namespace {

QString sheets(const model::Table &table)
{
    fixture::Pictures pictures;
    model::Page page = fixture::page();
    page.sections[0].blocks = {{table, 0}};
    const model::Document document = fixture::document({page});
    return fixture::odf(OdfKind::Spreadsheet, [&](OdfFile &file) { writeSheets(file, document, pictures); });
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
    const std::optional<Number> number = cellNumber(cell, NumberStyle::Point);
    QVERIFY(number);
    QCOMPARE(number->value, 8935112.0);
    QCOMPARE(number->suffix, QStringLiteral("\u00b3"));
    cell.paragraphs = {withMark(QStringLiteral("word"), QStringLiteral("3"))};
    QVERIFY(!cellNumber(cell, NumberStyle::Point));
    cell.paragraphs = {fixture::paragraph(QStringLiteral("1,234"), {100, 100, 150, 112})};
    QCOMPARE(cellNumber(cell, NumberStyle::Point)->value, 1234.0);
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
    QTest::addColumn<QString>("others"); // in the same document
    QTest::addColumn<QDate>("day");
    QTest::newRow("month first") << "8/9/2012"
                                 << "10/31/2012" << QDate(2012, 8, 9);
    QTest::newRow("day first") << "8/9/2012"
                               << "31/10/2012" << QDate(2012, 9, 8);
    QTest::newRow("either way") << "8/9/2012"
                                << "1/2/2012" << QDate();
    QTest::newRow("both ways") << "8/9/2012"
                               << "31/10/2012 10/31/2012" << QDate();
    QTest::newRow("year first") << "2012-08-09"
                                << "" << QDate(2012, 8, 9);
    QTest::newRow("points") << "8.9.2012"
                            << "" << QDate(2012, 9, 8);
    QTest::newRow("no such day") << "31/2/2012"
                                 << "31/10/2012" << QDate();
    QTest::newRow("short year") << "8/31/12"
                                << "10/31/2012" << QDate();
    QTest::newRow("a range") << "2012-13"
                             << "" << QDate();
    QTest::newRow("a version") << "1.2.3"
                               << "" << QDate();
}

void OfficeSheetsTest::datesAreReadAsTheDocumentWritesThem()
{
    QFETCH(const QString, text);
    QFETCH(const QString, others);
    QFETCH(const QDate, day);
    const DateOrder order = dateOrderOf(others.split(u' ') + QStringList{text});
    const std::optional<SheetDate> date = readDate(text, order);
    QCOMPARE(date.has_value(), day.isValid());
    if (date) {
        QCOMPARE(date->day, day);
    }
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
    fixture::Pictures pictures;
    model::Page page = fixture::page();
    page.sections[0].blocks = {{fixture::table(1, {QStringLiteral("a")}), 0}};
    model::Page across = page;
    across.width = 842;
    across.height = 595;
    const model::Document document = fixture::document({page, across, across});
    const QString text =
        fixture::odf(OdfKind::Spreadsheet, [&](OdfFile &file) { writeSheets(file, document, pictures); });
    QCOMPARE(text.count(QLatin1String("style:scale-to-X=\"1\"")), 2);
    QCOMPARE(text.count(QLatin1String("style:print-orientation=\"landscape\"")), 1);
    QCOMPARE(text.count(QLatin1String("<style:master-page ")), 2);
    QVERIFY(text.contains(QLatin1String("fo:page-width=\"612.00pt\"")));
    QVERIFY(text.contains(QLatin1String("fo:page-width=\"841.89pt\"")));
}

QTEST_APPLESS_MAIN(OfficeSheetsTest)
#include "office_sheets_test.moc"
