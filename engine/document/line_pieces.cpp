// SPDX-License-Identifier: GPL-3.0-or-later
#include "document/line_pieces.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

// The baseline of the first of the largest words, because a piece may begin with a footnote mark.
double baselineOf(const Line &piece)
{
    const auto largest = std::max_element(piece.words.begin(), piece.words.end(), [](const Word &a, const Word &b) {
        return a.style->size < b.style->size;
    });
    return largest->baseline;
}

} // namespace

double wordGap(const Word &word, const Word &next)
{
    const double gap = std::max(next.box.left - word.box.right, word.box.left - next.box.right);
    return gap / std::max(word.style->size, next.style->size);
}

bool isApart(const Word &word, const Word &next, const PieceLimits &limits)
{
    const double size = std::max(word.style->size, next.style->size);
    return wordGap(word, next) > limits.gap || std::abs(next.baseline - word.baseline) > limits.offBaseline * size;
}

std::vector<Line> linePieces(const Line &line, const PieceLimits &limits)
{
    if (line.rotation != 0 || line.words.empty()) {
        return {line};
    }
    std::vector<Line> pieces;
    for (const Word &word : line.words) {
        if (pieces.empty() || isApart(pieces.back().words.back(), word, limits)) {
            pieces.push_back({word.box, 0, line.rotation, {}});
        }
        pieces.back().words.push_back(word);
        pieces.back().box = united(pieces.back().box, word.box);
    }
    for (Line &piece : pieces) {
        piece.baseline = pieces.size() == 1 ? line.baseline : baselineOf(piece);
    }
    return pieces;
}

} // namespace quorra::model
