// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// How far words of one line may stand from one another and still be one text. Lengths in em of the larger word.
struct PieceLimits
{
    double gap;         ///< widest space between two words
    double offBaseline; ///< largest distance of their baselines
};

// Superscripts and built-up fractions stand up to 0.7 em off the baseline.
constexpr PieceLimits textLimits{3, 0.7};       ///< justified lines have spaces of up to 2 em, tabs are wider
constexpr PieceLimits pageHeaderLimits{2, 0.7}; ///< a title and a page number are texts of their own
constexpr PieceLimits labelLimits{1, 0.7};      ///< labels of drawings stand close to one another
constexpr PieceLimits contentsLimits{1.5, 0.7}; ///< between an entry of a table of contents and its page number

/// The space between two words of an upright line, whichever of them is on the left, in em of the larger one; negative
/// where they overlap.
double wordGap(const Word &word, const Word &next);

/// Whether two words that follow one another in an upright line are separate texts.
bool isApart(const Word &word, const Word &next, const PieceLimits &limits);

/// The line cut where words stand apart; the line itself where it is turned. A piece lies on the line's baseline, or,
/// if that is too far off, on that of its first word.
std::vector<Line> linePieces(const Line &line, const PieceLimits &limits);

} // namespace quorra::model
