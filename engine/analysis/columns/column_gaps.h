// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "columns/page_segmentation.h"

#include <cstddef>
#include <optional>

namespace quorra::model {

namespace columnGaps {

/// What makes an empty strip a gap between columns. Lengths in em are multiples of the region's usual font size.
struct Thresholds
{
    double minWidth = 0.75;    ///< em; narrower strips are word spaces that happen to stand below one another
    std::size_t minWords = 12; ///< in the region; fewer are not worth the search
    int maxCandidates = 6;     ///< tallest strips that are tried; below those a gap is not a column gap
    double margin = 0.1;       ///< points by which a gap is extended, against rounding at its upper and lower end

    double minBinWidth = 2;       ///< points; horizontal resolution of the search, well below the width of a letter
    double minSliceHeight = 2.5;  ///< points; vertical resolution of the search, well below the height of a line
    std::size_t maxBins = 512;    ///< across the region; larger regions are searched with wider bins
    std::size_t maxSlices = 1024; ///< down the region; likewise

    std::size_t minLines = 2;         ///< of running text beside a gap
    double minLetters = 15;           ///< in the median line of running text; cells of tables are shorter
    double minLettersOfTwoLines = 22; ///< the same for a text of two lines, which says less
    double minLineWidth = 0.45;       ///< share of the text's width that its median line fills
    double maxNumericWords = 1.0 / 3; ///< share of the words; more numbers are a table
};

inline constexpr Thresholds thresholds;

} // namespace columnGaps

/// An empty vertical strip between two columns of text.
struct ColumnGap
{
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

/// The tallest empty strip with running text on both of its sides, or with running text on one side and obstacles on
/// the other. Nothing for text in one column.
std::optional<ColumnGap> findColumnGap(const RegionItems &items);

/// Whether the words form lines of prose: at least two lines, most of them long, with few numbers.
bool areProseLines(const WordRefs &words);

} // namespace quorra::model
