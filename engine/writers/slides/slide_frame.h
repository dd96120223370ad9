// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "document/document.h"
#include "odf/odf_frames.h"

namespace quorra::office {

/// The way from upright coordinates to the slide: rotated text is laid out as if it were upright, and its frame is
/// rotated clockwise by `rotation` (0, 90, 180 or 270 degrees). Width and height are those of the slide, in points.
struct SlideTurn
{
    int rotation = 0;
    double width = 0;
    double height = 0;
};

/// Return a box or line in upright coordinates as it is on the slide.
Box onSlide(const Box &box, const SlideTurn &turn);
model::Rule onSlide(const model::Rule &rule, const SlideTurn &turn);

/// Begins a text frame at the box (upright coordinates); its paragraphs follow. A frame that does not wrap its text
/// grows wider than the box if necessary, away from the side of the alignment.
[[nodiscard]] TextFrame
beginSlideFrame(const Sink &sink, const Box &box, const SlideTurn &turn, bool wraps, model::Alignment alignment);

} // namespace quorra::office
