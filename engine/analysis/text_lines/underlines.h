// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <cstddef>

namespace quorra::model {

namespace underlines {

/// Lengths in em are multiples of the font size of the words at the line.
struct Thresholds
{
    double maxDrop = 0.27;       ///< em; from a baseline to the line below it; lower lines are borders
    double minRise = 0.15;       ///< em; from a baseline to the line that strikes its words through
    double maxRise = 0.45;       ///< em; higher lines run above lower case letters
    double minCovered = 0.7;     ///< share of a word's width; a little less than all, for punctuation behind a word
    double maxOverhang = 0.3;    ///< em; lines that extend farther beyond their words are borders
    double minGapBelow = 0.24;   ///< em; words below a line that are closer and no wider than it are denominators
    double maxWordGap = 1;       ///< em; words with wider gaps between them are cells
    double maxWidth = 0.15;      ///< em; thicker lines are bars
    double maxPieceGap = 1;      ///< points between pieces of one line, one for each word
    double sameHeight = 0.3;     ///< points; pieces of one line differ by less
    std::size_t maxRules = 2000; ///< on a page; more are a drawing
};

inline constexpr Thresholds thresholds;

} // namespace underlines

/// Makes horizontal lines under or through words a part of the style of these words and removes them from the rules of
/// the upright page. Borders remain: lines that extend beyond their words, meet vertical lines, or are too far away,
/// and lines under numbers, as in sums. The bars of
/// fractions are no underlines either.
void underlineWords(RawPage &page);

} // namespace quorra::model
