// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/page_frame.h"
#include "module/pix.h"

#include "image/raster.h"

namespace quorra::ocr {

/// A picture that is ready for recognition.
struct PreparedPicture
{
    PixPtr gray;              ///< upright, level, dark on white; null if there is nothing to recognise
    PixPtr small;             ///< the same picture at half the resolution if that is enough to see how it is laid out
    int reduction = 1;        ///< pixels of `gray` for each pixel of `small`, along each side
    PixPtr dark;              ///< the dark pixels of `small`, one bit per pixel
    PageFrame frame;          ///< of `small`
    bool upright = true;      ///< it is certain which way is up
    double dotsPerInch = 300; ///< of `gray`
};

/// Turns a prepared picture upside down.
void turnUpsideDown(PreparedPicture &page);

/// Prepares a picture of a page: makes bright text on a dark page dark on white, removes noise, evens the paper, scales
/// to about 300 dots per inch, and deskews and rotates it upright. `dotsPerInch` is 0 if unknown.
PreparedPicture prepared(const Raster &picture, double dotsPerInch);

} // namespace quorra::ocr
