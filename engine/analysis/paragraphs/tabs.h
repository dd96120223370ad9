// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "text_lines/text_lines.h"

#include <cstddef>
#include <vector>

namespace quorra::model {

namespace tabs {

/// Lengths in em are multiples of the line's font size.
struct Thresholds
{
    double minGap = 3;           ///< em; justified lines have spaces of up to 2 em
    double minUsualGaps = 3;     ///< times the usual gap of the line and its neighbours; loose lines have wide gaps
    double sameColumnEdge = 2.5; ///< points; what ends so close to the column's right edge is aligned with it
    double centred = 4;          ///< points from the middle of the column to that of text that is centred in it
    double hanging = 0.5;        ///< em; a line that begins so close below the text after a tab continues it
};

inline constexpr Thresholds thresholds;

} // namespace tabs

/// A gap in a text line that no space makes.
struct LineTab
{
    std::size_t end = 0;   ///< index of the last word before the gap
    std::size_t begin = 0; ///< index of the first word after it
    bool leader = false;   ///< the words between the two are dots
};

/// The tabs of line `index`: leaders, and gaps much wider than the other spaces around. The gap after a list mark or a
/// section's number is none; preformatted text has none.
std::vector<LineTab> tabsOf(const std::vector<TextLine> &lines, std::size_t index);

/// Whether the line ends in a leader: a gap to be filled in by hand.
bool endsInLeader(const TextLine &line);

/// The tab stops at which the text after these tabs begins or ends.
std::vector<TabStop> tabStopsOf(const TextLine &line, const std::vector<LineTab> &tabs, const Box &column);

} // namespace quorra::model
