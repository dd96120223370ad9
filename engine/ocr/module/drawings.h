// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/recognised_picture.h"
#include "module/pix.h"

#include <vector>

namespace quorra::ocr {

/// Returns the straight horizontal and vertical lines in a picture of one bit per pixel, of the given resolution.
std::vector<model::Rule> straightLines(PIX *dark, double dotsPerInch);

/// Returns the boxes of photographs in a gray picture: regions full of dark pixels, many of them neither black nor
/// white. `dark` has the dark pixels of `gray`, in the same resolution.
std::vector<Box> photographs(PIX *dark, PIX *gray, double dotsPerInch);

/// Returns the boxes of dark rectangles, which may have bright text on them, outside of the photographs.
std::vector<Box> darkBoxes(PIX *dark, double dotsPerInch, const std::vector<Box> &photographs);

/// Returns the boxes of drawings: large connected shapes outside of `others` that are neither straight lines nor words.
std::vector<Box> lineDrawings(
    PIX *dark, double dotsPerInch, const std::vector<model::Rule> &rules, const std::vector<Box> &others,
    const std::vector<model::RecognisedWord> &words);

} // namespace quorra::ocr
