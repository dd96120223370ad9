// SPDX-License-Identifier: GPL-3.0-or-later
#include "office_fixture.h"

#include "odf/cell_places.h"
#include "odf/line_layout.h"
#include "word/word_flow.h"
#include "writers/word/flow_fit.h"
#include "writers/word/flow_plan.h"
#include "writers/word/page_layout.h"

#include <QTest>

using namespace quorra;
using namespace quorra::office;

/// The layout of flowing text and of text in cells.
class OfficeLayoutTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesKeepTheirDistance();
    void aSingleLineMakesRoomForItsNeighbours();
    void brokenWordsMoveOnAsAWhole();
    void fullPagesComeCloserTogether();
    void marginsStayUsual();
    void cellsKeepIndents();
    void cellsKeepPlacesAndRowHeights();
    void spaceBetweenBlocksIsKept();
    void columnsBeginWhereTheyDoOnThePage();
    void fullColumnsRunOn();
    void separateBreaksGetParagraphs();
    void textFromTheRightStandsAtTheRight();
    void shortItemsHang();
    void pageNumbersStayAtTheRight();
    void pageHeadersKeepTheirLine();
    void labelsGoWithTheirDrawing();
};

namespace {

// Lines of ten words each, every word 40 points wide with 5 points between, 12 points from line to line.
model::Paragraph linesOf(int count, double left = 72, double top = 100)
{
    model::Paragraph paragraph = fixture::paragraph({}, {left, top, left + 450, top + 10});
    paragraph.lines.clear();
    for (int line = 0; line < count; ++line) {
        const double y = top + 12 * line;
        model::Line made{{left, y, left + 450, y + 10}, y + 8, 0, {}};
        for (int i = 0; i < 10; ++i) {
            model::Word word;
            word.text = QStringLiteral("wordword");
            word.style = testText::styled(fixture::style());
            word.box = {left + 45 * i, y, left + 45 * i + 40, y + 10};
            word.baseline = y + 8;
            made.words.push_back(word);
        }
        paragraph.box = united(paragraph.box, made.box);
        paragraph.lines.push_back(made);
    }
    paragraph.lineDistance = count > 1 ? 12 : 0;
    return paragraph;
}

QString flow(const model::Page &page, const FlowForm &form = flowForms::inColumns)
{
    fixture::Pictures pictures;
    const model::Document document = fixture::document({page});
    return fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeFlow(file, document, pictures, form); });
}

} // namespace

void OfficeLayoutTest::linesKeepTheirDistance()
{
    const LineLayout layout = lineLayout(linesOf(3));
    QCOMPARE(layout.lineHeight, 12.0);
    QCOMPARE(layout.top, 108 - 0.8 * 12);
    QCOMPARE(layout.bottom, 132 + 0.2 * 12);
    model::Paragraph wide = linesOf(2);
    wide.lineDistance = 40; // wider than lines of a text
    QCOMPARE(lineLayout(wide).lineHeight, 0.0);
}

void OfficeLayoutTest::aSingleLineMakesRoomForItsNeighbours()
{
    const model::Paragraph line = linesOf(1);
    QCOMPARE(lineLayout(line).lineHeight, 12.0);
    QCOMPARE(lineLayout(line, 97.0).lineHeight, 11.0);
    QCOMPARE(lineLayout(line, 97.0, 118.0).lineHeight, 10.0);
    QCOMPARE(lineLayout(line, {}, 109.0).lineHeight, 9.5); // never so close that lines touch
}

void OfficeLayoutTest::brokenWordsMoveOnAsAWhole()
{
    model::Paragraph paragraph = linesOf(2);
    QCOMPARE(likelyLines(paragraph, 450), 2);
    QCOMPARE(likelyLines(paragraph, 225), 4);
    paragraph.lines[0].words.back().text = QStringLiteral("word-");
    paragraph.lines[0].words.back().separator = model::Separator::Hyphen;
    paragraph.lines[1].words.pop_back();
    QCOMPARE(likelyLines(paragraph, 450), 2);
    paragraph.lines[1].words.push_back(paragraph.lines[1].words.back());
    QCOMPARE(likelyLines(paragraph, 450), 3); // the whole word no longer fits the first line
}

