// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "document/picture_source.h"
#include "odf/odf_frames.h"

#include <vector>

namespace quorra::office {

/// Paragraphs that follow one another closely in one column: they share a frame, in which their text flows.
struct TextBlock
{
    Box box;
    std::vector<const model::Paragraph *> paragraphs;
    bool labels = false; ///< of a drawing: each line at its own place
};

/// The text blocks of a page, header and footer included, in reading order. With joined, close paragraphs of a column
/// come together; otherwise each is a block of its own.
std::vector<TextBlock> textBlocks(const model::Page &page, bool joined);

/// The frame for a text of this box: somewhat wider, because other fonts run wider, but not over its neighbours or the
/// page's edge.
Box roomyBox(const model::Page &page, const Box &box);

/// Writes all of the page at its places: backgrounds, lines and pictures, then texts and tables in frames. The anchor
/// is FrameAnchor::Page.
void writePlacedPage(const Sink &sink, const model::Page &page, model::PictureSource &pictures, FrameAnchor anchor);

} // namespace quorra::office
