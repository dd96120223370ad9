// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

namespace quorra::office {

/// By how much the lines and the blank space of a page come closer together, 1 for not at all.
struct Fit
{
    double lines = 1;
    double spaces = 1;
};

/// How many lines the paragraph fills in a strip of this width (points), in the fonts that a word processor is likely
/// to have and without hyphens; at least 1.
int wrappedLines(const model::Paragraph &paragraph, double width);

/// What makes the text of the page, which runs longer in other fonts and without hyphens, fit between these heights
/// again: a few lines more would begin a page of their own. With columns, the columns of a section share its text.
Fit fitOf(const model::Page &page, double top, double end, bool columns);

} // namespace quorra::office
