// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_frames.h"

namespace quorra::office {

/// How upright coordinates lie on a slide: text turned clockwise by rotation (0, 90, 180 or 270 degrees) is laid out as
/// if it were upright and its frame turned. Width and height are the slide's, in points.
struct SlideTurn
{
    int rotation = 0;
    double width = 0;
    double height = 0;
};

/// The paragraph as it stands when its own rotation on a slide of that size is undone.
model::Paragraph uprightParagraph(model::Paragraph paragraph, const SlideTurn &turn);

/// A box or line in upright coordinates, as it lies on the slide.
Box onSlide(const Box &box, const SlideTurn &turn);
model::Rule onSlide(const model::Rule &rule, const SlideTurn &turn);

/// Begins a text frame at the box (upright coordinates); its paragraphs follow. A frame that does not wrap gets wider
/// than the box where its text needs it, away from the side of the alignment.
[[nodiscard]] TextFrame
beginSlideFrame(const Sink &sink, const Box &box, const SlideTurn &turn, bool wraps, model::Alignment alignment);

} // namespace quorra::office
