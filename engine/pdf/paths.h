// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

#include <GfxState.h>

#include <vector>

// Paths of the PDF library as they stand on the page. Coordinates are those of the state's device.
namespace quorra {

struct Point
{
    double x = 0;
    double y = 0;
};

/// The corners of a subpath, the first one again at the end where it is closed; none when it has a curve or a slanted
/// side.
std::vector<Point> uprightPoints(const GfxState *state, const GfxSubpath *subpath);

/// The smallest box around all points of a subpath, the control points of its curves included.
Box boxAround(const GfxState *state, const GfxSubpath *subpath);

/// Whether a subpath runs along the edges of its box all the way: a rectangle, with round corners perhaps.
bool isFrame(const GfxState *state, const GfxSubpath *subpath);

} // namespace quorra
