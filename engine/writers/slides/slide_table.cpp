// SPDX-License-Identifier: GPL-3.0-or-later
#include "slide_table.h"

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
    std::size_t maxCells = 1000; ///< cells; larger tables take presentation programs too long
    double padding = 0.3;        ///< points; on each side of a cell's text: 0 is replaced by the default padding
    double rounding = 1;         ///< points; by which a line may be wider than on the page
    double minScale = 0.6;       ///< of font sizes, so that text fits its row; smaller text cannot be read
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

bool isRotated(const model::Table &table)
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
    return cell.paragraphs.empty() ? thresholds.padding : std::max(thresholds.padding, padding);
}

QString cellStyle(const Sink &sink, const model::Cell &cell)
{
    return sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"table-cell"_s}},
         {{"style:graphic-properties"_L1,
           {{"draw:fill"_L1, cell.background ? u"solid"_s : u"none"_s},
            {"draw:fill-color"_L1, colourName(cell.background.value_or(white))},
            {"fo:padding-left"_L1, pt(thresholds.padding)},
            {"fo:padding-right"_L1, pt(paddingRight(cell))},
            {"fo:padding-top"_L1, pt(thresholds.padding)},
            {"fo:padding-bottom"_L1, pt(thresholds.padding)},
            {"draw:textarea-vertical-align"_L1, cell.paragraphs.empty() ? u"middle"_s : verticalAlignment(cell)}}},
          {"style:paragraph-properties"_L1,
           {{"fo:border-left"_L1, borderText(cell.left)},
            {"fo:border-right"_L1, borderText(cell.right)},
            {"fo:border-top"_L1, borderText(cell.top)},
            {"fo:border-bottom"_L1, borderText(cell.bottom)}}}}});
}

/// Returns the paragraph with its indents in the cell.
model::Paragraph inCell(const model::Paragraph &paragraph, const model::Cell &cell)
{
    model::Paragraph placed = paragraph;
    const double left = std::max(0.0, paragraph.box.left - cell.box.left - thresholds.padding);
    placed.indentLeft = paragraph.alignment == model::Alignment::Left ? left : 0;
    placed.indentRight = 0;
    placed.firstLineIndent = 0;
    placed.spaceBefore = std::max(0.0, paragraph.spaceBefore);
    return placed;
}

/// Returns the height that the cell has for each line of its text, without the space between paragraphs.
double roomForLine(const model::Cell &cell, double spaces)
{
    return (cell.box.height() - 2 * thresholds.padding - spaces) / static_cast<double>(lineCount(cell));
}

/// Returns the space between the paragraphs of the cell; none if their lines need it.
double spacesOf(const model::Cell &cell)
{
    double spaces = 0;
    double size = 0;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        spaces += std::max(0.0, paragraph.spaceBefore);
        size = std::max(size, largestSize(paragraph));
    }
    return roomForLine(cell, spaces) < lineHeights.min * size ? 0 : spaces;
}

/// Returns the width of the paragraph's only line; 0 if it has several.
double widthOfLine(const model::Paragraph &paragraph)
{
    if (paragraph.lines.size() != 1 || paragraph.lines.front().words.empty()) {
        return 0;
    }
    const std::vector<model::Word> &words = paragraph.lines.front().words;
    return words.back().box.right - words.front().box.left;
}

/// Writes a paragraph of a cell with lines, and if need be type, that fit the height of its row.
void writeCellParagraph(const Sink &sink, model::Paragraph placed, const model::Cell &cell, double width)
{
    const double size = largestSize(placed);
    const double spaces = spacesOf(cell);
    const double room = roomForLine(cell, spaces);
    placed.spaceBefore = spaces > 0 ? placed.spaceBefore : 0;
    const double available = width - placed.indentLeft;
    const TextFit fit = fittingText(placed, available);
    // A single line that is wider than its cell would wrap.
    const double needed = widthOfLine(placed) + thresholds.rounding;
    const double narrower = needed > available ? available / needed : 1.0;
    const double lower = size > 0 ? room / (lineHeights.min * size) : 1.0;
    const double scale = std::min(fit.scale, std::max(thresholds.minScale, std::min(fit.scale * narrower, lower)));
    const double least = scale * lineHeights.min * size;
    SlideParagraph text{scaledRuns(model::runsOf(placed), scale)};
    text.spacing = fit.spacing;
    text.leading = std::clamp(slideLeading(placed), least, std::max(room, least));
    text.withLinks = false;
    writeSlideParagraph(sink, placed, text);
}

void writeCell(const Sink &sink, const model::Cell &cell)
{
    QXmlStreamWriter &xml = sink.xml;
    const XmlElement element(xml, "table:table-cell"_L1);
    xml.writeAttribute("table:style-name"_L1, cellStyle(sink, cell));
    writeSpans(xml, cell);
    const double width = cell.box.width() - thresholds.padding - paddingRight(cell);
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        writeCellParagraph(sink, inCell(paragraph, cell), cell, width);
    }
    if (cell.paragraphs.empty()) {
        // The paragraph mark of a cell without text takes the usual large size, and the row grows with it.
        model::Paragraph empty;
        empty.lineDistance = 1;
        writeEmptySlideParagraph(sink, empty);
    }
}

} // namespace

bool canBeTable(const model::Table &table)
{
    return table.rows() > 0 && table.columns() > 0 && table.cells.size() <= thresholds.maxCells && !isRotated(table);
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
