// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/table_content.h"

#include "base/number.h"
#include "document/text.h"
#include "paragraphs/paragraphs.h"
#include "tables/cell_columns.h"
#include "tables/column_alignment.h"
#include "tables/leaders.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using tableContent::thresholds;

// The colour of the fill that was drawn last under the centre of the cell; none for white and for fills of the page.
std::optional<Colour> backgroundOf(const Cell &cell, const Table &table, const std::vector<Fill> &fills)
{
    for (auto fill = fills.rbegin(); fill != fills.rend(); ++fill) {
        const bool under = fill->box.contains(cell.box.centreX(), cell.box.centreY());
        const bool fits = fill->box.width() <= thresholds.maxFill * table.box.width() &&
                          fill->box.height() <= thresholds.maxFill * table.box.height() &&
                          fill->box.height() >= thresholds.minFillHeight * cell.box.height();
        if (under && fits) {
            return fill->colour == white ? std::nullopt : std::optional(fill->colour);
        }
    }
    return std::nullopt;
}

// Takes the alignment of a single line from the space on both sides of it.
void alignInCell(Paragraph &paragraph, const Box &cell)
{
    const double left = paragraph.box.left - cell.left;
    const double right = cell.right - paragraph.box.right;
    paragraph.indentLeft = 0;
    paragraph.indentRight = 0;
    paragraph.firstLineIndent = 0;
    if (paragraph.alignment == Alignment::Justify || paragraph.lines.size() > 1) {
        return;
    }
    const bool padded = left > thresholds.minPadding;
    const double tolerance = std::max(thresholds.minCentredTolerance, thresholds.centredTolerance * cell.width());
    if (padded && std::abs(left - right) <= tolerance) {
        paragraph.alignment = Alignment::Centre;
    } else {
        paragraph.alignment = padded && right < left / 2 ? Alignment::Right : Alignment::Left;
    }
}

void dropLeaders(Paragraph &paragraph)
{
    for (Line &line : paragraph.lines) {
        for (Word &word : line.words) {
            word.text = withoutLeaders(word.text);
        }
    }
}

bool isNumericRow(const Table &table, int row)
{
    return std::any_of(table.cells.begin(), table.cells.end(), [row](const Cell &cell) {
        return cell.row == row && cell.column > 0 && !cell.paragraphs.empty() &&
               looksNumeric(plainText(cell.paragraphs.front()));
    });
}

bool isBoldRow(const Table &table, int row)
{
    bool any = false;
    for (const Cell &cell : table.cells) {
        for (const Paragraph &paragraph : cell.paragraphs) {
            const std::vector<Run> runs = cell.row == row ? runsOf(paragraph) : std::vector<Run>();
            if (!runs.empty()) {
                any = true;
                if (!runs.front().style.bold) {
                    return false;
                }
            }
        }
    }
    return any;
}

int headerRows(const Table &table)
{
    if (table.rows() < 2) {
        return 0;
    }
    int rows = 0;
    while (rows < std::min(thresholds.maxHeaderRows, table.rows()) && !isNumericRow(table, rows)) {
        ++rows;
    }
    const bool numbersFollow = rows > 0 && rows < table.rows() && isNumericRow(table, rows);
    return numbersFollow ? rows : isBoldRow(table, 0) ? 1 : 0;
}

} // namespace

Table finishedTable(TableWords found, const std::vector<Fill> &fills, StyleTable &styles)
{
    Table table = std::move(found.table);
    const std::optional<int> headRows = found.headRows;
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
        Cell &cell = table.cells[i];
        for (const CellColumn &part : cellColumns(found.words[i], cell.box)) {
            for (Paragraph &paragraph : cellParagraphs(part.words, part.box, styles)) {
                if (!table.ruled) {
                    dropLeaders(paragraph);
                }
                alignInCell(paragraph, part.box);
                cell.paragraphs.push_back(std::move(paragraph));
            }
        }
        cell.background = backgroundOf(cell, table, fills);
    }
    table.headerRows = headRows ? *headRows : headerRows(table);
    alignColumns(table);
    return table;
}

} // namespace quorra::model
