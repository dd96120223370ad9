// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "image/raster.h"

#include <leptonica/allheaders.h>

#include <memory>

namespace quorra::ocr {

/// Frees a picture of Leptonica.
struct PixDeleter
{
    void operator()(PIX *pix) const { pixDestroy(&pix); }
};

/// A picture of Leptonica. In those of one bit, 1 is black.
using PixPtr = std::unique_ptr<PIX, PixDeleter>;

/// Returns the picture, or throws std::bad_alloc if it is null: Leptonica returns null when memory runs out.
PixPtr checked(PIX *pix);

/// Returns the raster as a gray picture of 8 bits per pixel. It must have at least one pixel.
PixPtr grayPix(const Raster &raster);

} // namespace quorra::ocr
