// SPDX-License-Identifier: GPL-3.0-or-later
#include "figures/plots.h"

#include <algorithm>
#include <cmath>

namespace quorra::model {

namespace {

struct Thresholds
{
    double sameEdge = 2.5; ///< points; a mark this close to an edge of the grid ends at it
    double minDrawn = 0.1; ///< share of the grid's area that the marks across its edges extend over
};

constexpr Thresholds thresholds;

bool isNearEdge(double at, const std::vector<double> &edges)
{
    return std::any_of(
        edges.begin(), edges.end(), [at](double edge) { return std::abs(edge - at) <= thresholds.sameEdge; });
}

bool crosses(double from, double to, const std::vector<double> &edges)
{
    return std::any_of(edges.begin(), edges.end(), [&](double edge) {
        return edge > from + thresholds.sameEdge && edge < to - thresholds.sameEdge;
    });
}

} // namespace

bool isPlot(const Table &grid, const std::vector<Ink> &ink)
{
    const std::vector<double> &xs = grid.columnEdges;
    const std::vector<double> &ys = grid.rowEdges;
    Box drawn;
    for (const Ink &mark : ink) {
        const Box inside = intersected(mark.box, grid.box);
        const bool within = inside.width() > 0 || inside.height() > 0;
        const bool fillsCells = mark.frame && isNearEdge(inside.left, xs) && isNearEdge(inside.right, xs) &&
                                isNearEdge(inside.top, ys) && isNearEdge(inside.bottom, ys);
        if (within && !fillsCells &&
            (crosses(inside.left, inside.right, xs) || crosses(inside.top, inside.bottom, ys))) {
            drawn = united(drawn, inside);
        }
    }
    return drawn.area() >= thresholds.minDrawn * grid.box.area();
}

} // namespace quorra::model
