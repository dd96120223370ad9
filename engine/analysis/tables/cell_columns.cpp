// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/cell_columns.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

constexpr std::size_t fewestRows = 8; // on the side with more of them
constexpr std::size_t fewestRemarks = 3;
constexpr double narrowest = 1; // font sizes
constexpr double sameLine = 0.15;

// Blank strips over the whole height, from left to right.
std::vector<std::pair<double, double>> blankStrips(const WordRefs &words, double leastWidth)
{
    std::vector<std::pair<double, double>> spans;
    for (const RawWord *word : words) {
        spans.emplace_back(word->box.left, word->box.right);
    }
    std::sort(spans.begin(), spans.end());
    std::vector<std::pair<double, double>> strips;
    double reached = spans.front().second;
    for (const auto &[left, right] : spans) {
        if (left - reached >= leastWidth) {
            strips.emplace_back(reached, left);
        }
        reached = std::max(reached, right);
    }
    return strips;
}

// Whether most of the rows stand beside none of the others.
bool areIndependent(const std::vector<TextLine> &rows, const std::vector<TextLine> &others)
{
    const auto alone = std::count_if(rows.begin(), rows.end(), [&others](const TextLine &row) {
        return std::none_of(others.begin(), others.end(), [&row](const TextLine &other) {
            return std::abs(other.baseline - row.baseline) <= sameLine * std::max(row.size, other.size);
        });
    });
    return 2 * static_cast<std::size_t>(alone) > rows.size();
}

} // namespace

std::vector<CellColumn> cellColumns(const WordRefs &words, const Box &cell)
{
    std::vector<CellColumn> whole{{words, cell}};
    const bool turned =
        std::any_of(words.begin(), words.end(), [](const RawWord *word) { return word->rotation != 0; });
    if (turned || words.size() < fewestRows + fewestRemarks) {
        return whole;
    }
    std::vector<double> sizes;
    sizes.reserve(words.size());
    for (const RawWord *word : words) {
        sizes.push_back(word->style.size);
    }
    for (const auto &[from, to] : blankStrips(words, narrowest * median(std::move(sizes)))) {
        const double middle = (from + to) / 2;
        CellColumn left{{}, {cell.left, cell.top, middle, cell.bottom}};
        CellColumn right{{}, {middle, cell.top, cell.right, cell.bottom}};
        for (const RawWord *word : words) {
            (word->box.centreX() < middle ? left : right).words.push_back(word);
        }
        const std::vector<TextLine> leftRows = textLinesOf(left.words);
        const std::vector<TextLine> rightRows = textLinesOf(right.words);
        const bool leftIsMargin = leftRows.size() < rightRows.size();
        const std::vector<TextLine> &margin = leftIsMargin ? leftRows : rightRows;
        const std::vector<TextLine> &text = leftIsMargin ? rightRows : leftRows;
        if (text.size() >= fewestRows && margin.size() >= fewestRemarks && areIndependent(margin, text)) {
            return {std::move(left), std::move(right)};
        }
    }
    return whole;
}

} // namespace quorra::model
