// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "image/picture_size.h"

#include <string_view>

namespace quorra {

/// Default resolution of pictures, dots per inch.
inline constexpr int pictureResolution = 150;

/// Colour depth of a picture file: the extension (lower case) or the compression may allow only one.
ColourDepth pictureDepth(const Options &options, std::string_view extension);

/// Pixel size of a page of the given size in points. An asked width or height wins over the resolution; one of the two
/// alone keeps the page's shape. Throws Failure(Limit), which names the page, for a picture too large to make.
PictureSize pictureSize(const Options &options, int page, double pageWidth, double pageHeight);

} // namespace quorra
