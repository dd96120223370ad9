// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

#include <utility>
#include <vector>

namespace quorra::model {

namespace unruledTables {

/// Lengths in em are multiples of the text's font size; see also the thresholds of text_grid.h.
struct Thresholds
{
    double maxRowStep = 2.6;              ///< em; between the baselines of neighbouring rows of one table
    double maxRuledStep = 2 * maxRowStep; ///< em; the same when a rule lies between them
    double maxAlignedStep = 5;            ///< em; the same when their texts line up
    double maxOutdent = 2;                ///< em; between the left edges of a group's heading and of its rows
    std::size_t maxSingles = 2;     ///< consecutive lines of one segment in a table (group headings, wrapped cells)
    std::size_t minLines = 2;       ///< of a table
    std::size_t minLinesOfPart = 3; ///< of a table that is found only between rules across the text
    double maxHeadingStep = 2;      ///< em; from a heading over several columns to the next line
    double minPartRule = 0.9;       ///< share of the text's width; such rules divide it into parts
    double maxWrapStep = 1.3;       ///< em; between the lines of a wrapped cell
    double maxWrapShift = 1;        ///< em; between the left edges of the lines of a wrapped cell
    std::size_t maxWrapped = 8;     ///< consecutive lines that go on inside cells of the line above them
    double minPartGap = 1.3;        ///< of the usual distance of baselines; between a table and text with columns
    std::size_t maxParts = 6;       ///< cuts at such gaps, one inside the other
    std::size_t minConflicts = 2;   ///< lines whose texts run over the edges of columns; fewer are exceptions
    std::size_t maxLinesForConflict = 8; ///< lines of the range for one of them; such a range may be two tables
    double maxConflictsOfPart = 1.0 / 3; ///< of those that its lines have in the whole range; of a table by itself
    double maxHeadWidth = 0.6;       ///< share of the next line's width; of a line that is only a heading of columns
    double minHeadGap = 1.5;         ///< of the widest blank inside the texts of a head; between such texts
    double maxLeaderLines = 1.0 / 3; ///< share of the lines of several texts that have a leader to one; more are a list
};

inline constexpr Thresholds thresholds;

} // namespace unruledTables

/// A table found among text lines: it replaces the lines [firstLine, lastLine].
struct UnruledTable
{
    TableWords found;
    std::size_t firstLine = 0;
    std::size_t lastLine = 0;
};

/// What the text lines are made of.
enum class LinesOf {
    Column, ///< the text of one column of the page
    Page    ///< all text of the page, side by side: only tables with numbers can be distinguished from text
};

/// Finds the tables without lines around their cells in the text lines of a column or page: drawn and typed lines,
/// where there are any, and the alignment of the text show them. Running text, lists, listings and tables of contents
/// are no tables. The result is in order of the lines.
std::vector<UnruledTable>
findUnruledTables(const std::vector<TextLine> &lines, const Rulings &rulings, LinesOf linesOf = LinesOf::Column);

/// The tables that the lines make together, but for text above, between and below them. There is at least one line.
std::vector<UnruledTable> tablesOfLines(const std::vector<TextLine> &lines, const Rulings &rulings);

} // namespace quorra::model
