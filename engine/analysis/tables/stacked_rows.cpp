// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/stacked_rows.h"

#include "base/number.h"
#include "base/statistics.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace quorra::model {

namespace {

using stackedRows::thresholds;

/// A cell with text.
struct Stack
{
    const Cell *cell = nullptr;
    std::vector<TextLine> lines;
    std::size_t numbers = 0; ///< lines that are numbers
    std::size_t wrapped = 0; ///< lines that begin in lower case, but for the first
    std::size_t keys = 0;    ///< lines, but for those for whose first word the line above had no room

    bool isNumeric() const
    {
        return static_cast<double>(numbers) >= thresholds.minNumericLines * static_cast<double>(lines.size());
    }
};

// The space that texts leave at the sides of their cell.
double paddingOf(const Cell &cell, const std::vector<TextLine> &lines)
{
    double padding = cell.box.width();
    for (const TextLine &line : lines) {
        padding = std::min({padding, line.box.left - cell.box.left, cell.box.right - line.box.right});
    }
    return std::max(0.0, padding);
}

bool hadRoom(const TextLine &upper, const TextLine &lower, double width)
{
    return width - upper.box.width() > lower.words.front()->box.width() + thresholds.minBlank * upper.size;
}

Stack stackIn(const Cell &cell, const WordRefs &words)
{
    Stack stack;
    stack.cell = &cell;
    stack.lines = textLinesOf(words);
    const double width = cell.box.width() - 2 * paddingOf(cell, stack.lines);
    for (std::size_t i = 0; i < stack.lines.size(); ++i) {
        const TextLine &line = stack.lines[i];
        stack.numbers += looksNumeric(joinedText(line.words)) ? 1 : 0;
        stack.wrapped += i > 0 && line.words.front()->text.front().isLower() ? 1 : 0;
        stack.keys += i == 0 || hadRoom(stack.lines[i - 1], line, width) ? 1 : 0;
    }
    return stack;
}

bool isStackOfNumbers(const Stack &stack, const std::vector<Stack> &row)
{
    return stack.numbers > 1 && stack.isNumeric() && &stack != &row.front();
}

// How many numbers the highest stack of a row holds.
std::size_t numbersIn(const std::vector<Stack> &row)
{
    std::size_t most = 0;
    for (const Stack &stack : row) {
        most = std::max(most, &stack != &row.front() && stack.isNumeric() ? stack.numbers : 0);
    }
    return most;
}

// Whether numbers stand below one another in a cell, with the keys of their rows in another one. Where all
// rows hold as many numbers, lines that wrap are no keys.
bool hasKeys(const std::vector<Stack> &row, bool regular)
{
    const auto isKey = [&](const Stack &key, const Stack &stack) {
        const bool atLeft = &key == &row.front() || (!key.isNumeric() && key.cell->column < stack.cell->column);
        const std::size_t keys = regular ? key.keys : key.lines.size();
        return atLeft && key.lines.size() > 1 &&
               static_cast<double>(keys) >= thresholds.minKeys * static_cast<double>(stack.numbers);
    };
    return std::any_of(row.begin(), row.end(), [&](const Stack &stack) {
        return isStackOfNumbers(stack, row) &&
               std::any_of(row.begin(), row.end(), [&](const Stack &key) { return isKey(key, stack); });
    });
}

bool isStackOfWords(const std::vector<Stack> &row)
{
    std::vector<double> counts;
    std::size_t wrapped = 0;
    std::size_t several = 0;
    for (const Stack &stack : row) {
        counts.push_back(static_cast<double>(stack.lines.size()));
        wrapped += stack.wrapped;
        several += stack.lines.size() > 1 ? 1 : 0;
    }
    const double usual = median(counts);
    const double all = std::accumulate(counts.begin(), counts.end(), 0.0);
    const auto alike = static_cast<double>(std::count(counts.begin(), counts.end(), usual));
    return several > 1 && usual >= thresholds.minLinesOfWords &&
           static_cast<double>(wrapped) <= thresholds.maxWrapped * all &&
           alike >= thresholds.minAlikeCells * static_cast<double>(counts.size());
}

} // namespace

bool holdsSeveralRows(const TableWords &found)
{
    std::vector<std::vector<Stack>> rows(static_cast<std::size_t>(found.table.rows()));
    for (std::size_t i = 0; i < found.words.size(); ++i) {
        const Cell &cell = found.table.cells[i];
        if (!found.words[i].empty()) {
            rows[static_cast<std::size_t>(cell.row)].push_back(stackIn(cell, found.words[i]));
        }
    }
    // In a grid whose cells hold a number and its share, they all do.
    std::set<std::size_t> heights;
    for (const std::vector<Stack> &row : rows) {
        heights.insert(numbersIn(row));
    }
    heights.erase(0);
    const bool regular = heights.size() < 2;
    const auto stacks = std::count_if(rows.begin(), rows.end(), [](const auto &row) { return numbersIn(row) > 1; });
    const auto keyed = std::count_if(rows.begin(), rows.end(), [&](const auto &row) { return hasKeys(row, regular); });
    return (keyed > 0 && 2 * keyed >= stacks) || std::any_of(rows.begin(), rows.end(), isStackOfWords);
}

} // namespace quorra::model
