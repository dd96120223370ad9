// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "analysis/scanned_pages.h"

#include <cstddef>
#include <vector>

namespace quorra::model {

namespace textLayer {

struct Thresholds
{
    double minImageArea = 0.3;  ///< share of a page without text that its images cover; less is a page with pictures
    double minMarkedArea = 0.6; ///< likewise of a page with marks, which may be the few words of a page with a picture
    std::size_t maxMarks = 200; ///< letters and digits at the edges of a scan: page numbers, stamps of archives
    std::size_t maxElsewhere = 6; ///< letters and digits elsewhere; more are the title of a page with a large picture
    double edge = 0.1;            ///< share of the page's side; where page numbers and stamps are

    std::size_t minCurves = 100; ///< as many letters as a paragraph has; fewer are a drawing
    double minLetter = 2;        ///< points; the height or width of a letter that is drawn as a curve
    double maxLetter = 40;       ///< points; larger curves are a drawing
    double minLetterShare = 0.7; ///< of the curves of a page; fewer of the size of letters are a drawing

    std::size_t minLetters = 100;    ///< fewer letters prove nothing
    std::size_t maxJudged = 4000;    ///< characters; more of a page say nothing new
    double minVowels = 0.25;         ///< share of Latin letters; all languages in Latin script have a third or more
    double maxStrange = 0.3;         ///< share of characters that text does not consist of
    double minResolution = 70;       ///< dots per inch; images with less are drawn, not scanned
    double usualResolution = 300;    ///< dots per inch; what the recognition of print was made for
    double maxResolution = 400;      ///< dots per inch; more does not help, and takes time
    double minShareOfPicture = 0.05; ///< of the page; smaller images do not determine the resolution
};

inline constexpr Thresholds thresholds;

} // namespace textLayer

/// Whether the words make no sense in any language: hardly any of their Latin letters are vowels, or many of their
/// characters are none that text consists of.
bool isSenseless(const std::vector<RawWord> &words);

} // namespace quorra::model
