// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/options.h"
#include "image/picture_size.h"
#include "pdf/region_renderer.h"

#include <string_view>

namespace quorra {

/// Default resolution of pictures, dots per inch.
inline constexpr int pictureResolution = 150;

/// Returns the colour depth of a picture file: the extension (lower case) or the compression may support only one.
ColourDepth pictureDepth(const Options &options, std::string_view extension);

/// Returns the size in pixels of a page whose size is given in points. A requested width or height takes precedence
/// over the resolution; if only one is given, the other one keeps the proportions of the page. Throws Failure(Limit),
/// with the page number, if the picture is too large.
PictureSize pictureSize(const Options &options, int page, double pageWidth, double pageHeight);

/// Returns the quality of pictures in documents: with the pixels of the file unless a resolution is given.
PictureQuality embeddedQuality(const Options &options);

} // namespace quorra
