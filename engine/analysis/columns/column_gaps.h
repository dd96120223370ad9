// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "columns/page_segmentation.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quorra::model {

namespace columnGaps {

/// What makes an empty strip a gap between columns. Lengths in em are multiples of the region's usual font size.
struct Thresholds
{
    double minWidth = 0.75;    ///< em; narrower strips are word spaces that are below one another by chance
    std::size_t minWords = 12; ///< in the region; fewer are not worth the search
    int maxCandidates = 40;    ///< tallest strips that are judged; a page has fewer, a drawing of dots may have more
    double margin = 0.1;       ///< points by which a gap is extended, against rounding at its upper and lower end
    double sameStrip = 0.5;    ///< share of the height of a strip that overlaps another one; more is the same strip

    double minBinWidth = 2;       ///< points; horizontal resolution of the search, well below the width of a letter
    double minSliceHeight = 2.5;  ///< points; vertical resolution of the search, well below the height of a line
    std::size_t maxBins = 512;    ///< across the region; larger regions are searched with wider bins
    std::size_t maxSlices = 1024; ///< down the region; likewise

    std::size_t minHeight = 5; ///< lines beside a gap on its taller side; the gaps of fewer lines can agree by chance
    std::size_t minJustifiedHeight = 3; ///< the same where the lines of both sides end below one another, too
    std::size_t minLines = 2;           ///< on its other side, and on both sides of the continuation of a known gap
    double minAligned = 0.6;        ///< share of the lines of a side that begin below other ones; else it is a river
    double minAlignedOfKnown = 0.4; ///< the same for a gap that is known from above, below or other pages
    double maxShared = 0.5;    ///< share of the shorter side's lines with a line of the other side on their baseline;
                               ///< more are rows of a table when only one side is running text
    double sameBaseline = 0.1; ///< em; the baselines of a table's row differ by less

    double minLetters = 15;           ///< in the median line of running text; cells of tables are shorter
    double minLettersOfTwoLines = 22; ///< the same for a text of two lines, which says less
    double minLineWidth = 0.45;       ///< share of the text's width that its median line fills
    double maxNumericWords = 1.0 / 3; ///< share of the words; more numbers are a table
    std::size_t stretch = 5;          ///< lines; a side with so many lines of running text in a row is text
    std::size_t minCasedLines = 4;    ///< lines that begin with a letter; fewer do not show how the text continues
    double minGoingOn = 0.15;         ///< share of those that begin with a small letter, in the middle of a sentence
};

inline constexpr Thresholds thresholds;

} // namespace columnGaps

/// The tallest empty strip that divides columns. It has lines that begin below one another on both sides; both sides
/// are running text, or one is and the other is text whose lines do not match, or one is and beside it are obstacles.
/// A strip beside fewer than five lines (three justified ones) is no gap, unless it continues one of the `known` gaps;
/// strips that would be gaps if they were known are added to `possible`. Nothing for text in one column: a missed gap
/// does less harm than a wrong one.
std::optional<ColumnGap>
findColumnGap(const RegionItems &items, const std::vector<ColumnGap> &known, std::vector<ColumnGap> &possible);

/// Whether the gaps stand below one another, on the same page or on different ones.
bool continues(const ColumnGap &gap, const ColumnGap &other);

/// Whether the words form lines of prose: at least two lines, most of them long, with few numbers.
bool areProseLines(const WordRefs &words);

} // namespace quorra::model
