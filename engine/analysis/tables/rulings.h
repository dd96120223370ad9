// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// The straight lines of a page, pieces put together.
struct Rulings
{
    std::vector<Rule> horizontal; ///< from top to bottom
    std::vector<Rule> vertical;   ///< from left to right
};

/// Merges pieces of one line (cells' sides, dashes, both edges of a thin bar) and leaves out what is drawn in white.
Rulings mergeRules(const std::vector<Rule> &rules);

/// Mean of the values in each group of values no further than that from their neighbour, growing.
std::vector<double> clusteredPositions(std::vector<double> values, double tolerance);

} // namespace quorra::model
