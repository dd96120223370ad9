// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <functional>
#include <vector>

// Wrapping of text, as word processors do it: each line takes as many words as fit.
namespace quorra::office {

/// Text that is not divided at a line end. Lengths in points.
struct UnbreakableText
{
    double width = 0;
    double spaceBefore = 0; ///< width of the space before it, unless it begins a line
    double characters = 0;  ///< number of characters
    bool endsLine = false;  ///< a line break follows
};

/// The widths of text in its output font, in points.
struct TextMeasure
{
    std::function<double(const model::Word &)> word;
    std::function<double(const model::Style &)> space; ///< a space in this style
};

/// Returns the parts of the paragraph's text that are not divided: words, including adjacent ones without a space in
/// between. Words hyphenated at a line end are joined.
std::vector<UnbreakableText> unbreakableTexts(const model::Paragraph &paragraph, const TextMeasure &measure);

/// The area that is filled with lines. Lengths in points.
struct LineStrip
{
    double width = 0;
    double firstIndent = 0;   ///< of the first line
    double otherIndent = 0;   ///< of all others
    double letterSpacing = 0; ///< added to the width of every character and space
};

/// Returns the number of lines that the text fills, at least 1. A part that is wider than the strip gets its own line.
int countLines(const std::vector<UnbreakableText> &texts, const LineStrip &strip);

} // namespace quorra::office
