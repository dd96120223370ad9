// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <cstddef>

namespace quorra::model {

namespace superscripts {

/// Lengths in em of the line's main text; see also the thresholds of superscripts and subscripts in text_lines.h.
struct Thresholds
{
    double minRaise = 0.12;         ///< em; words raised by more are superscripts
    double minDrop = 0.08;          ///< em; words lowered by more are subscripts, which are set closer to the baseline
    double sameBaseline = 0.05;     ///< em; words of the main text differ by less (rounding, hinting)
    double sameSizeTolerance = 0.1; ///< em; font sizes of words of the main text differ by less
};

inline constexpr Thresholds thresholds;

} // namespace superscripts

/// Sets the baseline shift of the line's words from index `first` on: a superscript or subscript is clearly smaller
/// than the line's main text, off its baseline, and next to a word of that text or to another such word. `first` leaves
/// a list mark out. Changes nothing in rotated text and in lines of fewer than two words.
void markSuperscripts(Line &line, std::size_t first = 0);

} // namespace quorra::model
