// SPDX-License-Identifier: GPL-3.0-or-later
#include "../threshold_edges.h"
#include "office_fixture.h"

#include "odf/cell_places.h"
#include "odf/exact_lines.h"
#include "odf/font_widths.h"
#include "odf/line_layout.h"
#include "odf/odf_paragraphs.h"
#include "odf/placed_page.h"
#include "writers/sheets/sheet_layout.h"
#include "writers/sheets/tab_columns.h"
#include "writers/word/flow_breaks.h"
#include "writers/word/flow_fit.h"
#include "writers/word/flow_plan.h"
#include "writers/word/page_layout.h"
#include "writers/word/page_styles.h"

using namespace quorra;
using namespace quorra::office;
using namespace thresholdEdges;

namespace {

constexpr double em = 10; // the font size of all text

model::Paragraph lineAt(const Box &box)
{
    return fixture::paragraph(QStringLiteral("text"), box);
}

/// A paragraph whose lines are that far apart, at the box of the first one.
model::Paragraph linesAt(const Box &box, std::size_t count, double step = 12)
{
    model::Paragraph paragraph = lineAt(box);
    for (std::size_t i = 1; i < count; ++i) {
        model::Line line = paragraph.lines.back();
        line.box.top += step;
        line.box.bottom += step;
        line.baseline += step;
        paragraph.lines.push_back(line);
    }
    paragraph.box.bottom = paragraph.lines.back().box.bottom;
    paragraph.lineDistance = count > 1 ? step : 0;
    return paragraph;
}

model::Page pageOf(std::vector<model::Block> blocks)
{
    model::Page page = fixture::page();
    page.width = 612;
    page.height = 792;
    page.sections[0].blocks = std::move(blocks);
    return page;
}

QString attribute(const Element &element, const char *name)
{
    for (const auto &[key, value] : element.attributes) {
        if (key == QLatin1String(name)) {
            return value;
        }
    }
    return {};
}

/// The content of a text document and its styles.
QString written(const std::function<void(const Sink &)> &write)
{
    return fixture::odf(OdfKind::Text, [&](OdfFile &file) { write({file.body(), file.styles()}); });
}

// ---- paragraphs

QString marginRight(const model::Paragraph &paragraph)
{
    return attribute(
        paragraphStyle(paragraph, {}, textAttributes(fixture::style())).children.front(), "fo:margin-right");
}

bool isIndentedRight(model::Alignment alignment, std::size_t lines, double indent)
{
    model::Paragraph paragraph = linesAt({72, 100, 500, 112}, lines);
    paragraph.alignment = alignment;
    paragraph.indentRight = indent;
    return marginRight(paragraph) != pt(0);
}

std::vector<Edge> paragraphEdges()
{
    return {
        minimum(
            "right indent of ragged text", 36,
            [](double indent) { return isIndentedRight(model::Alignment::Left, 3, indent); }),
        fewest(
            "lines of ragged text with a right indent", 3,
            [](double lines) { return isIndentedRight(model::Alignment::Left, static_cast<std::size_t>(lines), 60); }),
        minimum(
            "right indent of right-aligned text", 3,
            [](double indent) { return isIndentedRight(model::Alignment::Right, 1, indent); }),
        minimum(
            "height of lines that can grow", 1.15,
            [](double height) {
                ParagraphPlace place;
                place.lineHeight = height * em;
                place.linesGrow = true;
                const Element style =
                    paragraphStyle(lineAt({72, 100, 500, 112}), place, textAttributes(fixture::style()));
                return !attribute(style.children.front(), "style:line-height-at-least").isEmpty();
            }),
    };
}

// ---- cells

/// A cell of 100 x 60 points with one line of text at this distance from its left and upper edge.
model::Cell cellWithTextAt(double left, double top)
{
    model::Cell cell;
    cell.box = {100, 100, 200, 160};
    cell.paragraphs.push_back(lineAt({100 + left, 100 + top, 100 + left + 20, 100 + top + 10}));
    return cell;
}

std::vector<Edge> cellEdges()
{
    return {
        maximum(
            "indent in a cell", 0.6,
            [](double share) {
                return qFuzzyCompare(
                    placedInCell(cellWithTextAt(share * 100, 10)).front().paragraph.indentLeft, share * 100);
            }),
        maximum(
            "text off the middle of its cell", 3,
            [](double off) { return verticalAlignment(cellWithTextAt(10, 25 + off)) == QLatin1String("middle"); }),
        maximum( // the middle is above the cell's, by as much
            "text above the middle of its cell", 3,
            [](double off) { return verticalAlignment(cellWithTextAt(10, 25 - off)) == QLatin1String("middle"); }),
    };
}

// ---- exact lines

qsizetype framesFor(double step)
{
    return written([step](const Sink &sink) {
               writeExactLines(sink, linesAt({72, 100, 172, 110}, 2, step), 612, FrameAnchor::Page);
           })
        .count(QLatin1String("<draw:frame"));
}

/// A line of two words without a space between them, the second one raised.
QString twoWords(double gap, double rise)
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("one two"), {72, 100, 300, 110});
    std::vector<model::Word> &words = paragraph.lines.front().words;
    words[0].separator = model::Separator::None;
    words[1].box.left = words[0].box.right + gap;
    words[1].box.right = words[1].box.left + 15;
    words[1].baseline -= rise;
    return written([&](const Sink &sink) { writeExactLines(sink, paragraph, 612, FrameAnchor::Page); });
}

