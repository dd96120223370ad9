// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// The largest distances between words of one line that are one text. Lengths in em of the larger word.
struct PieceLimits
{
    double gap;         ///< between two words
    double offBaseline; ///< between their baselines
};

// Superscripts and stacked fractions are up to 0.7 em off the baseline.
constexpr PieceLimits textLimits{3, 0.7};       ///< justified lines have spaces of up to 2 em, tabs are wider
constexpr PieceLimits pageHeaderLimits{2, 0.7}; ///< a title and a page number are texts of their own
constexpr PieceLimits labelLimits{1, 0.7};      ///< labels of drawings are close to one another

/// The space between two words of an upright line in any order, in em of the larger one; negative if they overlap.
double wordGap(const Word &word, const Word &next);

/// Whether two consecutive words of an upright line are separate texts.
bool isApart(const Word &word, const Word &next, const PieceLimits &limits);

/// Splits an upright line into separate texts; other lines are returned whole. Several pieces have the baseline of the
/// first of their largest words.
std::vector<Line> linePieces(const Line &line, const PieceLimits &limits);

} // namespace quorra::model
