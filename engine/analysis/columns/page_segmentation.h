// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

/// What stands on a page when columns are looked for: words, and boxes that text does not run through (ruled tables,
/// pictures), by their index.
struct RegionItems
{
    WordRefs words;
    std::vector<std::pair<Box, std::size_t>> obstacles;
};

/// A band of the page cut into columns; a band without a cut has one.
struct Band
{
    struct Column
    {
        Box box;
        std::vector<RegionItems> parts; ///< in reading order; one unless the column is cut in itself
    };
    std::vector<Column> columns; ///< from left to right
};

/// Cuts a page into bands of columns, from top to bottom in reading order. A blank strip is a gap between columns
/// only when running text stands on both of its sides; the gaps of tables are none. A column that is
/// itself cut into bands keeps their order as parts.
std::vector<Band> segmentPage(RegionItems items);

} // namespace quorra::model
