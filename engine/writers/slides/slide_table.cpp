// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_table.h"

#include "document/page_walk.h"
#include "odf/cell_places.h"
#include "odf/line_layout.h"
#include "odf/odf_frames.h"
#include "odf/odf_tables.h"
#include "slide_fit.h"
#include "slide_text.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    std::size_t maxCells = 200; ///< cells; larger tables take presentation programs too long
    double rowPadding = 7.2;    ///< points; that presentation programs add above and below the text of a cell together
    double sidePadding = 0.3;   ///< points; 0 is replaced by the default padding
    double clearance = 2;       ///< points; between the table and what follows
};
constexpr Thresholds thresholds;

std::size_t lineCount(const model::Cell &cell)
{
    std::size_t lines = 0;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        lines += std::max<std::size_t>(1, paragraph.lines.size());
    }
    return lines;
}

double sizeOf(const model::Cell &cell)
{
    double size = 0;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        size = std::max(size, largestSize(paragraph));
    }
    return size;
}

double leastHeight(const model::Cell &cell)
{
    return thresholds.rowPadding + static_cast<double>(lineCount(cell)) * lineHeights.min * sizeOf(cell);
}

/// Returns by how much the table is higher than on the page.
double growth(const model::Table &table)
{
    double sum = 0;
    for (int row = 0; row < table.rows(); ++row) {
        double least = 0;
        for (const model::Cell &cell : table.cells) {
            if (cell.row == row && cell.rowSpan == 1) {
                least = std::max(least, leastHeight(cell));
            }
        }
        const auto at = table.rowEdges.begin() + row;
        sum += std::max(0.0, least - (at[1] - at[0]));
    }
    return sum;
}

double spaceBelow(const model::Page &page, const Box &box)
{
    double next = page.height;
    const auto limitBy = [&](const Box &other) {
        if (other.top >= box.bottom - thresholds.clearance && other.left < box.right && other.right > box.left) {
            next = std::min(next, other.top);
        }
    };
    forEachBlock(page, [&](const model::Block &block) { limitBy(block.box()); });
    for (const auto *edge : {&page.header, &page.footer}) {
        for (const model::Paragraph &paragraph : *edge) {
            limitBy(paragraph.box);
        }
    }
    for (const model::Rule &rule : page.rules) {
        if (rule.y1 > box.bottom + thresholds.clearance && rule.x1 < box.right && rule.x2 > box.left) {
            next = std::min(next, rule.y1);
        }
    }
    return next - box.bottom - thresholds.clearance;
}

bool isTurned(const model::Table &table)
{
    return table.rotation != 0 || std::any_of(table.cells.begin(), table.cells.end(), [](const model::Cell &cell) {
               return std::any_of(
                   cell.paragraphs.begin(), cell.paragraphs.end(), [](const auto &each) { return each.rotation != 0; });
           });
}

/// Returns the padding on the right: the smallest distance of right-aligned text from the edge.
double paddingRight(const model::Cell &cell)
{
    double padding = cell.box.width() / 2;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        const bool right = paragraph.alignment == model::Alignment::Right;
        padding = std::min(padding, right ? cell.box.right - paragraph.box.right : 0);
    }
    return cell.paragraphs.empty() ? thresholds.sidePadding : std::max(thresholds.sidePadding, padding);
}

QString cellStyle(const Sink &sink, const model::Cell &cell)
{
    return sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"table-cell"_s}},
         {{"style:graphic-properties"_L1,
           {{"draw:fill"_L1, cell.background ? u"solid"_s : u"none"_s},
            {"draw:fill-color"_L1, colourName(cell.background.value_or(white))},
            {"fo:padding-left"_L1, pt(thresholds.sidePadding)},
            {"fo:padding-right"_L1, pt(paddingRight(cell))},
            {"fo:padding-top"_L1, u"0pt"_s},
            {"fo:padding-bottom"_L1, u"0pt"_s},
            {"draw:textarea-vertical-align"_L1, cell.paragraphs.empty() ? u"middle"_s : verticalAlignment(cell)}}},
          {"style:paragraph-properties"_L1,
           {{"fo:border-left"_L1, borderText(cell.left)},
            {"fo:border-right"_L1, borderText(cell.right)},
            {"fo:border-top"_L1, borderText(cell.top)},
            {"fo:border-bottom"_L1, borderText(cell.bottom)}}}}});
}

/// Returns the paragraph with its indents in the cell and with lines that fit the row.
model::Paragraph inCell(const model::Paragraph &paragraph, const model::Cell &cell)
{
    model::Paragraph placed = paragraph;
    const double left = std::max(0.0, paragraph.box.left - cell.box.left - thresholds.sidePadding);
    placed.indentLeft = paragraph.alignment == model::Alignment::Left ? left : 0;
    placed.indentRight = 0;
    placed.firstLineIndent = 0;
    const double size = largestSize(paragraph);
    const double room = (cell.box.height() - thresholds.rowPadding) / static_cast<double>(lineCount(cell));
    placed.lineDistance =
        std::clamp(slideLeading(paragraph), lineHeights.min * size, std::max(room, lineHeights.min * size));
    placed.spaceBefore = std::max(0.0, paragraph.spaceBefore);
    return placed;
}

void writeCell(const Sink &sink, const model::Cell &cell)
{
    QXmlStreamWriter &xml = sink.xml;
    const XmlElement element(xml, "table:table-cell"_L1);
    xml.writeAttribute("table:style-name"_L1, cellStyle(sink, cell));
    writeSpans(xml, cell);
    const double width = cell.box.width() - thresholds.sidePadding - paddingRight(cell);
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        const model::Paragraph placed = inCell(paragraph, cell);
        const TextFit fit = fittingText(placed, width - placed.indentLeft);
        SlideParagraph text{scaledRuns(model::runsOf(placed), fit.scale), fit.spacing, slideLeading(placed), false};
        writeSlideParagraph(sink, placed, text);
    }
    if (cell.paragraphs.empty()) {
        // The paragraph mark of a cell without text takes the usual large size, and the row grows with it.
        model::Paragraph empty;
        empty.lineDistance = 1;
        writeEmptySlideParagraph(sink, empty);
    }
}

} // namespace

bool fitsAsTable(const model::Page &page, const model::Table &table)
{
    return table.rows() > 0 && table.columns() > 0 && table.cells.size() <= thresholds.maxCells && !isTurned(table) &&
           growth(table) <= std::max(0.0, spaceBelow(page, table.box));
}

void writeSlideTable(const Sink &sink, const model::Table &table)
{
    QXmlStreamWriter &xml = sink.xml;
    const XmlElement frame = beginTableFrame(sink, table.box);
    const XmlElement element(xml, "table:table"_L1);
    for (int column = 0; column < table.columns(); ++column) {
        const auto at = table.columnEdges.begin() + column;
        writeColumn(sink, at[1] - at[0]);
    }
    const auto beginRow = [&](int row) {
        const auto at = table.rowEdges.begin() + row;
        XmlElement line(xml, "table:table-row"_L1);
        xml.writeAttribute(
            "table:style-name"_L1,
            sink.styles.name(
                {"style:style"_L1,
                 {{"style:family"_L1, u"table-row"_s}},
                 {{"style:table-row-properties"_L1, {{"style:row-height"_L1, pt(at[1] - at[0])}}}}}));
        return line;
    };
    writeRows(xml, table, beginRow, [&](const model::Cell &cell) { writeCell(sink, cell); });
}

} // namespace quorra::office
