// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/picture_source.h"

class PDFDoc;

namespace quorra {

/// Returns the shown part of a raster image of the file with the pixels that it has there, rotated as on the page: the
/// bytes of a JPEG file as they are, where all of it is shown upright. Returns no bytes if the image is too large, or
/// damaged, or of a kind that has to be rendered. shown is on the displayed page, in points.
model::EncodedPicture ownPixels(PDFDoc &doc, const model::ImageSource &stream, const Box &shown);

} // namespace quorra
