// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/recognised_picture.h"

#include <vector>

namespace quorra::model {

namespace evenType {

struct Thresholds
{
    double sameSize = 1.12; ///< times the smallest of the sizes that are one; recognition measures them inaccurately
    double ascent = 0.8;    ///< em above the baseline that the box of a word takes up, as in files with text
    double descent = 0.2;   ///< em below the baseline likewise
};

inline constexpr Thresholds thresholds;

} // namespace evenType

/// Gives the words of each recognised line the same baseline and font size, lines with nearly the same size the same
/// one, and words boxes as high as their type: those of recognition are as high as the letters of the word, and all are
/// measured inaccurately.
void evenOutType(std::vector<RecognisedWord> &words);

} // namespace quorra::model
