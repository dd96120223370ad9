// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "tables/rulings.h"

#include <vector>

namespace quorra::model {

namespace lattice {

struct Thresholds
{
    double sameEdge = 3.5;  ///< points; parallel lines this close are one edge of the grid (double rules)
    double minOpenSide = 6; ///< points; lines that reach farther past the outermost crossing line have an open side
};

inline constexpr Thresholds thresholds;

} // namespace lattice

/// The grid that a group of touching rules draws. A place is where one row and one column of the grid cross.
class Lattice
{
public:
    /// At least two horizontal rules and one vertical rule.
    explicit Lattice(const Rulings &rules);
    Lattice(const Lattice &) = delete; // points into its own rules
    Lattice &operator=(const Lattice &) = delete;

    int rows() const { return static_cast<int>(m_ys.size()) - 1; }
    int columns() const { return static_cast<int>(m_xs.size()) - 1; }

    /// The share of the sides between neighbouring places that are drawn; 1 for a grid of one place.
    double innerLineShare() const;

    /// The grid with its spanning cells and borders, without text. Places that no line separates are one cell.
    Table table() const;

private:
    std::size_t placeOf(int row, int column) const;
    const Rule *verticalAt(int edge, int row) const;
    const Rule *horizontalAt(int edge, int column) const;
    std::vector<Cell> cells() const;
    void widen(Cell &cell, std::vector<char> &taken) const;
    bool rowContinues(const Cell &cell, int row, const std::vector<char> &taken) const;
    void addBorders(Cell &cell) const;

    Rulings m_rules;
    std::vector<double> m_xs;
    std::vector<double> m_ys;
    std::vector<const Rule *> m_vertical;   ///< into m_rules, for each edge and row, null where no line is drawn
    std::vector<const Rule *> m_horizontal; ///< for each edge and column
};

} // namespace quorra::model
