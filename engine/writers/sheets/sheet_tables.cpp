// SPDX-License-Identifier: GPL-3.0-or-later
#include "sheet_tables.h"

#include "base/number.h"
#include "cell_value.h"
#include "document/text.h"
#include "odf/font_widths.h"

#include <algorithm>
#include <map>
#include <utility>

namespace quorra::office {

namespace {

/// The texts of the first rows, by row and column.
std::map<std::pair<int, int>, QString> textsOfRows(const model::Table &table, int rows)
{
    std::map<std::pair<int, int>, QString> texts;
    for (const model::Cell &cell : table.cells) {
        if (cell.row < rows) {
            texts[{cell.row, cell.column}] = cellText(cell).simplified();
        }
    }
    return texts;
}

/// Returns the number of rows at the top of the continuation that repeat the head of the table.
int repeatedRows(const model::Table &table, const model::Table &continuation)
{
    const int most = std::min({std::max(table.headerRows, continuation.headerRows), table.rows(), continuation.rows()});
    for (int rows = most; rows > 0; --rows) {
        const bool divided =
            std::any_of(continuation.cells.begin(), continuation.cells.end(), [rows](const model::Cell &cell) {
                return cell.row < rows && cell.row + cell.rowSpan > rows;
            });
        if (!divided && textsOfRows(table, rows) == textsOfRows(continuation, rows)) {
            return rows;
        }
    }
    return 0;
}

/// Returns the width of the widest line of text in each column. A line that ends earlier had at least that much room.
std::vector<double> textWidths(const model::Table &table)
{
    std::vector<double> widths(static_cast<std::size_t>(table.columns()));
    for (const model::Cell &cell : table.cells) {
        for (const model::Paragraph &paragraph : cell.paragraphs) {
            for (const model::Line &line : paragraph.lines) {
                double &width = widths[static_cast<std::size_t>(cell.column)];
                width = std::max(width, cell.columnSpan == 1 ? line.box.width() : 0);
            }
        }
    }
    return widths;
}

bool isNumber(const model::Line &line)
{
    const QString text = model::plainText(line).trimmed();
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); }) && looksNumeric(text);
}

/// Returns whether the line does not end for lack of room, when lines of this width have room in the cell.
bool endsOnPurpose(const model::Line &line, const model::Line &next, double room)
{
    if (next.words.empty() || line.rotation % 180 != 0) {
        return false;
    }
    const model::Word &word = next.words.front();
    const double needed = line.box.width() + usualSpaceWidth * word.style->size + word.box.width();
    return needed < room || isNumber(line) || isNumber(next);
}

/// Adds the texts of that row of the continuation to the cells of the table's last row.
void appendToLastRow(model::Table &table, const model::Table &continuation, int row)
{
    for (const model::Cell &rest : continuation.cells) {
        if (rest.row != row || rest.paragraphs.empty()) {
            continue;
        }
        const auto above = std::find_if(table.cells.begin(), table.cells.end(), [&](const model::Cell &cell) {
            return cell.row + cell.rowSpan == table.rows() && cell.column == rest.column;
        });
        if (above == table.cells.end() || above->paragraphs.empty()) {
            continue;
        }
        auto next = rest.paragraphs.begin();
        std::vector<model::Line> &lines = above->paragraphs.back().lines;
        lines.insert(lines.end(), next->lines.begin(), next->lines.end());
        above->paragraphs.insert(above->paragraphs.end(), next + 1, rest.paragraphs.end());
    }
}

} // namespace

model::Table mirroredTable(model::Table table)
{
    const int columns = table.columns();
    if (columns == 0) {
        return table;
    }
    const double sum = table.columnEdges.front() + table.columnEdges.back();
    std::reverse(table.columnEdges.begin(), table.columnEdges.end());
    for (double &edge : table.columnEdges) {
        edge = sum - edge;
    }
    for (model::Cell &cell : table.cells) {
        cell.column = columns - cell.column - cell.columnSpan;
        std::swap(cell.left, cell.right);
    }
    return table;
}

bool continuesTable(const model::Table &table, const model::Table &continuation)
{
    return table.columns() == continuation.columns() && table.rotation == continuation.rotation && table.rows() > 0 &&
           continuation.rows() > 0;
}

void appendTable(model::Table &table, const model::Table &continuation)
{
    int skipped = repeatedRows(table, continuation);
    if (continuation.continuesRow && skipped < continuation.rows()) {
        appendToLastRow(table, continuation, skipped);
        ++skipped;
    }
    const int shift = table.rows() - skipped;
    const double offset = table.rowEdges.back() - continuation.rowEdges[static_cast<std::size_t>(skipped)];
    for (auto edge = continuation.rowEdges.begin() + skipped + 1; edge != continuation.rowEdges.end(); ++edge) {
        table.rowEdges.push_back(*edge + offset);
    }
    for (model::Cell cell : continuation.cells) {
        if (cell.row >= skipped) {
            cell.row += shift;
            table.cells.push_back(std::move(cell));
        }
    }
}

void keepLineEnds(model::Table &table)
{
    const std::vector<double> widths = textWidths(table);
    for (model::Cell &cell : table.cells) {
        for (model::Paragraph &paragraph : cell.paragraphs) {
            for (std::size_t i = 0; i + 1 < paragraph.lines.size(); ++i) {
                model::Line &line = paragraph.lines[i];
                const double room = widths[static_cast<std::size_t>(cell.column)];
                if (!line.words.empty() && line.words.back().separator == model::Separator::Space &&
                    endsOnPurpose(line, paragraph.lines[i + 1], cell.columnSpan == 1 ? room : 0)) {
                    line.words.back().separator = model::Separator::LineBreak;
                }
            }
        }
    }
}

} // namespace quorra::office