void OfficeLayoutTest::fullPagesComeCloserTogether()
{
    model::Page page = fixture::page({{72, 72, 522, 720}});
    page.sections[0].blocks = {fixture::block(linesOf(50, 72, 72))};
    FlowPage plan = planPage(page, {}, flowForms::inColumns);
    plan.room = 688;
    QCOMPARE(fitOf(plan).lines, 1.0);
    plan.room = 588;
    const Fit tight = fitOf(plan);
    QVERIFY(tight.lines < 1.0 && tight.lines > 0.9);
    fitToRoom(plan);
    QCOMPARE(plan.sections[0].items[0].lineHeight, tight.lines * 12);
    plan.room = 228;
    QCOMPARE(fitOf(plan).lines, 0.9); // it would not fit anyhow
}

void OfficeLayoutTest::marginsStayUsual()
{
    model::Page page = fixture::page();
    page.content = {400, 300, 540, 310}; // a line of text from right to left
    const Margins margins = pageMargins(fixture::document({page})).front();
    QCOMPARE(margins.left, 72.0);
    QCOMPARE(margins.right, 72.0);
    QCOMPARE(margins.bottom, 144.0);
    page.content = {100, 72, 200, 700};
    QCOMPARE(pageMargins(fixture::document({page})).front().right, 100.0);
}

void OfficeLayoutTest::cellsKeepIndents()
{
    model::Cell cell = fixture::table(1, {QStringLiteral("text")}).cells[0]; // 72 to 172
    cell.paragraphs[0].box = {76, 100, 96, 112};
    QCOMPARE(placedInCell(cell)[0].paragraph.indentLeft, 4.0);
    cell.paragraphs[0].alignment = model::Alignment::Right;
    cell.paragraphs[0].box = {146, 100, 166, 112};
    QCOMPARE(placedInCell(cell)[0].paragraph.indentRight, 6.0);
    QCOMPARE(placedInCell(cell)[0].paragraph.indentLeft, 0.0);
}

void OfficeLayoutTest::cellsKeepPlacesAndRowHeights()
{
    model::Cell cell = fixture::table(1, {QStringLiteral("x")}).cells[0];
    cell.box = {72, 100, 172, 140};
    cell.paragraphs[0].box = {76, 112, 81, 124};
    cell.paragraphs[0].lines[0].box = cell.paragraphs[0].box;
    cell.paragraphs[0].lines[0].baseline = 122;
    const auto high = placedInCell(cell);
    QCOMPARE(high[0].lineHeight, 12.0);
    QVERIFY(std::abs(100.75 + high[0].paragraph.spaceBefore + 0.8 * 12 - 122) < 0.01);
    cell.box = {72, 112.5, 172, 123}; // a row that is lower than a usual line
    const auto low = placedInCell(cell);
    QCOMPARE(low[0].lineHeight, 9.75);
    QVERIFY(low[0].lineHeight + low[0].paragraph.spaceBefore <= cell.box.height());
}

void OfficeLayoutTest::spaceBetweenBlocksIsKept()
{
    model::Page page = fixture::page();
    page.content.top = 100;
    page.sections[0].blocks = {
        {fixture::table(2, {QStringLiteral("a"), QStringLiteral("b")}), 0}, // 100 to 120
        fixture::block(fixture::paragraph(QStringLiteral("after"), {72, 150, 200, 160}))};
    // The baseline is at 158, and 9.6 points of the line are above it.
    QVERIFY(flow(page).contains(QLatin1String("fo:margin-top=\"28.40pt\"")));
}

void OfficeLayoutTest::columnsBeginWhereTheyDoOnThePage()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    model::Paragraph left = fixture::paragraph(QStringLiteral("left"), {72, 72, 300, 84});
    const model::Paragraph right = fixture::paragraph(QStringLiteral("right"), {312, 72, 540, 84});
    page.sections[0].blocks = {fixture::block(left), fixture::block(right, 1)};
    QCOMPARE(flow(page).count(QLatin1String("fo:break-before=\"column\"")), 1);
    // The first paragraph goes on in the second column: what follows it there must not begin a column.
    model::Line taken = right.lines[0];
    left.lines.push_back(taken);
    page.sections[0].blocks[0] = fixture::block(left);
    QCOMPARE(flow(page).count(QLatin1String("fo:break-before=\"column\"")), 0);
}

