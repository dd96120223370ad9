// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>

// Lengths are in points (1/72 inch) unless a name says otherwise; y grows downwards.
namespace quorra {

/// An axis-aligned rectangle with left <= right and top <= bottom; an empty one has no area.
struct Box
{
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    double area() const { return width() * height(); }
    double centreX() const { return (left + right) / 2; }
    double centreY() const { return (top + bottom) / 2; }
    bool isEmpty() const { return right <= left || bottom <= top; }
    bool contains(double x, double y) const { return x >= left && x <= right && y >= top && y <= bottom; }
    bool operator==(const Box &) const = default;
};

/// Returns the bounding box of both; an empty box at the origin is ignored.
inline Box united(const Box &a, const Box &b)
{
    if (a == Box{}) {
        return b;
    }
    if (b == Box{}) {
        return a;
    }
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

/// Returns the box with its edges moved outwards by the margin.
inline Box expanded(const Box &box, double margin)
{
    return {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
}

/// Returns the intersection, with no area if they do not overlap.
inline Box intersected(const Box &a, const Box &b)
{
    const Box both{
        std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
    return {both.left, both.top, std::max(both.left, both.right), std::max(both.top, both.bottom)};
}

} // namespace quorra
