// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

namespace quorra::model {

namespace tableContent {

struct Thresholds
{
    double maxFill = 1.1;           ///< of the table's width and height; larger fills are the page's background
    double minFillHeight = 0.4;     ///< of the cell's height; lower fills are bars or underlines
    double minPadding = 6;          ///< points; text closer to the cell's left side is left-aligned
    double centredTolerance = 0.12; ///< share of the cell's width; between the spaces on both sides of centred text
    double minCentredTolerance = 3; ///< points; the same in narrow cells
    int maxHeaderRows = 4;          ///< more rows without numbers are a table of words
};

inline constexpr Thresholds thresholds;

} // namespace tableContent

/// Turns the words of each cell into paragraphs, with their alignment, sets the cells' backgrounds, and counts the
/// header rows. The paragraphs' styles are added to `styles`.
Table finishedTable(TableWords found, const std::vector<Fill> &fills, StyleTable &styles);

} // namespace quorra::model
