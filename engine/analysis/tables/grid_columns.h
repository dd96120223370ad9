// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/rulings.h"
#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace gridColumns {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    double minCellGap = 0.75; ///< em; narrower gaps between words of a line are word spaces
    double minWeakGap = 0.45; ///< em; a gap from this on separates cells where others do; justified text has wide ones
    double minNumberGap = 0.15;  ///< em; a blank between two numbers that cannot be one divides cells
    double weakVote = 0.25;      ///< lines; such a gap counts as so many
    double headVote = 0.5;       ///< lines; a line of the head counts as so many, because heads span columns
    double minBodyLines = 3;     ///< lines under the head; with fewer, the head counts in full
    double minVotes = 1.5;       ///< lines with text on both sides of a strip; one of them agrees by chance
    double minWideVotes = 1;     ///< lines with a wide gap there, or drawn lines
    double minClearVotes = 2;    ///< lines, where no text crosses the strip; so many agree without wide gaps, too
    double maxCrossing = 0.25;   ///< of the lines with a gap there; more lines with text across the strip close it
    double minStrip = 0.3;       ///< em; the narrowest strip between columns, which wide cells nearly close
    double ruleVote = 2;         ///< lines; a vertical line drawn in a part of the table counts as so many
    double minRuleHeight = 0.5;  ///< share of the table's height; a longer vertical line is an edge by itself
    double ruleReach = 3;        ///< points between a drawn line and the strip that it divides
    double minWiderBlank = 1.2;  ///< of the usual blank; in front of texts that begin a column behind numbers
    std::size_t minStarts = 4;   ///< such texts, one below the other; fewer are dates or amounts with units
    double binWidth = 0.5;       ///< points; resolution of the search
    double outerMargin = 1;      ///< points between the outermost texts and the table's left and right edges
    double insideTolerance = 1;  ///< points by which a text that has a column to itself may touch the sides of a strip
    double minHeadNumbers = 0.5; ///< share of the texts beside the first that are numbers in the first line of the body
};

inline constexpr Thresholds thresholds;

} // namespace gridColumns

/// Splits a text line at wide gaps into the texts of cells. A currency sign belongs to the number after it, and a
/// bullet to its text, however far away that is.
std::vector<Segment> cellTexts(const TextLine &line);

/// Whether the word is a currency sign without a number.
bool isCurrencySign(const RawWord &word);

/// The edges of the columns of a table, from left to right, at least two: the outer edges, drawn vertical lines, and
/// the strips in which the lines of text have their gaps. Lines without a wide gap say nothing about columns.
/// `vertical` are drawn lines among the text lines, of which there is at least one.
std::vector<double> findColumnEdges(const std::vector<TextLine> &lines, const std::vector<Rule> &vertical);

} // namespace quorra::model
