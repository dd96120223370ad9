// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_frames.h"

#include <vector>

namespace quorra::office {

/// Paragraphs close below one another in a column, which share a frame.
struct TextBlock
{
    Box box;
    std::vector<const model::Paragraph *> paragraphs;
    bool labels = false; ///< labels of a drawing, each line of which has its own position
};

/// Returns whether the paragraph with this box and distance of lines is close enough below some text to share a frame
/// with it. `text` is the box of the text, `textBottom` where its last paragraph ends.
bool isCloseBelow(const Box &paragraph, double lineDistance, const Box &text, double textBottom);

/// Returns the text blocks of a page in reading order, followed by the header and the footer. With `joined`, close
/// paragraphs of a column form one block; otherwise each paragraph is a block.
std::vector<TextBlock> textBlocks(const model::Page &page, bool joined);

/// Returns a frame for text with this box. It is wider than the box, because the text may be wider in another font, but
/// does not overlap other blocks or the edge of the page.
Box roomyBox(const model::Page &page, const Box &box);

/// Writes what is behind the text: fills, pictures and lines as shapes, or one picture of all of it if the page needs
/// it.
void writeBackground(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor);

/// Writes the content of the page at its positions: backgrounds, lines and pictures, then text and tables in frames.
/// The anchor must be FrameAnchor::Page.
void writePlacedPage(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor);

} // namespace quorra::office
