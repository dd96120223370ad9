// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// The thresholds for drawn rectangles, shared by everything that looks for boxes drawn with lines.
namespace rectangles {

struct Thresholds
{
    double sameEdge = 1.2;       ///< points; the ends of the four sides of a rectangle differ by less
    double minSide = 4;          ///< points; smaller ones are joints of thick lines
    std::size_t maxRules = 4000; ///< a page with more is a plan or a map: its rectangles are parts of one drawing
};
inline constexpr Thresholds thresholds;

} // namespace rectangles

/// The rectangles whose four sides are drawn as rules, each once, from top to bottom. The sides of a rectangle end at
/// its corners: a long line through several boxes is the side of none of them.
std::vector<Box> drawnRectangles(const std::vector<Rule> &rules);

/// Whether the rule is a side of the box, or a part of one.
bool isSideOf(const Rule &rule, const Box &box);

/// Whether two boxes have a point in common, or would have if each were larger by `margin` points.
bool touch(const Box &a, const Box &b, double margin);

} // namespace quorra::model
