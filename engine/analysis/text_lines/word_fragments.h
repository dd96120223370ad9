// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "text_lines/text_lines.h"

#include <vector>

namespace quorra::model {

namespace wordFragments {

/// Lengths in em of the word before; see also the thresholds of superscripts and subscripts in text_lines.h.
struct Thresholds
{
    double maxFractionGap = 0.5;   ///< em; a thin space may separate a fraction from the word before it
    double maxFractionShift = 1.0; ///< em; the farthest of a fraction's baselines from that of its line
};

inline constexpr Thresholds thresholds;

} // namespace wordFragments

/// Whether `next`, which follows `word` in the raw page's order, is a fragment of the same word. The PDF library knows
/// from the file which fragments are one word, subscripts of subscripts included; this only rejects what is too far
/// away.
bool continuesWord(const RawWord &word, const RawWord &next);

/// Whether the two words that follow `word` are a fraction in small type on its line: numerator and denominator are
/// one above the other, and both reach out of the line.
bool isSmallFraction(const RawWord &word, const RawWord &first, const RawWord &second);

/// Adds each fragment that is in no group to the group that holds the other fragments of its word: the edge of a
/// picture or a table must not separate "g" from its subscript. The groups hold words of the page.
void keepFragmentsTogether(const RawPage &raw, const std::vector<WordRefs *> &groups);

} // namespace quorra::model
