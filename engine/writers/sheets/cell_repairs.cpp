// SPDX-License-Identifier: GPL-3.0-or-later
#include "cell_repairs.h"

#include "cell_value.h"

#include <QRegularExpression>

#include <map>
#include <utility>

namespace quorra::office {

namespace {

struct Thresholds
{
    double minSignGap = 1; ///< em; a sign closer to the text before it belongs to that
};
constexpr Thresholds thresholds;

using CellPlaces = std::map<std::pair<int, int>, std::size_t>; // the index of the cell that begins in a row and column

CellPlaces placesOf(const model::Table &table)
{
    CellPlaces places;
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
        places[{table.cells[i].row, table.cells[i].column}] = i;
    }
    return places;
}

/// Returns the last line of the cell if it ends with a currency sign apart from the text before it, otherwise null.
model::Line *lineWithLateSign(model::Cell &cell)
{
    static const QRegularExpression sign(QStringLiteral("^[A-Z]{0,3}\\p{Sc}$"));
    if (cell.paragraphs.empty() || cell.paragraphs.back().lines.empty()) {
        return nullptr;
    }
    model::Line &line = cell.paragraphs.back().lines.back();
    if (line.words.size() < 2 || line.rotation != 0) {
        return nullptr;
    }
    const model::Word &last = line.words.back();
    const double gap = last.box.left - line.words[line.words.size() - 2].box.right;
    return gap > thresholds.minSignGap * last.style->size && sign.match(last.text).hasMatch() ? &line : nullptr;
}

/// Returns the only line of a cell that begins with a figure, otherwise null.
model::Line *lineWithFigure(model::Cell &cell)
{
    static const QRegularExpression figure(QStringLiteral("^[-(]?[0-9.,]"));
    if (cell.paragraphs.size() != 1 || cell.paragraphs.front().lines.size() != 1) {
        return nullptr;
    }
    model::Line &line = cell.paragraphs.front().lines.front();
    return !line.words.empty() && figure.match(line.words.front().text).hasMatch() ? &line : nullptr;
}

/// Returns the number in a cell like "(3)"; 0 for other text.
int countedNumber(const model::Cell &cell)
{
    static const QRegularExpression pattern(QStringLiteral(R"(^\(([1-9][0-9]?)\)$)"));
    return pattern.match(cellText(cell)).captured(1).toInt();
}

} // namespace

void moveCurrencySigns(model::Table &table)
{
    const CellPlaces places = placesOf(table);
    for (model::Cell &cell : table.cells) {
        const auto next = places.find({cell.row, cell.column + cell.columnSpan});
        model::Line *from = next == places.end() ? nullptr : lineWithLateSign(cell);
        model::Line *to = from ? lineWithFigure(table.cells[next->second]) : nullptr;
        if (to) {
            model::Word sign = std::move(from->words.back());
            from->words.pop_back();
            from->box.right = from->words.back().box.right;
            sign.separator = model::Separator::Space;
            to->words.insert(to->words.begin(), std::move(sign));
        }
    }
}

std::vector<bool> countingCells(const model::Table &table)
{
    const CellPlaces places = placesOf(table);
    std::vector<int> numbers;
    numbers.reserve(table.cells.size());
    for (const model::Cell &cell : table.cells) {
        numbers.push_back(countedNumber(cell));
    }
    std::vector<bool> counting(table.cells.size());
    for (std::size_t i = 0; i < table.cells.size(); ++i) {
        const model::Cell &cell = table.cells[i];
        for (const std::pair<int, int> &after :
             {std::pair(cell.row, cell.column + cell.columnSpan), std::pair(cell.row + cell.rowSpan, cell.column)}) {
            const auto next = places.find(after);
            if (next != places.end() && numbers[i] > 0 && numbers[next->second] == numbers[i] + 1) {
                counting[i] = true;
                counting[next->second] = true;
            }
        }
    }
    return counting;
}

} // namespace quorra::office
