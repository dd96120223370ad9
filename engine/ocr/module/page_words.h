// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/recognised_picture.h"

#include <tesseract/baseapi.h>

#include <vector>

namespace quorra::ocr {

/// Makes type sizes equal that differ by less than what can be measured in a line: lines without ascenders or
/// descenders seem smaller or larger.
void evenSizes(std::vector<model::RecognisedWord> &words);

/// Returns the words that were recognised, in reading order, in pixels of the picture that was recognised.
std::vector<model::RecognisedWord> pageWords(tesseract::TessBaseAPI &api);

} // namespace quorra::ocr
