// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/recognised_picture.h"

#include <vector>

namespace quorra::ocr {

/// Returns how sure the recognition was of the letters and digits, from 0 to 1; 0 if there are none.
double meanConfidence(const std::vector<model::RecognisedWord> &words);

/// Removes what dirt, lines and pictures look like to the recognition: words it doubts, signs on rules, words on
/// figures. Numbers the lines again and sets where they end. Everything is in the same pixels.
void keepPlausible(
    std::vector<model::RecognisedWord> &words, const std::vector<model::Rule> &rules, const std::vector<Box> &figures);

} // namespace quorra::ocr
