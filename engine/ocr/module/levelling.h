// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/pix.h"

namespace quorra::ocr {

/// How the lines of text of a picture lie.
struct Lie
{
    bool sideways = false; ///< the lines run from top to bottom or from bottom to top
    double skew = 0;       ///< degrees clockwise by which the picture is skewed, at most 11 either way
    bool certain = false;  ///< there are lines of text
};

/// Finds out how the lines of a picture of one bit per pixel lie, of about 150 dots per inch.
Lie lieOf(PIX *dark);

/// Which way is up in a picture of level lines.
struct Upright
{
    int rotation = 0;     ///< 0, 90, 180 or 270: degrees clockwise by which the picture is turned
    bool certain = false; ///< there is enough Latin text to tell
};

/// Finds out from ascenders and descenders which way is up in a picture of one bit per pixel, of about 150 dots per
/// inch.
Upright uprightOf(PIX *dark, bool sideways);

/// Returns a picture of eight bits or one bit per pixel turned clockwise about its centre, with its size unchanged and
/// white corners.
PixPtr turnedBy(PIX *pix, double degrees);

/// Returns the picture turned clockwise by 0, 90, 180 or 270 degrees.
PixPtr quarterTurned(PIX *pix, int degrees);

} // namespace quorra::ocr
