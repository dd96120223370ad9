// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

#include <vector>

namespace quorra::model {

namespace textGrid {

/// Lengths in em are multiples of the text's font size.
struct Thresholds
{
    // Cells.
    double minPieceGap = 0.3;       ///< em; between two words on both sides of a column's edge
    double edgeTolerance = 0.5;     ///< points by which a text may touch the edge of the next column
    double maxSlack = 2;            ///< points by which a text may reach into a neighbouring column at each end
    double maxSlackShare = 1.0 / 3; ///< share of the text's width; the same for narrow texts

    // Rules, and headings over several columns.
    double ruleTolerance = 1;       ///< points by which a rule may lie above the baseline of the heading it underlines
    double maxRuleGap = 1.2;        ///< em; from a heading's baseline to the rule under it
    double maxRuleOverhang = 3;     ///< points by which the rule of a heading may reach into the next column
    double maxSpanningRule = 0.9;   ///< share of the table's width; a heading spans the columns over a shorter rule
    double minFullRule = 0.8;       ///< share of the table's width; rules over so much of it divide the whole table
    std::size_t maxTitleLines = 4;  ///< longer texts above a table are paragraphs
    std::size_t maxTitlePieces = 2; ///< in one line of a title, such as "Table 1" and its text
    std::size_t minTitleWords = 5;  ///< fewer words are headings of columns
    std::size_t maxHeaderLines = 8; ///< longer headers are tables of words
    double maxHeaderShare = 0.6;    ///< of the lines that may be head; a rule below more of them is no head's
    double maxFrameGap = 1.5;       ///< em; from the outermost lines of text to the rule that is the table's edge
    double maxFrameWidth = 1.5;     ///< of the width of the text; longer rules belong to the page
    double maxHeaderStep = 1.6;     ///< em; between the baselines of lines of one heading
    double maxOffCentre = 1;        ///< em; between the middles of a heading and of the columns that it is over

    // Rows of several lines.
    double maxWrapStep = 1.15;     ///< of the usual distance of baselines; between the lines of a wrapped cell
    double minRowGap = 1.15;       ///< of the distance of baselines inside a row; between rows that are set apart
    double minInnerStep = 0.9;     ///< em; lines that are closer are beside one another
    double maxInnerStep = 1.4;     ///< em; the same distance, at most
    double maxLinesInBand = 4;     ///< on average between rules; with more, the rules divide groups of rows
    std::size_t minBands = 3;      ///< between rules; fewer are head, body and sum
    std::size_t maxLinesInRow = 8; ///< more are a group of rows
    double minRagged = 0.6;        ///< share of the groups of lines whose columns have unequal numbers of lines
    double maxFirstShare = 0.5;    ///< of the lines of a table that one row may hold

    // Tables against text that happens to have gaps.
    double maxWords = 7;             ///< in the mean cell; more are sentences
    double maxWordsOfText = 5;       ///< the same in a table of hardly any numbers
    double minFilled = 0.3;          ///< share of rows times columns that hold a text
    double minFilledOfText = 0.5;    ///< the same in a table of hardly any numbers
    double maxWordsOfMarks = 2.5;    ///< in the mean cell; short marks may leave most places empty
    double minAlignedOfMarks = 0.85; ///< share of such texts that agree in an edge with their column
    double minFilledOfMarks = 0.1;   ///< share of the places between rules that hold such a text
    double minAligned = 0.5;         ///< share of the texts that agree in an edge with their column
    double minAlignedOfText = 0.65;  ///< the same in a table of hardly any numbers
    double minGapOfText = 1.2; ///< em; the median gap between the texts of a row; blanks in justified text are narrower
    double minNumeric =
        0.35; ///< share of the texts beside the first column; tables with fewer numbers must be more regular
    double mostlyNumeric = 0.5;    ///< share of the texts beside the first column; a table of numbers may be short
    int minColumnsOfNumbers = 3;   ///< of such a short table
    int minRowsOfNumbers = 2;      ///< with several cells, of such a short table
    int minRows = 3;               ///< with several cells, of any other table with numbers
    int minRowsOfText = 4;         ///< with several cells, of a table of words without rules
    std::size_t minFullRules = 2;  ///< over and among the lines; such a table may be as irregular as one of numbers
    double someNumeric = 0.25;     ///< share of the texts beside the first column; text columns contain that many, too
    double maxRagged = 0.15;       ///< share of a column's width; full lines of running text end this close to its edge
    double minFullLines = 0.75;    ///< share of the lines of running text that are full; lines of cells rarely are
    std::size_t minProseLines = 4; ///< in a column of running text
    double minWordsOfProse = 3;    ///< in its mean line
    std::size_t minTextWords = 10; ///< in a line among the rows that is no row but the end of a table
    double minTextWidth = 0.6;     ///< share of the table's width; of such a line
    std::size_t minProseWords = 6; ///< in a text that runs over several columns at an end of the table: not a part

