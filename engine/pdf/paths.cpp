// SPDX-License-Identifier: GPL-3.0-or-later
#include "paths.h"

#include <algorithm>
#include <cmath>

namespace quorra {

namespace {

constexpr double straightTolerance = 0.35; // points; deviation of the ends of a straight line
constexpr double mostDrift = 1;            // points; of all sides of a path together
constexpr double mostCorners = 0.5; // of half the perimeter of the box: how far a frame may deviate from the edges

Point pointAt(const GfxState *state, const GfxSubpath *subpath, int i)
{
    Point point;
    state->transform(subpath->getX(i), subpath->getY(i), &point.x, &point.y);
    return point;
}

bool runsAlongAnEdge(const Point &from, const Point &to, const Box &box)
{
    const auto both = [](double a, double b, double edge) {
        return std::abs(a - edge) <= straightTolerance && std::abs(b - edge) <= straightTolerance;
    };
    return both(from.x, to.x, box.left) || both(from.x, to.x, box.right) || both(from.y, to.y, box.top) ||
           both(from.y, to.y, box.bottom);
}

} // namespace

std::vector<Point> uprightPoints(const GfxState *state, const GfxSubpath *subpath)
{
    std::vector<Point> points;
    double drift = 0; // a curve may be drawn as many tiny sides
    for (int i = 0; i < subpath->getNumPoints(); ++i) {
        const Point p = pointAt(state, subpath, i);
        const double across =
            points.empty() ? 0 : std::min(std::abs(points.back().x - p.x), std::abs(points.back().y - p.y));
        drift += across;
        if (subpath->getCurve(i) || across > straightTolerance || drift > mostDrift) {
            return {};
        }
        points.push_back(p);
    }
    if (subpath->isClosed() && !points.empty()) {
        points.push_back(points.front());
    }
    return points;
}

Box boxAround(const GfxState *state, const GfxSubpath *subpath)
{
    Box box{1e9, 1e9, -1e9, -1e9};
    for (int i = 0; i < subpath->getNumPoints(); ++i) {
        const auto [x, y] = pointAt(state, subpath, i);
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
    return box;
}

bool isFrame(const GfxState *state, const GfxSubpath *subpath)
{
    const Box box = boxAround(state, subpath);
    double corners = 0;
    Point from = pointAt(state, subpath, 0);
    for (int i = 1; i < subpath->getNumPoints(); ++i) {
        const Point to = pointAt(state, subpath, i);
        corners += runsAlongAnEdge(from, to, box) ? 0 : std::abs(to.x - from.x) + std::abs(to.y - from.y);
        from = to;
    }
    return corners <= mostCorners * (box.width() + box.height());
}

} // namespace quorra
