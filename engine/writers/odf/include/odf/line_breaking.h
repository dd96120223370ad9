// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <functional>
#include <vector>

// Breaking of text into lines, as a word processor does it: one word after the other, as many as fit.
namespace quorra::office {

/// Text that no line end may divide. Lengths in points.
struct UnbreakableText
{
    double width = 0;
    double spaceBefore = 0; ///< width of the space before it, unless it begins a line
    double characters = 0;  ///< how many it has
};

/// How wide text is in the font that it will be set in, in points.
struct TextMeasure
{
    std::function<double(const model::Word &)> word;
    std::function<double(const model::Style &)> space; ///< a space in this style
};

/// The text of the paragraph in parts that stay together: words, and what stands beside them without a space. A word
/// that a line end of the page divides is whole again.
std::vector<UnbreakableText> unbreakableTexts(const model::Paragraph &paragraph, const TextMeasure &measure);

/// The strip that the lines are broken into. Lengths in points.
struct LineStrip
{
    double width = 0;
    double firstIndent = 0;   ///< where the first line begins in it
    double otherIndent = 0;   ///< where all others begin
    double letterSpacing = 0; ///< added to the width of every character and space
};

/// How many lines the text fills; at least 1. A part that is wider than the strip has a line of its own.
int countLines(const std::vector<UnbreakableText> &texts, const LineStrip &strip);

} // namespace quorra::office
