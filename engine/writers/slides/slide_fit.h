// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/text.h"

#include <vector>

// How text keeps its place when it is set in another font than the page's. Pure functions over paragraphs that stand
// upright.
namespace quorra::office {

/// Exchanges families that only the file holds for the common one of their kind, as far as the widths of their
/// characters are known.
void useCommonFonts(model::Document &document);

/// The letter spacing in points at which the words are as wide as on the page and, set into this width, break into no
/// more lines than there. 0 where the widths are not known or the font is not the one they are known for.
double fittingSpacing(const model::Paragraph &paragraph, double width);

/// Whether the widths of all its words are known in the fonts they are set in.
bool hasKnownWidths(const model::Paragraph &paragraph);

/// The paragraph's lines cut at wide gaps between words, each piece a paragraph of its own; the paragraph
/// itself where its lines hold together. With everyLine each line is a piece too, and words that stand off the line's
/// baseline: the labels of a drawing.
std::vector<model::Paragraph> piecesApart(const model::Paragraph &paragraph, bool everyLine);

/// Whether the lines are to stay as they are on the page: single ones, those that end where the page means it, and
/// those that are not flush left.
bool keepsLines(const model::Paragraph &paragraph);

/// The runs with '\n' between the lines and, in text of fixed pitch, the spaces that keep its columns. Without any
/// lines, and for list items, the paragraph's own runs.
std::vector<model::Run> runsByLine(const model::Paragraph &paragraph);

} // namespace quorra::office
