// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/geometry.h"

namespace quorra::ocr {

/// How a picture that is prepared for recognition lies on the one that was given. Preparing scales it, deskews it,
/// and then rotates it upright by a multiple of 90 degrees.
struct PageFrame
{
    double scale = 1; ///< pixels of the prepared picture for one of the given picture
    double skew = 0;  ///< degrees clockwise by which the given picture was skewed
    int rotation = 0; ///< 0, 90, 180 or 270: degrees clockwise by which the given picture was rotated
    double width = 0; ///< of the prepared picture before it is rotated upright, in pixels
    double height = 0;

    /// Returns the place of a box of the prepared picture in the given picture after that was deskewed.
    Box onGiven(const Box &box) const;

    /// Returns the place of a baseline, given by its y in the prepared picture: an x if the text is rotated by 90 or
    /// 270 degrees.
    double baselineOnGiven(double y) const;
};

} // namespace quorra::ocr
