// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

#include <vector>

namespace quorra::model {

namespace textGrid {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    // Columns.
    double minCellGap = 0.75;       ///< em; narrower gaps between words of a line are word spaces
    double minColumnGap = 0.3;      ///< em; the narrowest strip between columns, which wide cells nearly close
    double minPieceGap = 0.3;       ///< em; between two words on both sides of a column's edge
    int minLinesForOneCrossing = 4; ///< with so many lines of cells, one of them may cross a gap between columns
    int minLinesForShare = 6;       ///< with so many, a share of them may
    double maxCrossing = 0.15;      ///< that share
    double outerMargin = 1;         ///< points between the outermost texts and the table's left and right edges
    double edgeTolerance = 0.5;     ///< points by which a text may touch the edge of the next column
    double maxSlack = 2;            ///< points by which a text may reach into a neighbouring column at each end
    double maxSlackShare = 1.0 / 3; ///< share of the text's width; the same for narrow texts

    // Headings and titles, by the rules at them.
    double ruleTolerance = 1;       ///< points by which a rule may lie above the baseline of the heading it underlines
    double maxRuleGap = 1.2;        ///< em; from a heading's baseline to the rule under it
    double maxRuleOverhang = 3;     ///< points by which the rule of a heading may reach into the next column
    double maxSpanningRule = 0.9;   ///< share of the table's width; a heading spans the columns over a shorter rule
    double minFullRule = 0.8;       ///< share of the table's width; longer rules open the table under its title
    std::size_t maxTitleLines = 4;  ///< longer texts above a table are paragraphs
    std::size_t maxTitlePieces = 2; ///< in one line of a title, such as "Table 1" and its text
    std::size_t minTitleWords = 5;  ///< fewer words are headings of columns
    std::size_t maxHeaderLines = 8; ///< longer headers are tables of words
    double maxHeaderStep = 1.6;     ///< em; between the baselines of lines of one header row
    double maxWrapStep = 1.15;      ///< of the usual distance of baselines; between the lines of a wrapped cell

    // Tables against text that happens to have gaps.
    double maxWords = 7;            ///< in the mean cell; more are sentences
    double maxWordsOfText = 5;      ///< the same in a table of hardly any numbers
    double minFilled = 0.3;         ///< share of rows times columns that hold a text
    double minFilledOfText = 0.5;   ///< the same in a table of hardly any numbers
    double minAligned = 0.5;        ///< share of the texts that agree in an edge with their column
    double minAlignedOfText = 0.65; ///< the same in a table of hardly any numbers
    double minNumeric = 0.3;        ///< share of the texts; tables with fewer numbers must be more regular
    double mostlyNumeric = 0.5;     ///< share of the texts; a table of numbers may be short
    int minColumnsOfNumbers = 3;    ///< of such a short table
    int minRowsOfNumbers = 2;       ///< with several cells, of such a short table
    int minRows = 3;                ///< with several cells, of any other table

    double rowMargin = 2; ///< points between the outermost lines and the table's upper and lower edge, and to its rules
};

inline constexpr Thresholds thresholds;

} // namespace textGrid

/// Text lines divided into columns by the empty strips that run through them.
class TextGrid
{
public:
    /// Consecutive text lines, at least one. Horizontal rules that do not lie among them are ignored.
    TextGrid(std::vector<TextLine> lines, const std::vector<Rule> &horizontal);

    /// Whether the lines are a table rather than text that happens to have gaps.
    bool looksLikeTable() const;

    /// The table with its words. The lines of a wrapped cell are one row.
    TableWords tableWords() const;

private:
    struct Piece
    {
        WordRefs words;
        Box box;
        int column = 0;
        int span = 1;
    };
    struct GridRow
    {
        std::vector<Piece> pieces;
        Box box;
        double baseline = 0;
        double size = 0;
    };

    void findColumns();
    void fillRows();
    void addPiece(GridRow &row, const Segment &segment) const;
    bool isNextCell(const Piece &piece, const RawWord &word) const;
    void spanHeadings();
    std::size_t headerRows() const;
    void joinTitle();
    void addBorders(Table &table) const;
    void mergeWrappedRows();
    bool continues(const GridRow &upper, const GridRow &lower, double usualStep) const;
    bool isOneHeader(const GridRow &upper, const GridRow &lower) const;
    bool ruleBetween(const GridRow &upper, const GridRow &lower) const;
    int columnAt(double x) const;
    int columns() const { return static_cast<int>(m_edges.size()) - 1; }

    std::vector<TextLine> m_lines;
    std::vector<Rule> m_rules;
    std::vector<double> m_edges; ///< of the columns, from left to right
    std::vector<GridRow> m_grid;
    bool m_hasTitle = false; ///< in the first row of the grid
};

} // namespace quorra::model
