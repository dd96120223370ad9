// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"

#include <vector>

namespace quorra::office {

/// Returns the paragraphs that are the title of the page, from top to bottom: what the outline of the file calls the
/// page, or else its largest text, if that is at the top and clearly larger than most of the page. Empty if the page
/// has no title.
std::vector<const model::Paragraph *> slideTitle(const model::Page &page, const model::FileFacts &facts);

/// Returns the parts of a title as one paragraph. It is centred if its lines are, or if its only line is in the middle
/// of the page; otherwise it is aligned left or right.
model::Paragraph titleParagraph(const std::vector<const model::Paragraph *> &parts, const model::Page &page);

/// A frame in which a title wraps, or only its lines.
struct TitleFrame
{
    Box box;
    bool wraps = true;
};

/// Returns the frame of the title: as wide as the page for a single line, unless something else is there. Line ends
/// that would not be there in this frame become line breaks.
TitleFrame titleFrame(model::Paragraph &title, const model::Page &page);

} // namespace quorra::office
