// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

namespace quorra::model {

namespace stackedRows {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    double minLinesOfWords = 4;   ///< in a cell; texts that wrap rarely make as many lines in most cells of a row
    double maxWrapped = 0.5;      ///< share of the lines that begin in lower case; with more, texts wrap
    double minAlikeCells = 0.6;   ///< share of the cells of a row with text that have the same number of lines
    double minNumericLines = 0.5; ///< share of a cell's lines that are numbers; such a cell is a stack of numbers
    double minKeys = 0.6;         ///< of the numbers of a stack; so many lines of another cell are the keys of its rows
    double minBlank = 0.25;       ///< em; a word would fit on the line above with at least this blank before it
};

inline constexpr Thresholds thresholds;

} // namespace stackedRows

/// Whether a drawn row of the grid holds several rows that no lines divide. Numbers stand below one another beside as
/// many keys, which are lines with room for more: a text that wraps fills its lines, and a number with its share below
/// it in one cell has one key. Where some rows of the grid have such keys, most have. Or most cells have as many lines
/// as the median one, which are no wrapped text.
bool holdsSeveralRows(const TableWords &found);

} // namespace quorra::model
