// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/picture_source.h"
#include "image/raster.h"

namespace quorra {

/// A rectangle of pixels inside a raster.
struct PixelBox
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// Encodes a part of a picture for embedding in a document: photographs as JPEG, everything else as PNG. Returns no
/// bytes if the library fails.
model::EncodedPicture encodePicture(const Raster &raster, const PixelBox &part);

} // namespace quorra
