// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/page_frame.h"
#include "module/pix.h"

#include "image/raster.h"

namespace quorra::ocr {

/// A picture that is ready for recognition.
struct PreparedPicture
{
    PixPtr gray;       ///< upright, level, dark on white; null if there is nothing to recognise
    PixPtr dark;       ///< the dark pixels, one bit per pixel
    int darkScale = 1; ///< pixels of `gray` for each pixel of `dark`, along each side
    PageFrame frame;
    bool upright = true;      ///< it is certain which way is up
    double dotsPerInch = 300; ///< of `gray`
};

/// Prepares a picture of a page: makes bright text on a dark page dark on white, removes noise, evens the paper, scales
/// to about 300 dots per inch, and turns it level and upright. `dotsPerInch` is 0 if unknown.
PreparedPicture prepared(const Raster &picture, double dotsPerInch);

} // namespace quorra::ocr
