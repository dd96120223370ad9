// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/raw_page.h"

namespace quorra::model {

namespace recognisedText {

struct Thresholds
{
    double minScanArea = 0.5;  ///< share of the page; images with hidden words on them that are as large are scans
    double minTextArea = 0.2;  ///< share of a smaller image that hidden words on it cover; less are labels in a picture
    double maxOverlap = 0.5;   ///< share of a hidden word's width that a visible word may cover
    double sameBaseline = 0.5; ///< em; baselines of words that overlap differ by less
    double partMargin = 4;     ///< points around a picture on a scan, whose place is not known more exactly
};

inline constexpr Thresholds thresholds;

} // namespace recognisedText

/// Decides about the words of the page that cannot be seen (RawWord::hidden). On a scan, an image of text, they are the
/// text that was recognised in it: they become visible words, RawPage::recognised is set, and the image is marked as a
/// scan, except for parts of it that show pictures. All others are removed: what is visible says the same, or they are
/// not meant to be read.
void resolveHiddenWords(RawPage &page);

} // namespace quorra::model
