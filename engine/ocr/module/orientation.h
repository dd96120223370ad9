// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/pix.h"

namespace quorra::ocr {

/// How the lines of text of a picture direction.
struct LineDirection
{
    bool sideways = false; ///< the lines run from top to bottom or from bottom to top
    double skew = 0;       ///< degrees clockwise by which the picture is skewed, at most 11 either way
    bool certain = false;  ///< there are lines of text
};

/// Finds the direction of the lines of a picture of one bit per pixel, of about 150 dots per inch.
LineDirection lineDirectionOf(PIX *dark);

/// Which way is up in a deskewed picture.
struct Upright
{
    int rotation = 0;     ///< 0, 90, 180 or 270: degrees clockwise by which the picture is rotated
    bool certain = false; ///< there is enough Latin text to tell
};

/// Finds out from ascenders and descenders which way is up in a picture of one bit per pixel, of about 150 dots per
/// inch.
Upright uprightOf(PIX *dark, bool sideways);

/// Returns a picture of eight bits or one bit per pixel rotated clockwise about its centre, with its size unchanged and
/// white corners.
PixPtr rotatedBy(PIX *pix, double degrees);

/// Returns the picture rotated clockwise by 0, 90, 180 or 270 degrees.
PixPtr rotatedByRightAngle(PIX *pix, int degrees);

} // namespace quorra::ocr
