// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

namespace quorra::model {

namespace sanitisedPage {

/// What no sensible page exceeds. In points.
struct Limits
{
    double maxCoordinate = 100000; ///< seven times the longest side of a page that PDF allows
    double minPageSide = 1;        ///< so that shares of the page can be computed
    double minSize = 0.01;         ///< of a font or a line's width; so that lengths can be divided by it
    double maxFontSize = 10000;    ///< so that lengths in em stay far within the range of numbers
};

inline constexpr Limits limits;

} // namespace sanitisedPage

/// Limits the values of a page to those that the analysis can rely on, whatever the file contains. Afterwards
/// - every number is finite, no coordinate exceeds `maxCoordinate`, and the page has an area;
/// - left <= right and top <= bottom in every box; rules run from left to right or from top to bottom;
/// - font sizes and widths of rules are positive;
/// - every word contains a character that is not white space.
/// Marks at unknown positions are dropped. Words are kept, because text must not be lost: they are moved to the nearest
/// valid position. A page that already meets these conditions is returned unchanged.
RawPage sanitised(RawPage page);

} // namespace quorra::model
