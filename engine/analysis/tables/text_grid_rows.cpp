// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/rulings.h"
#include "tables/text_grid.h"

#include "base/number.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

using textGrid::thresholds;

bool startsInLowerCase(const WordRefs &words)
{
    const QChar first = words.front()->text.front();
    return first.isLower() || first == QLatin1Char('(');
}

template <typename Pieces>
const auto *pieceIn(const Pieces &pieces, int column)
{
    const auto found = std::find_if(pieces.begin(), pieces.end(), [column](const auto &piece) {
        return piece.column <= column && column < piece.column + piece.span;
    });
    return found == pieces.end() ? nullptr : &*found;
}

} // namespace

bool TextGrid::ruleBetween(const GridRow &upper, const GridRow &lower) const
{
    return std::any_of(m_rules.begin(), m_rules.end(), [&](const Rule &rule) {
        return rule.y1 > upper.box.centreY() && rule.y1 < lower.box.centreY();
    });
}

// Whether the lower row only continues cells of the upper one: it has no key in the first column, and begins in lower
// case or has fewer cells.
bool TextGrid::continues(const GridRow &upper, const GridRow &lower, double usualStep) const
{
    if (ruleBetween(upper, lower) || lower.baseline - upper.baseline > thresholds.maxWrapStep * usualStep) {
        return false;
    }
    const bool hasKey = lower.pieces.front().column == 0;
    if (hasKey && lower.pieces.size() > 1) {
        return false;
    }
    bool lowerCase = false;
    for (const Piece &piece : lower.pieces) {
        const Piece *above = pieceIn(upper.pieces, piece.column);
        if (!above || above->column != piece.column || looksNumeric(joinedText(piece.words))) {
            return false;
        }
        lowerCase = lowerCase || startsInLowerCase(piece.words);
    }
    return lowerCase || (!hasKey && lower.pieces.size() < upper.pieces.size() && upper.pieces.front().column == 0);
}

// Whether two rows are lines of one header row: every cell of the upper one is above a cell of the lower one.
bool TextGrid::isOneHeader(const GridRow &upper, const GridRow &lower) const
{
    if (ruleBetween(upper, lower) ||
        lower.baseline - upper.baseline > thresholds.maxHeaderStep * std::max(upper.size, lower.size)) {
        return false;
    }
    return std::all_of(upper.pieces.begin(), upper.pieces.end(), [&](const Piece &piece) {
        const Piece *below = pieceIn(lower.pieces, piece.column);
        return below && below->column == piece.column && below->span == piece.span;
    });
}

// How many rows at the top may be lines of one header row: those above the first row with numbers, or, in a table of
// words, those above a rule. Without either, each line is a row of its own.
std::size_t TextGrid::headerRows() const
{
    const auto hasNumbers = [](const GridRow &row) {
        return std::any_of(row.pieces.begin(), row.pieces.end(), [](const Piece &piece) {
            return piece.column > 0 && looksNumeric(joinedText(piece.words));
        });
    };
    const std::size_t most = std::min(thresholds.maxHeaderLines + 1, m_grid.size());
    for (std::size_t i = 0; i < most; ++i) {
        if (hasNumbers(m_grid[i])) {
            return i;
        }
    }
    for (std::size_t i = m_hasTitle ? 2 : 1; i < most; ++i) {
        if (ruleBetween(m_grid[i - 1], m_grid[i])) {
            return i;
        }
    }
    return 0;
}

void TextGrid::mergeWrappedRows()
{
    std::vector<double> steps;
    for (std::size_t i = 1; i < m_grid.size(); ++i) {
        steps.push_back(m_grid[i].baseline - m_grid[i - 1].baseline);
    }
    const double usualStep = median(steps);
    const std::size_t headerEnd = headerRows();
    const auto takeIn = [](GridRow &upper, const GridRow &lower) {
        for (const Piece &piece : lower.pieces) {
            const auto home = std::find_if(upper.pieces.begin(), upper.pieces.end(), [&piece](const Piece &p) {
                return p.column == piece.column;
            });
            if (home == upper.pieces.end()) {
                upper.pieces.push_back(piece);
            } else {
                home->words.insert(home->words.end(), piece.words.begin(), piece.words.end());
                home->box = united(home->box, piece.box);
            }
        }
        std::sort(upper.pieces.begin(), upper.pieces.end(), [](const Piece &a, const Piece &b) {
            return a.column < b.column;
        });
        upper.box = united(upper.box, lower.box);
        upper.baseline = lower.baseline;
    };
    std::vector<GridRow> merged;
    for (std::size_t i = 0; i < m_grid.size(); ++i) {
        const GridRow &row = m_grid[i];
        const bool underTitle = m_hasTitle && merged.size() < 2;
        const bool inHeader = i < headerEnd;
        const bool together =
            !merged.empty() && !underTitle &&
            ((inHeader && isOneHeader(merged.back(), row)) || (!inHeader && continues(merged.back(), row, usualStep)));
        if (together) {
            takeIn(merged.back(), row);
        } else {
            merged.push_back(row);
        }
    }
    m_grid = std::move(merged);
}

// Makes the rules between the rows borders of the cells along which they run.
void TextGrid::addBorders(Table &table) const
{
    for (const Rule &rule : m_rules) {
        const double y = rule.y1;
        if (y < table.box.top - thresholds.rowMargin || y > table.box.bottom + thresholds.rowMargin) {
            continue;
        }
        const auto nearest = std::min_element(table.rowEdges.begin(), table.rowEdges.end(), [y](double a, double b) {
            return std::abs(a - y) < std::abs(b - y);
        });
        const auto line = static_cast<int>(nearest - table.rowEdges.begin());
        for (Cell &cell : table.cells) {
            const double along = std::min(rule.x2, cell.box.right) - std::max(rule.x1, cell.box.left);
            if (along < rulings::thresholds.minCoveredSide * cell.box.width()) {
                continue;
            }
            if (cell.row == line) {
                cell.top = {rule.width, rule.colour};
            }
            if (cell.row + cell.rowSpan == line) {
                cell.bottom = {rule.width, rule.colour};
            }
        }
    }
}

TableWords TextGrid::tableWords() const
{
    TextGrid merged(*this);
    merged.mergeWrappedRows();
    const std::vector<GridRow> &grid = merged.m_grid;
    TableWords result;
    Table &table = result.table;
    table.columnEdges = m_edges;
    table.rowEdges = {grid.front().box.top - thresholds.rowMargin};
    for (std::size_t i = 1; i < grid.size(); ++i) {
        table.rowEdges.push_back((grid[i - 1].box.bottom + grid[i].box.top) / 2);
    }
    table.rowEdges.push_back(grid.back().box.bottom + thresholds.rowMargin);
    table.box = {m_edges.front(), table.rowEdges.front(), m_edges.back(), table.rowEdges.back()};
    for (std::size_t r = 0; r < grid.size(); ++r) {
        for (int column = 0; column < columns();) {
            const Piece *piece = pieceIn(grid[r].pieces, column);
            Cell cell;
            cell.row = static_cast<int>(r);
            cell.column = column;
            cell.columnSpan = piece ? piece->span : 1;
            const int end = column + cell.columnSpan;
            cell.box = {
                m_edges[static_cast<std::size_t>(column)], table.rowEdges[r], m_edges[static_cast<std::size_t>(end)],
                table.rowEdges[r + 1]};
            table.cells.push_back(cell);
            result.words.push_back(piece ? piece->words : WordRefs());
            column += cell.columnSpan;
        }
    }
    addBorders(table);
    return result;
}

} // namespace quorra::model
