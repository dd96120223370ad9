// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace marginNotes {

/// Lengths in em are multiples of the cell's usual font size.
struct Thresholds
{
    std::size_t minTextLines = 8; ///< on the side with more lines; shorter cells are read line by line
    std::size_t minNotes = 3;     ///< lines on the other side; fewer may be anywhere
    double minGap = 1;            ///< em; narrower strips are word spaces
    double sameBaseline = 0.15;   ///< em; lines whose baselines differ by less are one line
};

inline constexpr Thresholds thresholds;

} // namespace marginNotes

/// A part of a cell that is read by itself.
struct CellColumn
{
    WordRefs words;
    Box box;
};

/// Splits a cell of many lines at an empty strip over its whole height if most lines on one side share no baseline with
/// those on the other: notes in the margin of a form are beside its lines, not in them. Any other cell is one part,
/// and so is one with rotated words.
std::vector<CellColumn> cellColumns(const WordRefs &words, const Box &cell);

} // namespace quorra::model