void OfficeLayoutTest::fullColumnsRunOn()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    page.content.bottom = 720;
    page.sections[0].blocks = {
        fixture::block(fixture::paragraph(QStringLiteral("left"), {72, 708, 300, 720})),
        fixture::block(fixture::paragraph(QStringLiteral("right"), {312, 72, 540, 84}), 1)};
    QCOMPARE(flow(page).count(QLatin1String("fo:break-before=\"column\"")), 0);
}

void OfficeLayoutTest::separateBreaksGetParagraphs()
{
    model::Page page = fixture::page({{72, 72, 300, 720}, {312, 72, 540, 720}});
    page.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("text"), {72, 72, 300, 84}))};
    fixture::Pictures pictures;
    const model::Document document = fixture::document({page, page});
    const auto paragraphs = [&](bool separate) {
        const FlowForm form = separate ? flowForms::inColumns : forOldWord(flowForms::inColumns);
        return fixture::paragraphs(
            fixture::odf(OdfKind::Text, [&](OdfFile &file) { writeFlow(file, document, pictures, form); }));
    };
    QCOMPARE(paragraphs(false), (QStringList{QStringLiteral("text"), QStringLiteral("text")}));
    QCOMPARE(paragraphs(true).count(QString()), 3); // before each page's columns, and between the pages
}

void OfficeLayoutTest::textFromTheRightStandsAtTheRight()
{
    model::Page page = fixture::page();
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("\u05d0\u05d1"), {400, 72, 530, 84});
    paragraph.rightToLeft = true;
    paragraph.alignment = model::Alignment::Right;
    paragraph.indentRight = 10;
    page.sections[0].blocks = {fixture::block(paragraph)};
    const QString text = flow(page);
    QVERIFY(text.contains(QLatin1String("fo:text-align=\"end\"")));
    QVERIFY(text.contains(QLatin1String("style:writing-mode=\"rl-tb\"")));
    QVERIFY(text.contains(QLatin1String("fo:margin-left=\"10.00pt\""))); // before the text
}

void OfficeLayoutTest::shortItemsHang()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(fixture::listItem(QStringLiteral("\u2022 item"), {72, 72, 200, 84}))};
    QVERIFY(flow(page).contains(QLatin1String("fo:margin-left=\"10.00pt\" fo:text-indent=\"-10.00pt\"")));
}

void OfficeLayoutTest::pageNumbersStayAtTheRight()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("body"), {72, 72, 300, 84}))};
    page.footer = {fixture::paragraph(QStringLiteral("7"), {535, 750, 540, 762})};
    QVERIFY(flow(page).contains(QLatin1String("style:position=\"468.00pt\" style:type=\"right\"")));
}

void OfficeLayoutTest::pageHeadersKeepTheirLine()
{
    model::Page page = fixture::page();
    page.sections[0].blocks = {fixture::block(fixture::paragraph(QStringLiteral("body"), {72, 72, 300, 84}))};
    page.header = {fixture::paragraph(QStringLiteral("head"), {72, 30, 540, 42})};
    page.header[0].borderBelow = {{1, 0xff0000}, 5, 0, 468, false};
    const QString text = flow(page);
    QCOMPARE(text.count(QLatin1String("1.00pt solid #ff0000")), 1);
    QVERIFY(text.contains(QLatin1String("fo:padding-bottom=\"5.00pt\"")));
}

void OfficeLayoutTest::labelsGoWithTheirDrawing()
{
    model::Page page = fixture::page();
    model::Figure drawing = fixture::figure({72, 100, 272, 200}, model::FigureKind::Drawing);
    drawing.labels = {fixture::paragraph(QStringLiteral("label"), {100, 110, 160, 122})};
    page.sections[0].blocks = {
        {drawing, 0}, fixture::block(fixture::paragraph(QStringLiteral("after"), {72, 220, 200, 232}))};
    const QString text = flow(page);
    QCOMPARE(text.count(QLatin1String(">label")), 1);
    const QStringList paragraphs = fixture::paragraphs(text);
    QCOMPARE(paragraphs.size(), 2);
    QVERIFY(paragraphs[0].contains(QLatin1String("label"))); // in the picture's own paragraph
    QCOMPARE(paragraphs[1], QStringLiteral("after"));
}

QTEST_APPLESS_MAIN(OfficeLayoutTest)
#include "office_layout_test.moc"
