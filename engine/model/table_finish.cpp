// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/model/table_finish.h"

#include "engine/model/build.h"
#include "engine/model/column_alignment.h"
#include "engine/model/paragraphs.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr int mostHeaderRows = 4;

// The fill that was drawn last under the middle of the cell; a page-wide backdrop is none.
std::optional<Colour> backgroundOf(const Cell &cell, const Table &table, const std::vector<Fill> &fills)
{
    for (auto fill = fills.rbegin(); fill != fills.rend(); ++fill) {
        const bool under = fill->box.contains(cell.box.centreX(), cell.box.centreY());
        const bool fits = fill->box.width() <= 1.1 * table.box.width() &&
                          fill->box.height() <= 1.1 * table.box.height() &&
                          fill->box.height() >= 0.4 * cell.box.height();
        if (under && fits) {
            return fill->colour == white ? std::nullopt : std::optional(fill->colour);
        }
    }
    return std::nullopt;
}

// Text in a cell is placed by the blank space on its sides.
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
    constexpr double padding = 6; // points
    if (std::abs(left - right) <= std::max(3.0, 0.12 * cell.width()) && left > padding) {
        paragraph.alignment = Alignment::Centre;
    } else {
        paragraph.alignment = right < left / 2 && left > padding ? Alignment::Right : Alignment::Left;
    }
}

// The largest share of the values that lie close together, and the middle of those.
struct Cluster
{
    double share = 0;
    double middle = 0;
};

Cluster largestCluster(std::vector<double> values)
{
    constexpr double close = 2; // points
    std::sort(values.begin(), values.end());
    Cluster best;
    for (std::size_t from = 0, to = 0; from < values.size(); ++from) {
        while (to < values.size() && values[to] - values[from] <= close) {
            ++to;
        }
        const double share = static_cast<double>(to - from) / static_cast<double>(values.size());
        if (share > best.share) {
            best = {share, (values[from] + values[to - 1]) / 2};
        }
    }
    return best;
}

double sideOf(const Paragraph &paragraph, Alignment alignment)
{
    switch (alignment) {
    case Alignment::Centre:
        return paragraph.box.centreX();
    case Alignment::Right:
        return paragraph.box.right;
    default:
        return paragraph.box.left;
    }
}

bool isSingleLine(const Cell &cell)
{
    return cell.columnSpan == 1 && cell.paragraphs.size() == 1 && cell.paragraphs.front().lines.size() == 1 &&
           cell.paragraphs.front().rotation == 0;
}

bool areNumbers(const std::vector<Paragraph *> &texts)
{
    const auto numbers = std::count_if(
        texts.begin(), texts.end(), [](const Paragraph *text) { return looksNumeric(plainText(text->runs)); });
    return 2 * static_cast<std::size_t>(numbers) > texts.size();
}

// What the texts of a column have in common says more than the blank space around each of them: the cells of a table
// without lines end somewhere between two columns.
void alignColumn(std::vector<Paragraph *> &texts, std::size_t headers, bool ruled, bool first)
{
    constexpr std::size_t fewest = 3;
    constexpr double clearShare = 0.6;
    constexpr double clearLead = 0.1;
    constexpr double onSide = 2; // points
    if (texts.size() < fewest) {
        return;
    }
    Alignment alignment = Alignment::Left;
    Cluster best;
    double second = 0;
    Cluster right;
    for (const Alignment each : {Alignment::Left, Alignment::Right, Alignment::Centre}) {
        std::vector<double> sides;
        sides.reserve(texts.size());
        for (const Paragraph *text : texts) {
            sides.push_back(sideOf(*text, each));
        }
        const Cluster cluster = largestCluster(std::move(sides));
        right = each == Alignment::Right ? cluster : right;
        if (cluster.share > best.share) {
            second = best.share;
            best = cluster;
            alignment = each;
        } else {
            second = std::max(second, cluster.share);
        }
    }
    if (best.share < clearShare) {
        return;
    }
    if (best.share < second + clearLead) {
        // Texts of one width are aligned in every way. Only lines tell by their distance how they are meant; without
        // them numbers stand right, but for the keys in the first column.
        if (ruled) {
            return;
        }
        if (!first && areNumbers(texts) && right.share >= best.share - clearLead) {
            alignment = Alignment::Right;
            best = right;
        }
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const bool there = std::abs(sideOf(*texts[i], alignment) - best.middle) <= onSide;
        if (there || (i >= headers && texts[i]->alignment != Alignment::Justify)) {
            texts[i]->alignment = alignment;
        }
    }
}

void alignColumns(Table &table)
{
    for (int column = 0; column < table.columns(); ++column) {
        std::vector<Paragraph *> texts;
        std::size_t headers = 0;
        for (Cell &cell : table.cells) {
            if (cell.column == column && isSingleLine(cell)) {
                texts.push_back(&cell.paragraphs.front());
                headers += cell.row < table.headerRows ? 1 : 0;
            }
        }
        alignColumn(texts, headers, table.ruled, column == 0);
    }
}

bool isNumericRow(const Table &table, int row)
{
    return std::any_of(table.cells.begin(), table.cells.end(), [row](const Cell &cell) {
        return cell.row == row && cell.column > 0 && !cell.paragraphs.empty() &&
               looksNumeric(plainText(cell.paragraphs.front().runs));
    });
}

bool isBoldRow(const Table &table, int row)
{
    bool any = false;
    for (const Cell &cell : table.cells) {
        for (const Paragraph &paragraph : cell.paragraphs) {
            if (cell.row == row && !paragraph.runs.empty()) {
                any = true;
                if (!paragraph.runs.front().style.bold) {
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
    while (rows < std::min(mostHeaderRows, table.rows()) && !isNumericRow(table, rows)) {
        ++rows;
    }
    const bool numbersFollow = rows > 0 && rows < table.rows() && isNumericRow(table, rows);
    return numbersFollow ? rows : isBoldRow(table, 0) ? 1 : 0;
}

} // namespace

Table finishedTable(TableWords found, const std::vector<Fill> &fills)
{
    Table table = std::move(found.table);
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
        Cell &cell = table.cells[i];
        cell.paragraphs = cellParagraphs(found.words[i], cell.box);
        for (Paragraph &paragraph : cell.paragraphs) {
            alignInCell(paragraph, cell.box);
        }
        cell.background = backgroundOf(cell, table, fills);
    }
    table.headerRows = headerRows(table);
    alignColumns(table);
    return table;
}

} // namespace quorra::model