    double sameMargin = 1.5;          ///< points; justified lines begin and end this close to the margins
    double minJustified = 0.75;       ///< share of the lines of justified text that reach both margins
    double evenBlanks = 1;            ///< points by which the blanks of a justified line differ at most
    double maxJustifiedBlank = 8;     ///< em; wider blanks are gaps between columns
    double minEntries = 0.6;          ///< share of the texts in every column of an index that end in page numbers
    std::size_t minRowsSetApart = 3;  ///< under a head between rules; fewer are paragraphs
    std::size_t minTextsSetApart = 4; ///< rows of wrapped texts without any rule; fewer are paragraphs side by side
    double maxWordsOfDivided = 12;    ///< in the mean line of a cell, where such rules divide the rows

    double rowMargin = 2; ///< points between the outermost lines and the table's upper and lower edge, and to its rules
};

inline constexpr Thresholds thresholds;

} // namespace textGrid

/// Text lines divided into columns by drawn lines and by the empty strips that many of the lines share.
class TextGrid
{
public:
    /// Consecutive text lines with words, at least one. Rules that do not lie among them are ignored.
    TextGrid(std::vector<TextLine> lines, const Rulings &rulings);

    /// Whether the lines are a table rather than text that happens to have gaps.
    bool looksLikeTable() const;

    /// Whether a column is running text, whose lines are nearly all full: rather a column of the page.
    bool holdsProse() const;

    /// Whether most texts of each column are words with page numbers after them.
    bool isIndex() const;

    /// Whether some of the texts beside the first column are numbers.
    bool hasNumbers() const;

    /// Whether rules run over the whole table, above or among its lines.
    bool isRuled() const;

    /// Whether its rows are divided by rules over the whole table, or set apart below a head and a rule: a few lines
    /// each.
    bool isDivided() const;

    /// How many lines at the top are no part of the table: a title above the rule that opens it, or running text.
    std::size_t linesBefore() const;
    /// How many lines at the bottom are no part of the table.
    std::size_t linesAfter() const;

    /// The first line of running text among the rows; the number of lines if there is none.
    std::size_t textAmongRows() const;

    /// The number of lines in [from, to) below the head that do not have these columns: texts with a gap between them
    /// are in one column, or a text runs over columns beside others, or a third of the columns or more have no text in
    /// a table of numbers.
    std::size_t conflicts(std::size_t from, std::size_t to) const;

    /// The number of lines with texts in several columns.
    std::size_t linesOfSeveralTexts() const;

    /// Whether the first line is a head: texts beside one another, none of them numbers beside the first one.
    bool startsWithHead() const;

    int columns() const { return static_cast<int>(m_edges.size()) - 1; }

    /// The table with its words. The lines of a wrapped cell are one row.
    TableWords tableWords() const;

private:
    struct Piece
    {
        WordRefs words;
        Box box;
        int column = 0;
        int span = 1;
        int rowSpan = 1;

        int end() const { return column + span; }
    };
    struct GridRow
    {
        std::vector<Piece> pieces;
        Box box;
        double baseline = 0;
        double size = 0;
        bool joined = false; ///< whether a piece is made of texts with a gap between them
    };
    struct HeadCell;

    void fillRows();
    void addPiece(GridRow &row, const Segment &segment) const;
    bool isNextCell(const Piece &piece, const RawWord &word) const;
    void dropEmptyColumns();
    void findFullRules();
    void widenToFrame();
    void divideHeads();
    void joinHeadsWithColumns();
    void spanTitlesOfRows();
    void spanHeadsBetweenLines();
    void spanUnderlinedHeads();
    void spanCentredHeads();
    std::size_t headerLines() const;
    bool standInColumns(std::size_t lines) const;
    bool isHeadBetweenRules(std::size_t first) const;
    bool isNumberedText() const;
    bool isJustifiedText() const;
    bool isText(const GridRow &row) const;
    bool hasRuledHead() const;
    void addBorders(Table &table) const;

    std::vector<GridRow> headRows() const;
    std::vector<HeadCell> headCells() const;
    std::vector<GridRow> bodyRows() const;
    void
    addRowsOfBand(std::vector<GridRow> &rows, std::size_t from, std::size_t to, double rowGap, bool keysWrap) const;
    double stepTo(std::size_t line) const;
    double rowGap() const;
    bool areSetApart() const;
    std::vector<std::pair<std::size_t, std::size_t>> groupsSetApart(double rowGap) const;
    bool wrapInSomeColumns(const std::vector<std::pair<std::size_t, std::size_t>> &groups) const;
    bool canBeOneRow(std::size_t from, std::size_t to, bool keysWrap) const;
    bool wrapsBeside(const GridRow &upper, const GridRow &lower) const;
    bool continues(const GridRow &upper, const GridRow &lower, double usualStep) const;
    bool ruleBetween(const Box &upper, const Box &lower) const;
    int columnAt(double x) const;

    std::vector<TextLine> m_lines;
    Rulings m_rules;
    std::vector<double> m_edges; ///< of the columns, from left to right
    std::vector<GridRow> m_grid;
    std::vector<char> m_ruleAfter; ///< for each line, whether a rule over the whole table lies below it
    bool m_ruleBefore = false;     ///< likewise above the first line
    std::size_t m_headLines = 0;
};

} // namespace quorra::model
