// SPDX-License-Identifier: GPL-3.0-or-later
#include "document_maker.h"
#include "html_pages.h"
#include "test_text.h"
#include "threshold_edges.h"

#include "text/text_writer.h"
#include "writers/html/html_style.h"

using namespace quorra;
using namespace quorra::model;
using namespace thresholdEdges;

namespace {

constexpr double em = 10; // the font size of all text

Style styleOf(double size)
{
    Style style;
    style.size = size;
    return style;
}

/// Lines of the same text.
Paragraph paragraphOf(std::size_t lines)
{
    Paragraph paragraph = DocumentMaker().paragraph(QStringLiteral("one two"));
    for (Word &word : paragraph.lines[0].words) {
        word.style = testText::styled(styleOf(em));
    }
    paragraph.lines.resize(lines, paragraph.lines[0]);
    return paragraph;
}

// ---- HTML

bool isIn(const QString &part, const QString &whole)
{
    return whole.contains(part);
}

/// The declarations of a paragraph with this indent, and with this one of its first line.
QString indented(double left, double first = 0)
{
    Paragraph paragraph = paragraphOf(2);
    paragraph.indentLeft = left;
    paragraph.firstLineIndent = first;
    return paragraphStyle(paragraph, styleOf(em), styleOf(em));
}

/// The declarations of a cell with text of 10 points in height.
QString cellWith(double above, double below)
{
    Cell cell;
    cell.paragraphs = {paragraphOf(1)};
    const Box &text = cell.paragraphs[0].box;
    cell.box = {0, text.top - above, 400, text.bottom + below};
    return cellStyle(cell);
}

/// A page with a table between these edges in a column of 400 points.
bool isTableCentred(double left, double right)
{
    DocumentMaker maker;
    Table table;
    table.columnEdges = {left, right};
    table.rowEdges = {100, 120};
    table.box = {left, 100, right, 120};
    table.cells.resize(1);
    table.cells[0].box = table.box;
    table.cells[0].paragraphs = {paragraphOf(1)};
    maker.page().content = {100, 60, 500, 740};
    maker.add({table, 0});
    return isIn(QStringLiteral("\"middle\""), bodyOf(writtenHtml(maker.document())));
}

/// The page header is on a page of 600 points between margins of 60 points.
bool isHeaderCentred(double left, double right)
{
    DocumentMaker maker;
    Page &page = maker.page();
    page.width = 600;
    page.content = {60, 60, 540, 740};
    Paragraph header = paragraphOf(1);
    header.role = Role::PageHeader;
    header.box = {left, 20, right, 30};
    page.header = {header};
    return isIn(QStringLiteral("text-align:center"), bodyOf(writtenHtml(maker.document())));
}

/// The style sheet of a page whose text begins there.
QString sheetFor(double left, double width)
{
    DocumentMaker maker;
    maker.page().width = width;
    maker.page().content = {left, 60, 540, 740};
    return styleSheet(maker.document(), styleOf(em));
}

QString pointsOf(double value)
{
    return QString::number(std::round(value * 10) / 10) + QStringLiteral("pt");
}

std::vector<Edge> htmlEdges()
{
    return {
        minimum(
            "difference of font sizes", 0.25,
            [](double difference) {
                return isIn(QStringLiteral("font-size"), runStyle(styleOf(em + difference), styleOf(em), false));
            }),
        minimum("indent", 4, [](double left) { return isIn(QStringLiteral("margin-left"), indented(left)); }),
        minimum(
            "indent of a first line", 4,
            [](double first) { return isIn(QStringLiteral("text-indent"), indented(0, first)); }),
        minimum(
            "indent that narrow windows reduce", 24,
            [](double left) { return isIn(QStringLiteral("min("), indented(left)); }),
        maximum("wide indent", 108, [](double left) { return isIn(pointsOf(left), indented(left)); }),
        minimum( // 1.2 em
            "blank in a cell that aligns text in height", 12,
            [](double blank) { return isIn(QStringLiteral("vertical-align"), cellWith(blank / 2, blank / 2)); }),
        minimum(
            "blank above text in the middle", 0.25,
            [](double share) {
                return isIn(QStringLiteral("vertical-align"), cellWith(share * 100, (1 - share) * 100));
            }),
        maximum(
            "blank below text at the bottom", 0.25,
            [](double share) {
                return isIn(QStringLiteral("vertical-align:bottom"), cellWith((1 - share) * 100, share * 100));
            }),
        minimum(
            "width of a border", 0.5,
            [](double width) {
                return isIn(pointsOf(0.6), borderStyle("border", {width + 0.05, black}));
            }),
        minimum("blank beside a centred table", 12, [](double left) { return isTableCentred(100 + left, 500 - left); }),
        maximum( // of 400 points
            "blanks beside a centred table", 0.1, [](double off) { return isTableCentred(200, 400 + off * 400); }),
        maximum( // of 600 points
            "margins of a centred header", 0.1, [](double off) { return isHeaderCentred(200, 400 + off * 600); }),
        minimum(
            "margin of the window", 12, [](double left) { return isIn(pointsOf(left) + u',', sheetFor(left, 600)); }),
        maximum(
            "wide margin of the window", 90,
            [](double left) { return isIn(pointsOf(left) + u',', sheetFor(left, 600)); }),
        minimum(
            "width of the text", 288,
            [](double width) {
                return isIn(QStringLiteral("max-width:") + pointsOf(width), sheetFor(36, width + 72));
            }),
    };
}

// ---- plain text

/// Two items of a list, the second one so far below the first.
QString listWithSpace(double space)
{
    DocumentMaker maker;
    for (int i = 0; i < 2; ++i) {
        Paragraph item = paragraphOf(1);
        item.role = Role::ListItem;
        item.listItem = ListItem{QStringLiteral("one")};
        item.spaceBefore = space;
        maker.add({item, 0});
    }
    return pageAsText(maker.page());
}

/// Three lines, the last of which is so much farther below the second than that below the first.
QString linesWithSteps(double difference)
{
    DocumentMaker maker;
    double baseline = 100;
    for (const double step : {0.0, 20.0, 20.0 + difference}) {
        Paragraph line = maker.paragraph(QStringLiteral("line"));
        baseline += step;
        line.lines[0].baseline = baseline;
        maker.add({line, 0});
    }
    return pageAsText(maker.page());
}

/// How many spaces precede a text in the first column of a table that begins so far to the right of another.
qsizetype spacesFor(double indent)
{
    Table table;
    table.columnEdges = {0, 400};
    table.rowEdges = {0, 20, 40};
    for (int row = 0; row < 2; ++row) {
        Cell cell;
        cell.row = row;
        cell.paragraphs = {paragraphOf(1)};
        cell.paragraphs[0].box.left += row * indent;
        table.cells.push_back(cell);
    }
    return tableAsText(table).count(u' ') - 2; // "one two"
}

std::vector<Edge> textEdges()
{
    return {
        minimum(
            "space between items of two lists", 0.5,
            [](double space) { return isIn(QStringLiteral("\n\n"), listWithSpace(space * em)); }),
        maximum(
            "difference of the distances of lines", 1,
            [](double difference) { return !isIn(QStringLiteral("\n\n"), linesWithSteps(difference)); }),
        minimum( // half a space
            "indent in a table", 0.125, [](double indent) { return spacesFor(indent * em) == 1; }),
        most(
            "spaces of an indent in a table", 12,
            [](double count) { return spacesFor(count * 0.25 * em) == std::lround(count); }),
    };
}

} // namespace

/// The thresholds of the writers of HTML and text.
class WriterEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void html_data() { addRows(m_html); }
    void html() { checkRow(m_html); }
    void text_data() { addRows(m_text); }
    void text() { checkRow(m_text); }

private:
    std::vector<Edge> m_html = htmlEdges();
    std::vector<Edge> m_text = textEdges();
};

QTEST_GUILESS_MAIN(WriterEdgesTest)
#include "writer_edges_test.moc"
