// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/scanned_pages.h"

#include <cstddef>

namespace quorra::model::addingRecognised {

struct Thresholds
{
    std::size_t minLetters = 3;  ///< letters and digits; fewer are dirt
    double minMoreThanMarks = 2; ///< times as many letters and digits as the marks have that the page has already
    double minConfidence = 0.8;  ///< on average, of words that are to replace those of the page
    std::size_t minWords = 15;   ///< likewise; fewer prove nothing
    double maxAgreement = 0.2;   ///< share of the recognised words that the page has; more, and its text makes sense
    int minCompared = 3;         ///< letters of words that are compared; shorter ones agree by chance
    double darkFill = 0.5;       ///< luminance, from 0 to 1; text on darker fills is white
    double maxTextOnPart = 0.03; ///< share of a picture's area that recognised words cover; more is a table, say
    double inkMargin = 0.15;     ///< em around a word; the curves there are its letters
};

inline constexpr Thresholds thresholds;

} // namespace quorra::model::addingRecognised
