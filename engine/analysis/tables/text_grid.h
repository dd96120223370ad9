// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/ruled_table.h"

#include <vector>

namespace quorra::model {

/// Rows of text laid into columns by the blank strips that run through them.
class TextGrid
{
public:
    /// The rows of one stretch, at least one; the horizontal rules may lie anywhere.
    TextGrid(std::vector<TextLine> rows, const std::vector<Rule> &horizontal);

    /// Whether this is a table rather than text that happens to have gaps.
    bool looksLikeTable() const;

    /// The table with its words; wrapped lines of a cell are one row.
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
    void layRows();
    void addPiece(GridRow &row, const Segment &segment) const;
    bool isNextCell(const Piece &piece, const RawWord &word) const;
    void widenHeadings();
    std::size_t headRows() const;
    void joinTitle();
    void addBorders(Table &table) const;
    void mergeWrappedRows();
    bool continues(const GridRow &upper, const GridRow &lower, double usualStep) const;
    bool headsTogether(const GridRow &upper, const GridRow &lower) const;
    bool ruleBetween(const GridRow &upper, const GridRow &lower) const;
    int columnAt(double x) const;
    int columns() const { return static_cast<int>(m_edges.size()) - 1; }

    std::vector<TextLine> m_rows;
    std::vector<Rule> m_rules;
    std::vector<double> m_edges; ///< of the columns
    std::vector<GridRow> m_grid;
    bool m_hasTitle = false; ///< the first row
};

} // namespace quorra::model
