// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_layout.h"

#include "base/number.h"
#include "document/text.h"
#include "odf/cell_places.h"
#include "odf/font_widths.h"
#include "odf/line_breaking.h"
#include "odf/odf_runs.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::Literals::StringLiterals;

namespace quorra::office {

namespace {

struct Thresholds
{
    double minColumnWidth = 20;  ///< points; narrower columns show no text
    double maxColumnWidth = 400; ///< points; wider columns fill the window
    double lineHeight =
        1.22;              ///< em; of the fonts that spreadsheets use, rounded up: cells cut off text that does not fit
    double rowPadding = 2; ///< points; above and below the text of a cell together
    double minRowHeight = 12.8;   ///< points; of an empty row
    double maxRowHeight = 409;    ///< points; Excel has no higher rows
    double minTextWidth = 240;    ///< points; narrower text is hard to read
    double maxTextWidth = 480;    ///< points; so that a line fits into the window
    double maxSpaceAbove = 24;    ///< points; larger ones separate parts of the page
    double minIndent = 4;         ///< points; smaller ones are inaccuracies of the page
    double maxIndent = 100;       ///< points; wider ones leave no room for the text
    double minCommonShare = 0.08; ///< share of the texts of a column that begin at the same place
    double maxOffset = 1;         ///< points; between the beginnings of those texts
};
constexpr Thresholds thresholds;

/// The widths of text in the fonts of the page, with a reserve for others.
TextMeasure textMeasure()
{
    return {
        [](const model::Word &word) {
            const double drawn = word.rotation % 180 == 0 ? word.box.width() : word.box.height();
            return cellReserves.font * std::max(drawn, textWidth(word.text, *word.style).value_or(drawn));
        },
        [](const model::Style &style) { return usualSpaceWidth * style.size; }};
}

int linesAt(const model::Paragraph &paragraph, double width)
{
    return paragraph.preformatted ? static_cast<int>(paragraph.lines.size())
                                  : countLines(unbreakableTexts(paragraph, textMeasure()), LineStrip{width});
}

/// Returns the number of lines of the paragraph in its cell: those on the page, or more if its columns are narrower.
int linesInSheet(const model::Paragraph &paragraph, const model::Cell &cell, const std::vector<double> &columnWidths)
{
    const int lines = std::max(1, static_cast<int>(paragraph.lines.size()));
    const auto end = static_cast<std::size_t>(cell.column) + static_cast<std::size_t>(cell.columnSpan);
    if (end > columnWidths.size() || paragraph.rotation != 0) {
        return lines;
    }
    const double width =
        std::accumulate(columnWidths.begin() + cell.column, columnWidths.begin() + cell.column + cell.columnSpan, 0.0);
    return width < paragraph.box.width() + cellReserves.sidePadding
               ? std::max(lines, linesAt(paragraph, width - cellReserves.sidePadding))
               : lines;
}

double textHeight(const model::Cell &cell, const std::vector<double> &columnWidths)
{
    double height = thresholds.rowPadding;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        height += linesInSheet(paragraph, cell, columnWidths) * thresholds.lineHeight * largestSize(paragraph);
    }
    return height;
}

/// Returns the width that the cell must have at least: that of its longest word, or of its text if that is a figure,
/// which does not wrap.
double leastWidthOf(const model::Cell &cell)
{
    double width = 0;
    for (const model::Paragraph &paragraph : cell.paragraphs) {
        if (paragraph.lines.size() == 1 && looksNumeric(model::plainText(paragraph).trimmed())) {
            width = std::max(width, cellReserves.font * paragraph.box.width());
        }
        for (const UnbreakableText &text : unbreakableTexts(paragraph, textMeasure())) {
            width = std::max(width, text.width);
        }
    }
    return width + cellReserves.sidePadding;
}

/// Returns the width at which a cell of one line is not cut off.
double textWidthOf(const model::Cell &cell)
{
    return cell.paragraphs.front().box.width() * cellReserves.font + cellReserves.sidePadding;
}

/// Returns the leftmost x coordinate at which several texts of a column begin: a single text can begin further left.
double commonStart(std::vector<double> &lefts)
{
    std::sort(lefts.begin(), lefts.end());
    const auto several = std::max<std::size_t>(
        2, static_cast<std::size_t>(std::ceil(thresholds.minCommonShare * static_cast<double>(lefts.size()))));
    for (std::size_t i = 0; i + several <= lefts.size(); ++i) {
        if (lefts[i + several - 1] - lefts[i] <= thresholds.maxOffset) {
            return lefts[i];
        }
    }
    return lefts.empty() ? 0 : lefts.front();
}

/// Returns the heights of as many rows as are needed for this height, all equally high.
std::vector<double> rowsOfHeight(double height)
{
    const double count = std::max(1.0, std::ceil(height / thresholds.maxRowHeight));
    return std::vector<double>(static_cast<std::size_t>(count), std::max(thresholds.minRowHeight, height / count));
}

std::size_t columnsOf(const model::Table &table)
{
    return static_cast<std::size_t>(table.columns());
}

bool isIndentable(const model::Cell &cell)
{
    return cell.columnSpan == 1 && !cell.paragraphs.empty() && !cell.paragraphs.front().rightToLeft &&
           cell.paragraphs.front().rotation == 0 && cell.paragraphs.front().alignment == model::Alignment::Left;
}

} // namespace

