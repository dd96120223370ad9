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

/// Encodes a part of a picture for use inside a document: photographs as JPEG, all else as PNG. Gives no bytes when the
/// library refuses.
model::EncodedPicture encodePicture(const Raster &raster, const PixelBox &part);

} // namespace quorra