/// Whether a word that is so much wider than its letters has a letter spacing that fills it.
bool isFilled(double widening)
{
    model::Paragraph paragraph = fixture::paragraph(QStringLiteral("nnnnnnnnnn"), {72, 100, 300, 110});
    model::Word &word = paragraph.lines.front().words.front();
    word.box.right = word.box.left + 10 * em * (0.5 + widening); // the letter is half an em wide
    const QString spacing = QStringLiteral("fo:letter-spacing=\"%1\"").arg(pt(widening * em));
    return written([&](const Sink &sink) { writeExactLines(sink, paragraph, 612, FrameAnchor::Page); })
        .contains(spacing);
}

std::vector<Edge> exactLineEdges()
{
    return {
        minimum("distance of lines in one frame", 0.6, [](double step) { return framesFor(step * em) == 1; }),
        maximum("distance of far lines in one frame", 4, [](double step) { return framesFor(step * em) == 1; }),
        minimum(
            "gap of a space", 0.15,
            [](double gap) {
                return fixture::paragraphs(twoWords(gap * em, 0)) == QStringList{QStringLiteral("one two")};
            }),
        minimum(
            "shift off the baseline", 0.08,
            [](double rise) { return twoWords(0, rise * em).contains(QLatin1String("style:text-position")); }),
        {"wide letter spacing", 0.48, 0.52, true, isFilled}, // rounded to a twentieth of a point
        {"narrow letter spacing", -0.345, -0.325, false, isFilled},
        maximum(
            "height of low lines", 0.4, // a line cannot be lower, however close the one above it
            [](double height) {
                const double baseline = 108 + baselineShare * height * em;
                return qFuzzyCompare(placeLines(108, {baseline}, {em}).front().height, 0.4 * em);
            }),
    };
}

// ---- text blocks

std::size_t blocksFor(const Box &lower)
{
    return textBlocks(pageOf({{lineAt({72, 100, 272, 112}), 0}, {lineAt(lower), 0}}), true).size();
}

