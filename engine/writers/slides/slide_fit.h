// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <vector>

// Keeping text in place in other fonts than those of the page. Pure functions on upright paragraphs.
namespace quorra::office {

/// Replaces font families that are not widespread by the common one of their kind if the widths of all their characters
/// are known; in tables also those that are, but whose widths are not known.
void useCommonFonts(model::Document &document);

/// How text is made as wide as on the page.
struct TextFit
{
    double scale = 1;   ///< of font sizes; below 1 where letters would have to come much closer together
    double spacing = 0; ///< letter spacing in points, at that size
};

/// Returns the fit at which the words are as wide as on the page and, wrapped at this width, do not need more lines
/// than there. No change if the widths of the characters are not known.
TextFit fittingText(const model::Paragraph &paragraph, double width);

/// Returns the runs with their font sizes scaled.
std::vector<model::Run> scaledRuns(std::vector<model::Run> runs, double scale);

/// Returns whether the widths of all words are known in their fonts.
bool hasKnownWidths(const model::Paragraph &paragraph);

/// Returns the paragraph's lines divided at wide gaps between words, each piece as a paragraph; the paragraph itself if
/// there are no such gaps. With everyLine, for the labels of a drawing, each line is a piece too, and so are words off
/// the line's baseline.
std::vector<model::Paragraph> paragraphPieces(const model::Paragraph &paragraph, bool everyLine);

/// Returns whether line ends are kept: those of single lines, of lines that end on purpose, and of short paragraphs
/// that are not aligned left.
bool keepsLines(const model::Paragraph &paragraph);

/// Returns the runs with '\n' between the lines and, in fixed-pitch text, the spaces that preserve its columns. For a
/// paragraph without lines, and for a list item, these are the paragraph's own runs.
std::vector<model::Run> runsByLine(const model::Paragraph &paragraph);

} // namespace quorra::office
