// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/text_grid.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

QString firstWord(const WordRefs &words)
{
    return words.front()->text;
}

bool startsLow(const WordRefs &words)
{
    const QString word = firstWord(words);
    return word.front().isLower() || word.front() == QLatin1Char('(');
}

QString joined(const WordRefs &words)
{
    QString text;
    for (const RawWord *word : words) {
        text += word->text;
    }
    return text;
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

// A row that only goes on with cells of the row above: no key of its own, words in small letters.
bool TextGrid::continues(const GridRow &upper, const GridRow &lower, double usualStep) const
{
    if (ruleBetween(upper, lower) || lower.baseline - upper.baseline > 1.15 * usualStep) {
        return false;
    }
    const bool hasKey = lower.pieces.front().column == 0;
    if (hasKey && lower.pieces.size() > 1) {
        return false;
    }
    bool low = false;
    for (const Piece &piece : lower.pieces) {
        const Piece *above = pieceIn(upper.pieces, piece.column);
        if (!above || above->column != piece.column || looksNumeric(joined(piece.words))) {
            return false;
        }
        low = low || startsLow(piece.words);
    }
    return low || (!hasKey && lower.pieces.size() < upper.pieces.size() && upper.pieces.front().column == 0);
}

// Two lines of a table's head: every cell of the upper one stands over a cell of the lower one.
bool TextGrid::headsTogether(const GridRow &upper, const GridRow &lower) const
{
    if (ruleBetween(upper, lower) || lower.baseline - upper.baseline > 1.6 * std::max(upper.size, lower.size)) {
        return false;
    }
    return std::all_of(upper.pieces.begin(), upper.pieces.end(), [&](const Piece &piece) {
        const Piece *below = pieceIn(lower.pieces, piece.column);
        return below && below->column == piece.column && below->span == piece.span;
    });
}

// How many rows at the top may be the lines of a head: those above the first one with numbers, or, where words stand in
// all cells, above a line. Without either each line is a row of its own.
std::size_t TextGrid::headRows() const
{
    constexpr std::size_t mostLines = 8;
    const auto hasNumbers = [](const GridRow &row) {
        return std::any_of(row.pieces.begin(), row.pieces.end(), [](const Piece &piece) {
            return piece.column > 0 && looksNumeric(joined(piece.words));
        });
    };
    const std::size_t most = std::min(mostLines + 1, m_grid.size());
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
    const std::size_t headEnd = headRows();
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
        const bool inHead = i < headEnd;
        const bool together =
            !merged.empty() && !underTitle &&
            ((inHead && headsTogether(merged.back(), row)) || (!inHead && continues(merged.back(), row, usualStep)));
        if (together) {
            takeIn(merged.back(), row);
        } else {
            merged.push_back(row);
        }
    }
    m_grid = std::move(merged);
}

// The lines between the rows, as borders of the cells that they run along.
void TextGrid::addBorders(Table &table) const
{
    constexpr double edge = 2;            // points by which lines may lie outside the table
    constexpr double coveredShare = 0.55; // of a cell's side
    for (const Rule &rule : m_rules) {
        const double y = rule.y1;
        if (y < table.box.top - edge || y > table.box.bottom + edge) {
            continue;
        }
        const auto nearest = std::min_element(table.rowEdges.begin(), table.rowEdges.end(), [y](double a, double b) {
            return std::abs(a - y) < std::abs(b - y);
        });
        const auto line = static_cast<int>(nearest - table.rowEdges.begin());
        for (Cell &cell : table.cells) {
            const double along = std::min(rule.x2, cell.box.right) - std::max(rule.x1, cell.box.left);
            if (along < coveredShare * cell.box.width()) {
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
    table.rowEdges = {grid.front().box.top - 2};
    for (std::size_t i = 1; i < grid.size(); ++i) {
        table.rowEdges.push_back((grid[i - 1].box.bottom + grid[i].box.top) / 2);
    }
    table.rowEdges.push_back(grid.back().box.bottom + 2);
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
