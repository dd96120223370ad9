// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::model {

namespace columnAlignment {

struct Thresholds
{
    std::size_t minTexts = 3; ///< single lines in a column; fewer agree by chance
    double minShare = 0.6;    ///< share of the texts whose edges agree
    double minLead = 0.1;     ///< share of the texts by which one edge agrees better than the others
};

inline constexpr Thresholds thresholds;

} // namespace columnAlignment

/// Gives the cells of each column the alignment that their texts share: numbers of unequal length agree in their right
/// edges, however much space a single cell has on its sides. Texts that are placed otherwise follow the others of their
/// column, except in header rows. A column in which no edge clearly agrees keeps its alignments.
void alignColumns(Table &table);

} // namespace quorra::model
