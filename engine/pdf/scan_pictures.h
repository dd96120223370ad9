// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"
#include "image/raster.h"

#include <vector>

namespace quorra {

/// Finds the regions of a scanned page that show a picture rather than text: connected areas that differ from the
/// paper, away from the recognised words. `page` is a gray rendering; `words` are the boxes of the words in its pixels.
/// Returns boxes in pixels that do not overlap. `dot` is the length of a point in pixels.
std::vector<Box> findScanPictures(const Raster &page, const std::vector<Box> &words, double dot);

} // namespace quorra
