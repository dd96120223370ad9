// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::model {

/// Whether a grid of lines is that of a plot rather than a table's: curves or slanted lines run across its lines. What
/// fills whole cells, or goes around them, says nothing: headers with a colour gradient, frames with round corners.
bool isPlot(const Table &grid, const std::vector<Ink> &ink);

} // namespace quorra::model