std::vector<Edge> textBlockEdges()
{
    return {
        maximum( // lines are 1.2 em apart
            "gap in a text block", 1.8,
            [](double gap) {
                const double top = 112 + gap * 1.2 * em;
                return blocksFor({72, top, 272, top + 12}) == 1;
            }),
        maximum(
            "overlap in a text block", 0.5,
            [](double overlap) {
                const double top = 112 - overlap * 1.2 * em;
                return blocksFor({72, top, 272, top + 12}) == 1;
            }),
        minimum(
            "shared width in a text block", 0.5,
            [](double share) {
                const double left = 272 - share * 100;
                return blocksFor({left, 114, left + 100, 126}) == 1;
            }),
        maximum( // 4 points and 6 % of the width
            "room beside a frame", 4 + 0.06 * 200,
            [](double beside) {
                const Box frame{72, 100, 272, 112};
                const model::Page page =
                    pageOf({{lineAt(frame), 0}, {lineAt({272 + beside, 100, 272 + beside + 50, 112}), 0}});
                return roomyBox(page, frame).right > 272 + 0.999 * beside;
            }),
        maximum(
            "line below its paragraph", 0.5,
            [](double below) {
                model::Paragraph paragraph = linesAt({72, 100, 272, 112}, 2);
                paragraph.box.bottom = paragraph.lines[1].box.bottom - below;
                return lastBaseline(paragraph) == paragraph.lines[1].baseline;
            }),
    };
}

// ---- flowing text

/// Whether the page fits this room without any reduction.
bool fits(const model::Block &block, FlowItem item, double room)
{
    item.block = &block;
    FlowPage page;
    page.room = room;
    page.sections.emplace_back().items = {item};
    const Fit fit = fitOf(page);
    return fit.spaces == 1 && fit.lines == 1;
}

/// The page's lines and spaces when nothing fits.
FlowItem leastOf(double lineHeight, double space)
{
    const model::Block block{lineAt({72, 100, 272, 112}), 0};
    FlowItem item;
    item.block = &block;
    item.lines = 1;
    item.lineHeight = lineHeight;
    item.spaceAbove = space;
    FlowPage page;
    page.sections.emplace_back().items = {item};
    fitToRoom(page);
    return page.sections[0].items[0];
}

FlowItem lineItem()
{
    FlowItem item;
    item.lines = 10;
    item.lineHeight = 12;
    return item;
}

FlowItem pictureItem()
{
    FlowItem item;
    item.height = 50;
    return item;
}

/// Whether the second of two columns begins at a column break if the first one ends that far above the page's last
/// line.
bool beginsColumn(double room)
{
    const Margins margins;
    model::Page page = pageOf({});
    page.sections[0].columns = {{72, 72, 300, 720}, {312, 72, 540, 720}};
    const double end = textEnd(page, margins, {}) - room;
    const double bottom = end - 0.2 * 1.2 * em; // the line is that much lower than its baseline
    page.sections[0].blocks = {{linesAt({72, bottom - 10, 272, bottom + 2}, 1), 0}, {lineAt({312, 72, 512, 84}), 1}};
    return planPage(page, margins, flowForms::inColumns).sections[0].items[1].beginsColumn;
}

/// Whether text in two columns that are not kept has the width of its column.
bool keepsColumnWidth(double lines)
{
    model::Page page = pageOf({});
    page.sections[0].columns = {{72, 72, 300, 720}, {312, 72, 540, 720}};
    page.sections[0].blocks = {
        {linesAt({72, 100, 272, 112}, static_cast<std::size_t>(lines)), 0}, {lineAt({312, 100, 512, 112}), 1}};
    return planPage(page, {}, flowForms::inOneColumn).sections[0].items[0].right == 300;
}