bool wrapsInSheet(const model::Cell &cell, const std::vector<double> &columnWidths)
{
    return cell.paragraphs.size() > 1 ||
           (!cell.paragraphs.empty() && linesInSheet(cell.paragraphs.front(), cell, columnWidths) > 1);
}

std::vector<double> sheetColumns(const std::vector<const model::Table *> &tables)
{
    std::vector<double> widths;
    const auto largest =
        std::max_element(tables.begin(), tables.end(), [](const model::Table *a, const model::Table *b) {
            return a->cells.size() < b->cells.size();
        });
    for (const model::Table *table : tables) {
        const std::size_t before = widths.size(); // columns from here on are those of this table alone, so far
        widths.resize(std::max(before, static_cast<std::size_t>(table->columns())));
        const std::size_t own = table == *largest ? 0 : std::max(before, columnsOf(**largest));
        for (std::size_t i = own; i + 1 < table->columnEdges.size(); ++i) {
            widths[i] =
                std::max(widths[i], table->columnEdges[i + 1] - table->columnEdges[i] + cellReserves.sidePadding / 2);
        }
        for (const model::Cell &cell : table->cells) {
            const auto column = static_cast<std::size_t>(cell.column);
            const bool upright = !cell.paragraphs.empty() && cell.paragraphs.front().rotation == 0;
            if (cell.columnSpan == 1 && upright && column < widths.size()) {
                const bool fits = column >= own && !wrapsInSheet(cell);
                widths[column] = std::max(widths[column], fits ? textWidthOf(cell) : leastWidthOf(cell));
            }
        }
    }
    for (double &width : widths) {
        width = std::clamp(width, thresholds.minColumnWidth, thresholds.maxColumnWidth);
    }
    return widths;
}

std::vector<double> sheetRows(const model::Table &table, const std::vector<double> &columnWidths)
{
    std::vector<double> heights;
    for (std::size_t i = 0; i + 1 < table.rowEdges.size(); ++i) {
        heights.push_back(std::max(thresholds.minRowHeight, table.rowEdges[i + 1] - table.rowEdges[i]));
    }
    for (const model::Cell &cell : table.cells) {
        const auto row = static_cast<std::size_t>(cell.row);
        const auto last = row + static_cast<std::size_t>(cell.rowSpan) - 1;
        if (cell.paragraphs.empty() || last >= heights.size()) {
            continue;
        }
        double others = 0; // height of the rows that the cell spans, except the last
        for (std::size_t i = row; i < last; ++i) {
            others += heights[i];
        }
        heights[last] = std::max(heights[last], textHeight(cell, columnWidths) - others);
    }
    for (double &height : heights) {
        height = std::min(height, thresholds.maxRowHeight);
    }
    return heights;
}

std::vector<double> withTextColumn(std::vector<double> tableColumns, double textWidth)
{
    const double wanted = std::clamp(textWidth, thresholds.minTextWidth, thresholds.maxTextWidth);
    const double used = std::accumulate(tableColumns.begin(), tableColumns.end(), 0.0);
    if (wanted - used >= thresholds.minColumnWidth) {
        tableColumns.push_back(wanted - used);
    }
    return tableColumns;
}

std::vector<double> textRows(const model::Paragraph &paragraph, double width)
{
    const int lines = linesAt(paragraph, width - cellReserves.sidePadding - textIndent(paragraph));
    const double lineHeight = thresholds.lineHeight * largestSize(paragraph);
    const double spaceAbove = std::clamp(paragraph.spaceBefore, 0.0, thresholds.maxSpaceAbove);
    return rowsOfHeight(lines * lineHeight + thresholds.rowPadding + spaceAbove);
}

double textIndent(const model::Paragraph &paragraph)
{
    const bool indented = paragraph.alignment == model::Alignment::Left && paragraph.role != model::Role::PageHeader &&
                          paragraph.indentLeft >= thresholds.minIndent;
    return indented ? std::min(paragraph.indentLeft, thresholds.maxIndent) : 0;
}

std::vector<double> pictureRows(double height)
{
    return rowsOfHeight(height + thresholds.rowPadding);
}

QString sheetVerticalAlignment(const model::Cell &cell)
{
    if (cell.paragraphs.empty()) {
        return u"bottom"_s;
    }
    if (cell.paragraphs.front().rotation != 0) {
        return u"middle"_s; // rotated in the table, but upright on the sheet
    }
    return verticalAlignment(cell);
}

std::vector<double> sheetIndents(const model::Table &table)
{
    std::vector<std::vector<double>> lefts(static_cast<std::size_t>(table.columns()));
    for (const model::Cell &cell : table.cells) {
        const auto column = static_cast<std::size_t>(cell.column);
        if (isIndentable(cell) && column < lefts.size()) {
            lefts[column].push_back(cell.paragraphs.front().box.left);
        }
    }
    std::vector<double> starts;
    starts.reserve(lefts.size());
    for (std::vector<double> &values : lefts) {
        starts.push_back(commonStart(values));
    }
    std::vector<double> indents;
    for (const model::Cell &cell : table.cells) {
        const auto column = static_cast<std::size_t>(cell.column);
        const bool counts = isIndentable(cell) && column < starts.size();
        const double indent = counts ? cell.paragraphs.front().box.left - starts[column] : 0;
        indents.push_back(indent < thresholds.minIndent ? 0 : std::min(indent, thresholds.maxIndent));
    }
    return indents;
}

} // namespace quorra::office
