// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/rulings.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace drawnRegions {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    std::size_t maxRules = 3'000;  ///< across; more are a drawing, and would take too long to compare
    double sameEnd = 4;            ///< points; ends of lines under the rows of one table agree to this
    double maxGapAlong = 20;       ///< points between lines side by side that together run across a table
    double minStackWidth = 72;     ///< points; shorter lines underline words
    double maxBand = 800;          ///< points between two lines of one stack
    std::size_t minStackRules = 3; ///< that divide rows: above and below the head, and at the end
    double maxStep = 2.6;          ///< em; from a stack to a line of cells above or below it
    double maxWrapStep = 1;        ///< em; from a row to a line that goes on in one of its cells
    double maxKeyColumn = 0.1;     ///< share of the width; lines that begin farther right are below another cell
    double maxCellLine = 0.6;      ///< share of the width; longer lines without a gap are text below the table
    std::size_t minProseLines = 3; ///< of running text between two lines: they belong to different tables
    std::size_t maxTitleLines = 2; ///< between two tables
    double minBlank = 1.8;         ///< em; above and below such a title, or without one: more than rows leave
    double maxDividedLines = 0.25; ///< share of lines with gaps in running text
    double minProseWidth = 0.5;    ///< share of the width between the lines' ends; of its mean line
    double maxKeyGap = 2;          ///< em; wider gaps left of the numbers divide their keys from other text
    double sameBaseline = 0.2;     ///< em; between the baselines of a row and of its key
    double maxKeyWidth = 1;        ///< of the width of the lines; wider text left of them is a column of the page
    double minKeys = 0.6;          ///< share of the rows with a text left of the lines
    double maxRagged = 0.1;        ///< share of a key's width; full lines of running text end this close to their edge
    double minFullKeys = 0.6;      ///< share of such lines; with more, the texts are running text
};

inline constexpr Thresholds thresholds;

} // namespace drawnRegions

/// The boxes in which lines across or edges of fills with the same ends, one below the other, may divide the rows of a
/// table, together with the lines of cells right above and below them and the keys left of them. Two tables with a
/// title, running text or much blank space between them are two boxes.
std::vector<Box> tableRegions(const Rulings &dividers, const WordRefs &words);

} // namespace quorra::model