std::vector<Edge> flowEdges()
{
    const static model::Block text{lineAt({72, 100, 272, 112}), 0};
    const static model::Block picture{fixture::figure({72, 100, 272, 150}, model::FigureKind::Image), 0};
    return {
        minimum("height of lines in doubt", 1.08, [](double lines) { return fits(text, lineItem(), lines * 120); }),
        minimum("room around a picture", 3, [](double around) { return fits(picture, pictureItem(), 50 + around); }),
        minimum( // 24 points shrink to half
            "space that shrinks by its share", 24,
            [](double space) { return leastOf(12, space).spaceAbove < 0.499 * space; }),
        {"share of a space that remains", 0.49, 0.51, false,
         [](double share) { return leastOf(12, 20).spaceAbove <= share * 20; }},
        {"share of a line that remains", 0.89, 0.91, false,
         [](double share) { return leastOf(12, 0).lineHeight <= share * 12; }},
        minimum("room below a column that ends", 90, beginsColumn),
        fewest("lines of text in columns", 4, keepsColumnWidth),
        minimum(
            "space that needs a paragraph", 2,
            [](double space) {
                return written([space](const Sink &sink) { FlowBreaks(sink, true).writeSpace(space); })
                    .contains(QLatin1String("<text:p"));
            }),
        maximum( // more than the box of the word, because the font is not known
            "width of text in an unknown font", 1 / 1.1,
            [](double share) {
                model::Paragraph paragraph = fixture::paragraph(QStringLiteral("one two"), {72, 100, 300, 112});
                model::Style style = fixture::style();
                style.family = QStringLiteral("Unheard Of");
                for (model::Word &word : paragraph.lines[0].words) {
                    word.style = testText::styled(style);
                    word.box.right = word.box.left + share * 100;
                }
                return likelyLines(paragraph, 200.01 + usualSpaceWidth * em) == 1;
            }),
    };
}

// ---- pages

qsizetype headerLines(double offset)
{
    model::Page page = pageOf({});
    page.header = {lineAt({72, 40, 172, 50}), lineAt({400, 40 + offset, 500, 50 + offset})};
    const QString text = fixture::odf(OdfKind::Text, [&](OdfFile &file) {
        MasterPages({file.masters(), file.styles()})
            .name(PageStyle{&page, &page, false, model::NumberFormat::Decimal, {}}, Margins{});
    });
    return text.mid(text.indexOf(QLatin1String("<style:header>"))).count(QLatin1String("<text:p "));
}

Margins marginsFor(double left, double top, double width = 612)
{
    model::Page page = pageOf({});
    page.width = width;
    page.content = {left, top, width - 72, 720};
    return pageMargins(fixture::document({page})).front();
}

/// The margins of eleven pages, so many of which begin at 30 points, the others at 60.
Margins marginsOfPages(double count)
{
    std::vector<model::Page> pages(11, pageOf({}));
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const double edge = static_cast<double>(i) < count ? 30 : 60;
        pages[i].content = {edge, edge, 540, 720};
    }
    return pageMargins(fixture::document(pages)).front();
}

std::vector<Edge> pageEdges()
{
    return {
        maximum("parts of a header on one line", 3, [](double offset) { return headerLines(offset) == 1; }),
        minimum("margin of a page", 14, [](double left) { return marginsFor(left, 72).left == left; }),
        maximum( // as wide as the other one, or as usual
            "left margin of a page that is not full", 72,
            [](double left) { return marginsFor(left, 72).left == left; }),
        maximum(
            "top margin of a page that is not full", 144, [](double top) { return marginsFor(72, top).top == top; }),
        maximum( // 72 points remain between margins
            "margin of a narrow page", 50, [](double left) { return marginsFor(left, 72, 172).left == left; }),
        fewest(
            "pages whose side margin is the usual one", 6,
            [](double count) { return marginsOfPages(count).left == 30; }),
        fewest(
            "pages whose top margin is the usual one", 2, [](double count) { return marginsOfPages(count).top == 30; }),
        maximum( // half of the bottom margin, but no more than 48 points
            "room below the last line", 96,
            [](double bottom) {
                const model::Page page = pageOf({});
                return textEnd(page, {72, 72, 72, bottom}, {}) >= page.height - bottom + 0.499 * bottom;
            }),
        maximum( // the text may extend as far as the footer allows, but ends at the margin if that is too close
            "room above a footer", 6,
            [](double gap) {
                return textEnd(pageOf({}), {72, 72, 72, 72}, {lineAt({72, 720 + gap, 172, 740})}) == 720;
            }),
    };
}

// ---- sheets

model::Table narrowTable(double width)
{
    model::Table table = fixture::table(1, {QString(), QString()});
    table.columnEdges = {72, 72 + width};
    return table;
}

