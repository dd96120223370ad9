// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <GfxState.h>

#include <vector>

// Paths of the PDF library. Coordinates are those of the output device.
namespace quorra {

struct Point
{
    double x = 0;
    double y = 0;
};

/// Returns the corners of a subpath, with the first one repeated at the end if it is closed; none if it has a curve or
/// a slanted side.
std::vector<Point> uprightPoints(const GfxState *state, const GfxSubpath *subpath);

/// Returns the bounding box of all points of a subpath, including control points of curves.
Box boxAround(const GfxState *state, const GfxSubpath *subpath);

/// Returns true if a subpath follows the edges of its bounding box: a rectangle, possibly with rounded corners.
bool isFrame(const GfxState *state, const GfxSubpath *subpath);

} // namespace quorra
