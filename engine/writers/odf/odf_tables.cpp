// SPDX-License-Identifier: GPL-3.0-or-later
#include "odf/odf_tables.h"

#include "document/rotation.h"
#include "odf/cell_places.h"

#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

/// Returns the cell that begins at each position of the grid, row by row; null if another cell covers the position.
std::vector<const model::Cell *> cellGrid(const model::Table &table)
{
    std::vector<const model::Cell *> grid(
        static_cast<std::size_t>(table.rows()) * static_cast<std::size_t>(table.columns()), nullptr);
    for (const model::Cell &cell : table.cells) {
        if (cell.row >= 0 && cell.row < table.rows() && cell.column >= 0 && cell.column < table.columns()) {
            *(grid.begin() + cell.row * table.columns() + cell.column) = &cell;
        }
    }
    return grid;
}

QString tableStyle(const Sink &sink, const model::Table &table, const TablePlace &place)
{
    return sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"table"_s}},
         {{"style:table-properties"_L1,
           {{"style:width"_L1, pt(table.columnEdges.back() - table.columnEdges.front())},
            {"fo:margin-left"_L1, pt(place.left)},
            {"fo:margin-top"_L1, pt(place.above)},
            {"table:align"_L1, u"left"_s},
            {"table:border-model"_L1, u"collapsing"_s}}}}});
}

QString rowStyle(const Sink &sink, double height)
{
    return sink.styles.name(
        {"style:style"_L1,
         {{"style:family"_L1, u"table-row"_s}},
         {{"style:table-row-properties"_L1,
           {{"style:min-row-height"_L1, pt(height)}, {"fo:keep-together"_L1, u"always"_s}}}}});
}

/// Returns the rotation of the cell's text if all of it is rotated by 90 or by 270 degrees; otherwise 0.
int textRotation(const model::Cell &cell)
{
    const int rotation = cell.paragraphs.empty() ? 0 : cell.paragraphs.front().rotation;
    const bool same = std::all_of(cell.paragraphs.begin(), cell.paragraphs.end(), [rotation](const auto &paragraph) {
        return paragraph.rotation == rotation;
    });
    return same && rotation % 180 != 0 ? rotation : 0;
}

QString cellStyle(const Sink &sink, const model::Cell &cell)
{
    Attributes properties = {
        {"fo:padding"_L1, u"0pt"_s},
        {"fo:border-left"_L1, borderText(cell.left)},
        {"fo:border-right"_L1, borderText(cell.right)},
        {"fo:border-top"_L1, borderText(cell.top)},
        {"fo:border-bottom"_L1, borderText(cell.bottom)}};
    if (cell.background) {
        properties.emplace_back("fo:background-color"_L1, colourName(*cell.background));
    }
    switch (textRotation(cell)) {
    case 90:
        properties.emplace_back("style:writing-mode"_L1, u"tb-rl"_s);
        break;
    case 270:
        properties.emplace_back("loext:writing-mode"_L1, u"bt-lr"_s);
        break;
    default:
        break;
    }
    return sink.styles.name(
        {"style:style"_L1, {{"style:family"_L1, u"table-cell"_s}}, {{"style:table-cell-properties"_L1, properties}}});
}

/// Writes text that is rotated by 90 or 270 degrees; across its direction, it is where the cell begins.
void writeRotated(const Sink &sink, const model::Cell &cell, ParagraphPlace inside)
{
    inside.exactLeading = false;
    for (model::Paragraph paragraph : cell.paragraphs) {
        paragraph.indentLeft = 0;
        paragraph.indentRight = 0;
        paragraph.firstLineIndent = 0;
        paragraph.spaceBefore = 0;
        writeParagraph(sink, paragraph, inside);
    }
}

void writeCell(const Sink &sink, const model::Cell &cell, const TablePlace &place)
{
    QXmlStreamWriter &xml = sink.xml;
    const XmlElement element(xml, "table:table-cell"_L1);
    xml.writeAttribute("table:style-name"_L1, cellStyle(sink, cell));
    writeSpans(xml, cell);
    ParagraphPlace inside;
    inside.exactLeading = place.exactLeading;
    inside.linesGrow = true;
    inside.inCell = true;
    if (textRotation(cell) != 0) {
        writeRotated(sink, cell, inside);
        return;
    }
    auto original = cell.paragraphs.begin();
    for (const CellParagraph &placed : placedInCell(cell)) {
        inside.lineHeight = placed.lineHeight;
        inside.list = sink.listPlace(*original++);
        writeParagraph(sink, placed.paragraph, inside);
    }
    if (cell.paragraphs.empty()) {
        writeAnchorParagraph(sink, inside);
    }
}

} // namespace

void writeColumn(const Sink &sink, double width)
{
    sink.xml.writeEmptyElement("table:table-column"_L1);
    sink.xml.writeAttribute(
        "table:style-name"_L1, sink.styles.name(
                                   {"style:style"_L1,
                                    {{"style:family"_L1, u"table-column"_s}},
                                    {{"style:table-column-properties"_L1, {{"style:column-width"_L1, pt(width)}}}}}));
}

void writeSpans(QXmlStreamWriter &xml, const model::Cell &cell)
{
    if (cell.columnSpan > 1) {
        xml.writeAttribute("table:number-columns-spanned"_L1, QString::number(cell.columnSpan));
    }
    if (cell.rowSpan > 1) {
        xml.writeAttribute("table:number-rows-spanned"_L1, QString::number(cell.rowSpan));
    }
}

void writeRows(
    QXmlStreamWriter &xml, const model::Table &table, const std::function<XmlElement(int)> &beginRow,
    const std::function<void(const model::Cell &)> &writeCell)
{
    const std::vector<const model::Cell *> grid = cellGrid(table);
    auto cell = grid.begin();
    for (int row = 0; row < table.rows(); ++row) {
        const XmlElement element = beginRow(row);
        for (int column = 0; column < table.columns(); ++column, ++cell) {
            if (*cell) {
                writeCell(**cell);
            } else {
                xml.writeEmptyElement("table:covered-table-cell"_L1);
            }
        }
    }
}

void writeTable(const Sink &sink, const model::Table &table, const TablePlace &place)
{
    if (table.rows() == 0 || table.columns() == 0) {
        return;
    }
    if (table.rotation != 0) {
        writeTable(sink, model::uprightTable(table), place);
        return;
    }
    QXmlStreamWriter &xml = sink.xml;
    const XmlElement element(xml, "table:table"_L1);
    xml.writeAttribute("table:style-name"_L1, tableStyle(sink, table, place));
    for (int column = 0; column < table.columns(); ++column) {
        const auto at = table.columnEdges.begin() + column;
        writeColumn(sink, at[1] - at[0]);
    }
    const int headerRows = place.repeatsHeader ? std::min(table.headerRows, table.rows() - 1) : 0;
    std::optional<XmlElement> header;
    const auto beginRow = [&](int row) {
        if (row == 0 && headerRows > 0) {
            header.emplace(xml, "table:table-header-rows"_L1);
        } else if (row == headerRows) {
            header.reset();
        }
        const auto at = table.rowEdges.begin() + row;
        XmlElement element(xml, "table:table-row"_L1);
        xml.writeAttribute("table:style-name"_L1, rowStyle(sink, at[1] - at[0]));
        return element;
    };
    writeRows(xml, table, beginRow, [&](const model::Cell &cell) { writeCell(sink, cell, place); });
}

} // namespace quorra::office
