// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/characters.h"
#include "base/statistics.h"
#include "document/raw_page.h"

#include <vector>

namespace quorra::model {

/// Words of a raw page, which must outlive the list.
using WordRefs = std::vector<const RawWord *>;

/// Words that stand side by side on one line, from left to right.
struct TextLine
{
    WordRefs words;
    Box box;             ///< around the words' bodies (see bodyOf)
    double baseline = 0; ///< of the largest word
    double size = 0;     ///< font size of the largest word
};

/// Words of a row without a wide gap between them.
struct Segment
{
    WordRefs words;
    Box box;
};

/// The part of a word's box that its letters really fill: ascenders and descenders of neighbouring lines overlap, the
/// bodies do not.
Box bodyOf(const RawWord &word);

/// Groups upright words into rows, from top to bottom. Raised and lowered small words belong to the row they touch.
std::vector<TextLine> textLinesOf(WordRefs words);

/// Cuts a row at gaps wider than that many font sizes.
std::vector<Segment> segmentsOf(const TextLine &row, double gapInSizes);

} // namespace quorra::model