double columnWidth(double width)
{
    const model::Table table = narrowTable(width);
    return sheetColumns({&table}).front();
}

double indentFor(double left)
{
    model::Paragraph paragraph = lineAt({72, 100, 172, 112});
    paragraph.indentLeft = left;
    return textIndent(paragraph);
}

/// The indent of the last of these texts of a column, each of which begins that far from the first one.
double cellIndent(const std::vector<double> &starts)
{
    model::Table table = fixture::table(1, QStringList(static_cast<qsizetype>(starts.size()), QStringLiteral("text")));
    for (std::size_t i = 0; i < starts.size(); ++i) {
        table.cells[i].paragraphs[0].box.left += starts[i];
    }
    return sheetIndents(table).back();
}

/// The columns of a line with parts that begin that far from one another.
std::size_t columnsFor(std::size_t parts, double distance)
{
    std::vector<model::Paragraph> line;
    for (std::size_t i = 0; i < parts; ++i) {
        line.push_back(lineAt({distance * static_cast<double>(i), 100, distance * static_cast<double>(i) + 5, 112}));
    }
    return columnsFromParts({line}, 0, 1000).size();
}

std::vector<Edge> sheetEdges()
{
    return {
        minimum("width of a column", 20 - 3.5, [](double width) { return columnWidth(width) > 20.1; }),
        maximum("width of a wide column", 400 - 3.5, [](double width) { return columnWidth(width) < 399.9; }),
        minimum("width of text", 240, [](double width) { return withTextColumn({}, width)[0] > 240.001; }),
        maximum("width of wide text", 480, [](double width) { return withTextColumn({}, width)[0] < 479.999; }),
        minimum(
            "room for a column of text", 20, [](double room) { return withTextColumn({300 - room}, 300).size() == 2; }),
        maximum("height of a row", 409 - 2, [](double height) { return pictureRows(height).size() == 1; }),
        maximum(
            "space above text", 24,
            [](double space) {
                model::Paragraph paragraph = lineAt({72, 100, 172, 112});
                const double plain = textRows(paragraph, 400)[0];
                paragraph.spaceBefore = space;
                return qFuzzyCompare(textRows(paragraph, 400)[0], plain + space);
            }),
        minimum("indent of text", 4, [](double indent) { return indentFor(indent) > 0; }),
        maximum("wide indent of text", 100, [](double indent) { return indentFor(indent) == indent; }),
        minimum(
            "indent in a cell", 4,
            [](double indent) {
                return cellIndent({0, 0, indent}) > 0;
            }),
        maximum(
            "wide indent in a cell", 100,
            [](double indent) {
                return cellIndent({0, 0, indent}) == indent;
            }),
        minimum("distance of columns", 24, [](double distance) { return columnsFor(2, distance) == 2; }),
        most(
            "columns of the parts of a line", 16,
            [](double count) {
                return columnsFor(static_cast<std::size_t>(count), 30) == static_cast<std::size_t>(count);
            }),
        maximum(
            "beginnings of the texts of a column", 1,
            [](double offset) {
                return qFuzzyCompare(cellIndent({0, offset, offset, offset + 10}), offset + 10);
            }),
        fewest( // of 40 texts
            "texts at the edge of a column", 4,
            [](double count) {
                std::vector<double> starts(static_cast<std::size_t>(count), 0);
                starts.resize(39, 20);
                starts.push_back(40);
                return qFuzzyCompare(cellIndent(starts), 40);
            }),
    };
}

} // namespace

/// The thresholds of the writers of ODF, Word and sheets.
class OfficeEdgesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thresholdsDecide_data() { addRows(m_edges); }
    void thresholdsDecide() { checkRow(m_edges); }

private:
    std::vector<Edge> m_edges = joined(
        {paragraphEdges(), cellEdges(), exactLineEdges(), textBlockEdges(), flowEdges(), pageEdges(), sheetEdges()});
};

QTEST_GUILESS_MAIN(OfficeEdgesTest)
#include "office_edges_test.moc"
