// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "tables/rulings.h"
#include "text_lines/text_lines.h"

#include <optional>
#include <vector>

namespace quorra::model {

namespace ruledTables {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    double maxJointGap = 3;          ///< points; between the end of a line and the line that it meets
    std::size_t maxRules = 3'000;    ///< of one direction; more are a drawing, and would take too long to connect
    std::size_t minRulesAcross = 2;  ///< horizontal lines; a table has a top and a bottom
    double minFilledCells = 0.2;     ///< share of the cells; emptier grids are graph paper or drawings
    double minInnerLines = 0.35;     ///< share of the sides between cells; fewer are a drawing of lines that cross
    std::size_t minDividedLines = 3; ///< in a cell that holds columns; fewer lines agree by chance
    double minTableInCell = 0.2;     ///< share of the grid's text; a cell with more may hold the table inside a frame
    std::size_t minDividedCells =
        2;                     ///< cells over several places with gaps in their text; those lines leave columns open
    double minCovered = 0.7;   ///< share of the text inside open lines that their tables must hold
    double minSwallowed = 0.5; ///< share of a grid's text and area; a cell with so much may hold the page
    std::size_t minPageLines = 12; ///< in such a cell; fewer are a long cell
    double minPageHeight = 0.85;   ///< share of the height of the page's text; of lines that may belong to the page
    double minPageRule = 0.6;      ///< share of the grid's width or height; longer lines divide the page then
    double minInside = 0.6;        ///< share of a grid's area in another grid; that much makes it part of a cell's text
};

inline constexpr Thresholds thresholds;

} // namespace ruledTables

namespace splitRows {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    std::size_t minCells = 2; ///< with text; one cell of several lines is a text
    std::size_t minLines = 3; ///< in the fullest cell; two lines are rather a wrapped text
    std::size_t maxExtraLines =
        1;                     ///< baselines beyond those of the fullest cell; more are texts that wrap on their own
    double sameBaseline = 2.5; ///< points; lines of neighbouring cells whose baselines differ by less are one row
    double minFilled = 0.6;    ///< share of cells times baselines that hold a text
    double minDescent = 0.1;   ///< em; from a baseline to the edge of its row at least
};

inline constexpr Thresholds thresholds;

} // namespace splitRows

namespace splitColumns {

struct Thresholds
{
    std::size_t minLines = 3; ///< with a gap; fewer agree by chance
    double minShare = 0.6;    ///< of the lines in a drawn column that have a gap where the others have theirs
    double minNumeric = 0.5;  ///< share of the texts beside the gaps; justified texts in narrow cells have gaps too
};

inline constexpr Thresholds thresholds;

} // namespace splitColumns

namespace splitSpans {

struct Thresholds
{
    double maxReach = 1.5;           ///< points by which a text may reach over the edge of its column
    std::size_t minDividedCells = 2; ///< in a table; in fewer, the texts fill all of the columns between them
};

inline constexpr Thresholds thresholds;

} // namespace splitSpans

/// A table whose cells are known, while their words do not form paragraphs yet.
struct TableWords
{
    Table table;
    std::vector<WordRefs> words; ///< for each cell of the table
    std::optional<int> headRows; ///< how many rows are its head, if the file's tags state it
};

/// Finds the tables that lines draw: grids of crossing rules with text in them. Cells between which no line is drawn
/// are one spanning cell. Outer sides may be
/// open. Words belong to the cell that holds the centre of their body. Where the lines divide some rows or columns
/// only, the text and the `dividers` (see withFillEdges) divide the rest.
std::vector<TableWords> findRuledTables(const Rulings &rulings, const Rulings &dividers, const WordRefs &words);

/// Adds the tables that lines or fills show in part, such as lines across with the same ends or a line under the head
/// that meets lines between columns; the text shows the rest. Nothing that overlaps other tables or the boxes `taken`
/// is added.
void addTablesBetweenRules(
    std::vector<TableWords> &tables, const std::vector<Box> &taken, const Rulings &rulings, const Rulings &dividers,
    const WordRefs &words);

/// Splits columns of a ruled table in which several columns of text are between two drawn lines. Cells without the
/// gap span the new columns.
void splitTextColumns(TableWords &found);

/// Splits cells over several columns in which texts stand side by side, each in one of the columns: lines between
/// columns are often drawn in the head only, or left out in some rows.
void splitOpenSpans(TableWords &found);

/// Splits rows of a ruled table in which only the columns are ruled: where the lines of text in all cells share their
/// baselines and most are numbers, each line becomes a row.
void splitAlignedLines(TableWords &found);

} // namespace quorra::model
