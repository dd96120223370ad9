// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/lattice.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorra::model {

namespace {

using lattice::thresholds;

// The share of [from, to] that the line covers; negative when it ends before or begins after.
double covered(double from, double to, double lineFrom, double lineTo)
{
    return (std::min(to, lineTo) - std::max(from, lineFrom)) / (to - from);
}

// The edges of the grid in one direction: positions of the lines across it, and the ends of the lines along it where a
// side is open.
std::vector<double> edges(
    const std::vector<Rule> &across, const std::vector<Rule> &along, double Rule::*at, double Rule::*from,
    double Rule::*to)
{
    std::vector<double> values;
    values.reserve(across.size());
    for (const Rule &rule : across) {
        values.push_back(rule.*at);
    }
    values = clusteredPositions(std::move(values), thresholds.sameEdge);
    double first = std::numeric_limits<double>::max();
    double last = std::numeric_limits<double>::lowest();
    for (const Rule &rule : along) {
        first = std::min(first, rule.*from);
        last = std::max(last, rule.*to);
    }
    if (values.empty() || first < values.front() - thresholds.minOpenSide) {
        values.insert(values.begin(), first);
    }
    if (last > values.back() + thresholds.minOpenSide) {
        values.push_back(last);
    }
    return values;
}

double edge(const std::vector<double> &values, int index)
{
    return values[static_cast<std::size_t>(index)];
}

} // namespace

Lattice::Lattice(const Rulings &rules)
    : m_rules(rules)
    , m_xs(edges(rules.vertical, rules.horizontal, &Rule::x1, &Rule::x1, &Rule::x2))
    , m_ys(edges(rules.horizontal, rules.vertical, &Rule::y1, &Rule::y1, &Rule::y2))
{
    const auto placeCount = [](const auto &a, const auto &b) { return a.size() * b.size(); };
    m_vertical.resize(placeCount(m_xs, m_ys));
    m_horizontal.resize(placeCount(m_xs, m_ys));
    for (const Rule &rule : m_rules.vertical) {
        for (std::size_t x = 0; x < m_xs.size(); ++x) {
            for (std::size_t y = 0; std::abs(rule.x1 - m_xs[x]) <= thresholds.sameEdge && y + 1 < m_ys.size(); ++y) {
                if (covered(m_ys[y], m_ys[y + 1], rule.y1, rule.y2) >= rulings::thresholds.minCoveredSide) {
                    m_vertical[x * m_ys.size() + y] = &rule;
                }
            }
        }
    }
    for (const Rule &rule : m_rules.horizontal) {
        for (std::size_t y = 0; y < m_ys.size(); ++y) {
            for (std::size_t x = 0; std::abs(rule.y1 - m_ys[y]) <= thresholds.sameEdge && x + 1 < m_xs.size(); ++x) {
                if (covered(m_xs[x], m_xs[x + 1], rule.x1, rule.x2) >= rulings::thresholds.minCoveredSide) {
                    m_horizontal[y * m_xs.size() + x] = &rule;
                }
            }
        }
    }
}

std::size_t Lattice::placeOf(int row, int column) const
{
    return static_cast<std::size_t>(row) * (m_xs.size() - 1) + static_cast<std::size_t>(column);
}

const Rule *Lattice::verticalAt(int edge, int row) const
{
    return m_vertical[static_cast<std::size_t>(edge) * m_ys.size() + static_cast<std::size_t>(row)];
}

const Rule *Lattice::horizontalAt(int edge, int column) const
{
    return m_horizontal[static_cast<std::size_t>(edge) * m_xs.size() + static_cast<std::size_t>(column)];
}

double Lattice::innerLineShare() const
{
    int all = 0;
    int drawn = 0;
    for (int row = 0; row < rows(); ++row) {
        for (int edge = 1; edge < columns(); ++edge, ++all) {
            drawn += verticalAt(edge, row) ? 1 : 0;
        }
    }
    for (int column = 0; column < columns(); ++column) {
        for (int edge = 1; edge < rows(); ++edge, ++all) {
            drawn += horizontalAt(edge, column) ? 1 : 0;
        }
    }
    return all == 0 ? 1 : static_cast<double>(drawn) / all;
}

Table Lattice::table() const
{
    Table table;
    table.ruled = true;
    table.columnEdges = m_xs;
    table.rowEdges = m_ys;
    table.box = {m_xs.front(), m_ys.front(), m_xs.back(), m_ys.back()};
    table.cells = cells();
    return table;
}

std::vector<Cell> Lattice::cells() const
{
    std::vector<Cell> cells;
    std::vector<char> taken(placeOf(rows(), 0), 0);
    for (int row = 0; row < rows(); ++row) {
        for (int column = 0; column < columns(); ++column) {
            if (taken[placeOf(row, column)]) {
                continue;
            }
            Cell cell;
            cell.row = row;
            cell.column = column;
            widen(cell, taken);
            cell.box = {
                edge(m_xs, column), edge(m_ys, row), edge(m_xs, column + cell.columnSpan),
                edge(m_ys, row + cell.rowSpan)};
            addBorders(cell);
            cells.push_back(cell);
        }
    }
    return cells;
}

// Extends a cell to the right, then downwards, until a line or another cell is met.
void Lattice::widen(Cell &cell, std::vector<char> &taken) const
{
    while (cell.column + cell.columnSpan < columns() && !verticalAt(cell.column + cell.columnSpan, cell.row) &&
           !taken[placeOf(cell.row, cell.column + cell.columnSpan)]) {
        ++cell.columnSpan;
    }
    while (cell.row + cell.rowSpan < rows() && rowContinues(cell, cell.row + cell.rowSpan, taken)) {
        ++cell.rowSpan;
    }
    for (int row = cell.row; row < cell.row + cell.rowSpan; ++row) {
        for (int column = cell.column; column < cell.column + cell.columnSpan; ++column) {
            taken[placeOf(row, column)] = 1;
        }
    }
}

bool Lattice::rowContinues(const Cell &cell, int row, const std::vector<char> &taken) const
{
    for (int column = cell.column; column < cell.column + cell.columnSpan; ++column) {
        if (horizontalAt(row, column) || taken[placeOf(row, column)] ||
            (column > cell.column && verticalAt(column, row))) {
            return false;
        }
    }
    // Where the row below is open at a side, the cell would not be a rectangle.
    const int end = cell.column + cell.columnSpan;
    return (end == columns() || verticalAt(end, row)) && (cell.column == 0 || verticalAt(cell.column, row));
}

void Lattice::addBorders(Cell &cell) const
{
    const auto border = [](const Rule *rule) { return rule ? Border{rule->width, rule->colour} : Border{}; };
    cell.left = border(verticalAt(cell.column, cell.row));
    cell.right = border(verticalAt(cell.column + cell.columnSpan, cell.row));
    cell.top = border(horizontalAt(cell.row, cell.column));
    cell.bottom = border(horizontalAt(cell.row + cell.rowSpan, cell.column));
}

} // namespace quorra::model
