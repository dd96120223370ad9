// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace pageSegmentation {

struct Thresholds
{
    int maxDepth = 6; ///< of columns within columns; real pages have two or three
};

inline constexpr Thresholds thresholds;

} // namespace pageSegmentation

/// The content of a region in which columns are looked for: its words, and the obstacles (ruled tables, pictures) that
/// no text runs through, each a box with an index that the caller gives it.
struct RegionItems
{
    WordRefs words;
    std::vector<std::pair<Box, std::size_t>> obstacles;
};

/// A part of the page over its whole width, divided into columns; at least one.
struct Band
{
    struct Column
    {
        Box box;
        std::vector<RegionItems> parts; ///< in reading order; one unless the column is divided into bands itself
    };
    std::vector<Column> columns; ///< in reading order: from right to left for text that runs that way
};

/// An empty vertical strip between two columns of text.
struct ColumnGap
{
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// The column gaps of a page.
struct PageGaps
{
    std::vector<ColumnGap> known;    ///< of other pages: fewer lines beside a gap suffice where one of these continues
    std::vector<ColumnGap> found;    ///< on the page
    std::vector<ColumnGap> possible; ///< that would have been found if they had been known
};

/// Page segmentation: divides a page into bands of columns, from top to bottom in reading order, by recursive search
/// for column gaps (see findColumnGap). The strips between the columns of a table and the rivers of loosely set lines
/// are no column gaps. A column that is itself divided into bands keeps their order as parts. Nothing on the page gives
/// no bands. Adds what it finds to `gaps`.
std::vector<Band> segmentPage(RegionItems items, PageGaps &gaps);

/// Whether columns separate words that the tags of the file put on one line of a paragraph.
bool tearTaggedLines(const std::vector<Band> &bands);

} // namespace quorra::model
