// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/cell_columns.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using marginNotes::thresholds;

// The empty strips over the whole height, from left to right. There is at least one word.
std::vector<std::pair<double, double>> emptyStrips(const WordRefs &words, double minWidth)
{
    std::vector<std::pair<double, double>> spans;
    for (const RawWord *word : words) {
        spans.emplace_back(word->box.left, word->box.right);
    }
    std::sort(spans.begin(), spans.end());
    std::vector<std::pair<double, double>> strips;
    double reached = spans.front().second;
    for (const auto &[left, right] : spans) {
        if (left - reached >= minWidth) {
            strips.emplace_back(reached, left);
        }
        reached = std::max(reached, right);
    }
    return strips;
}

// Whether most of the lines share their baseline with none of the others.
bool areIndependent(const std::vector<TextLine> &lines, const std::vector<TextLine> &others)
{
    const auto alone = std::count_if(lines.begin(), lines.end(), [&others](const TextLine &line) {
        return std::none_of(others.begin(), others.end(), [&line](const TextLine &other) {
            return std::abs(other.baseline - line.baseline) <=
                   thresholds.sameBaseline * std::max(line.size, other.size);
        });
    });
    return 2 * static_cast<std::size_t>(alone) > lines.size();
}

} // namespace

std::vector<CellColumn> cellColumns(const WordRefs &words, const Box &cell)
{
    std::vector<CellColumn> whole{{words, cell}};
    const bool rotated =
        std::any_of(words.begin(), words.end(), [](const RawWord *word) { return word->rotation != 0; });
    if (rotated || words.size() < thresholds.minTextLines + thresholds.minNotes) {
        return whole;
    }
    std::vector<double> sizes;
    sizes.reserve(words.size());
    for (const RawWord *word : words) {
        sizes.push_back(word->style.size);
    }
    for (const auto &[from, to] : emptyStrips(words, thresholds.minGap * median(std::move(sizes)))) {
        const double middle = (from + to) / 2;
        CellColumn left{{}, {cell.left, cell.top, middle, cell.bottom}};
        CellColumn right{{}, {middle, cell.top, cell.right, cell.bottom}};
        for (const RawWord *word : words) {
            (word->box.centreX() < middle ? left : right).words.push_back(word);
        }
        const std::vector<TextLine> leftLines = textLinesOf(left.words);
        const std::vector<TextLine> rightLines = textLinesOf(right.words);
        const bool leftIsMargin = leftLines.size() < rightLines.size();
        const std::vector<TextLine> &margin = leftIsMargin ? leftLines : rightLines;
        const std::vector<TextLine> &text = leftIsMargin ? rightLines : leftLines;
        if (text.size() >= thresholds.minTextLines && margin.size() >= thresholds.minNotes &&
            areIndependent(margin, text)) {
            return {std::move(left), std::move(right)};
        }
    }
    return whole;
}

} // namespace quorra::model
