// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "module/pix.h"

namespace quorra::ocr {

/// Returns the brightness that best divides the pixels of a gray picture into dark and bright ones.
int darkThreshold(PIX *gray);

/// Returns a picture of one bit per pixel with what is darker than its surroundings.
PixPtr darkPixels(PIX *gray);

/// Makes bright text on a dark page dark text on a bright page; returns whether it was bright.
bool invertDarkPage(PIX *gray);

/// Returns the gray picture without specks and grain, or null if it has hardly any.
PixPtr withoutNoise(PIX *gray);

/// Returns the gray picture with uneven paper made white, or null if its paper is white.
PixPtr withWhitePaper(PIX *gray);

} // namespace quorra::ocr
