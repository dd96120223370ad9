// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/cli/options.h"

#include <string_view>

namespace quorra {

/// What is rendered for one page and what its file says about it.
struct PictureSize
{
    int width = 0;   ///< pixels
    int height = 0;  ///< pixels
    double xres = 0; ///< dots per inch at which the page is rendered
    double yres = 0;
    double xtag = 0; ///< dots per inch that the file records
    double ytag = 0;
};

/// Default resolution of pictures, dots per inch.
inline constexpr int PictureResolution = 150;

/// Colour depth of a picture file: the extension (lower case) or the compression may allow only one.
ColourDepth pictureDepth(const Options &options, std::string_view extension);

/// Pixel size of a page of the given size in points. An asked width or height wins over the resolution; one of the two
/// alone keeps the page's shape. Throws Failure(Limit), which names the page, for a picture too large to make.
PictureSize pictureSize(const Options &options, int page, double pageWidth, double pageHeight);

/// True for the fax codings, which know black and white only.
bool isFaxCompression(Compression compression);

} // namespace quorra
